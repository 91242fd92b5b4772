"""The life of the process as its clients see it, by the real programs on a virtual display."""

import os
import subprocess
import sys
import time
import unittest

sys.path.insert(0, os.path.dirname(__file__))
from session import BUILD, PATIENCE, ProgramTest, control, enabled, names, press, session, wait_for  # noqa: E402
from gi.repository import Atspi  # noqa: E402


class LifecycleTest(ProgramTest):
    def marker(self):
        return os.path.join(session.home, "Documents", "Halvern House", "Brendle", "DFS_DFK.txt")


class Show(LifecycleTest):
    def test_a_first_request_starts_the_process_and_shows_the_filled_tree(self):
        self.assertIsNone(session.owner())
        session.brendle("show")
        window = session.active_window("TemplateTree")
        self.assertEqual(window.get_name(), "Zorvo's Brendle")
        tree = control(window, "TreeView1")
        texts = [tree.get_child_at_index(i).get_name() for i in range(tree.get_child_count())]
        self.assertIn("Audit Engagements, 2007 Edition", texts)
        self.assertIn("Closely Held Companies (11/07)", texts)

    def test_the_splash_stands_for_two_seconds(self):
        session.new_home(splash=True)
        start = time.monotonic()
        session.brendle("show")
        self.assertGreaterEqual(time.monotonic() - start, 1.9)
        session.window("TemplateTree")
        self.assertFalse(session.has_window("frmSplash"))

    def show_until_the_splash(self):
        """The client whose splash is up. It goes by itself, perhaps before it is seen here: then once more."""
        for _ in range(10):
            session.end_program()
            session.new_home(splash=True)
            client = session.start_brendle("show")
            wait_for("the splash", lambda: session.has_window("frmSplash") or session.has_window("TemplateTree"))
            if session.has_window("frmSplash"):
                return client
            client.communicate(timeout=PATIENCE)
        return self.fail("the splash is never seen")

    def test_a_second_request_during_the_splash_ends_it_and_leaves_a_window_to_work_in(self):
        first = self.show_until_the_splash()
        session.brendle("show")
        self.assertEqual(first.communicate(timeout=PATIENCE), ("", ""))
        self.assertEqual(first.returncode, 0)
        window = session.window("TemplateTree")
        self.assertFalse(session.has_window("frmSplash"))
        self.assertTrue(enabled(window))

    def test_a_client_that_vanishes_during_the_splash_leaves_the_window_to_the_user(self):
        client = self.show_until_the_splash()
        client.kill()
        client.communicate()
        self.assertTrue(enabled(session.window("TemplateTree")))
        self.assertFalse(session.has_window("frmSplash"))

    def test_a_second_request_reaches_the_same_process_without_a_splash(self):
        session.brendle("show")
        session.window("TemplateTree")
        process = session.owner()
        session.brendle("setting", "set", "DisplaySplash", "True")
        client = session.start_brendle("show")
        # It would stand for two seconds.
        wait_for("the raise", lambda: session.has_window("frmSplash") or client.poll() is not None)
        self.assertFalse(session.has_window("frmSplash"))
        self.assertEqual(client.communicate(timeout=PATIENCE), ("", ""))
        self.assertEqual(client.returncode, 0)
        self.assertEqual(session.owner(), process)

    def test_a_raised_window_stays_in_front_of_other_programs_without_being_topmost(self):
        session.brendle("show")
        session.active_window("TemplateTree")
        other = subprocess.Popen(["brendle-help", os.path.join(BUILD, "program", "QBK_HELP.chm")], env=session.env)
        try:
            wait_for("the other window in front", lambda: session.stacking()[-1] == "Zorvo's Brendle Help")
            for request in ("show", "top"):
                session.brendle(request)
                # Asked in this order: what holds is seen only when the pulse has passed.
                wait_for("the raised window in front", lambda: "ABOVE" not in session.window_states("^Zorvo's Brendle$")
                         and session.stacking()[-1] == "Zorvo's Brendle")
                subprocess.run(["xdotool", "search", "--name", "^Zorvo's Brendle Help$", "windowactivate", "--sync"],
                               env=session.env, check=True)
                wait_for("the other window in front", lambda: session.stacking()[-1] == "Zorvo's Brendle Help")
        finally:
            other.terminate()
            other.wait(PATIENCE)

    def test_a_stale_answer_is_gone_after_a_second_request(self):
        session.brendle("show")
        os.makedirs(os.path.dirname(self.marker()), exist_ok=True)
        with open(self.marker(), "w", encoding="utf-8") as file:
            file.write('"old"')
        session.brendle("show")
        self.assertFalse(os.path.exists(self.marker()))

    def test_a_company_gets_its_own_caption(self):
        session.brendle("setting", "set", "OTRDisplaySplash", "False")
        session.brendle("show", "--company", "OTR")
        self.assertEqual(session.window("TemplateTree").get_name(), "OT&R's Brendle")
        # Not under the house's launcher.
        self.assertEqual(session.window_class("^OT&R's Brendle$"),
                         ['WM_CLASS = "com.zorvo.TSelector.OTR", "OT&R\'s Brendle"'])


class End(LifecycleTest):
    def test_the_close_box_ends_the_process_and_keeps_the_place(self):
        session.brendle("show")
        session.active_window("TemplateTree")
        session.key("alt+F4")
        session.wait_for_end()
        self.assertEqual(session.setting("MainState"), "2")

    def test_exit_ends_the_process(self):
        session.brendle("show")
        session.active_window("TemplateTree")
        session.key("alt+f", "x")
        session.wait_for_end()

    def test_about_without_a_main_window_ends_the_process_and_the_client_hears_success(self):
        client = session.start_brendle("about")
        window = session.window("frmAbout")
        self.assertIsNone(client.poll(), "the call stays open while the box is up")
        press(control(window, "cmdOK"))
        self.assertEqual(client.wait(PATIENCE), 0, client.stderr.read())
        session.wait_for_end()

    def test_about_beside_a_main_window_leaves_the_process(self):
        session.brendle("show")
        session.window("TemplateTree")
        client = session.start_brendle("about")
        press(control(session.window("frmAbout"), "cmdOK"))
        self.assertEqual(client.wait(PATIENCE), 0)
        time.sleep(2)
        self.assertIsNotNone(session.owner())

    def test_help_without_a_main_window_ends_the_process_inside_the_call(self):
        self.assertEqual(session.brendle("help").returncode, 0)
        session.wait_for_end()

    def test_a_cancelled_search_unloads_the_main_form_that_it_loaded(self):
        client = session.start_brendle("search")
        press(control(session.window("SearchSwdLib"), "CancelSearchButton"))
        self.assertEqual(client.wait(PATIENCE), 0, client.stderr.read())
        session.wait_for_end()
        self.assertIsNotNone(session.setting("MainState"), "the normal way out saves the geometry")

    def test_cancelled_engagements_leave_nothing_and_the_process_ends_by_itself(self):
        client = session.start_brendle("engagements")
        press(control(session.window("frmEngagementList"), "cmdCancel"))
        out, error = client.communicate(timeout=PATIENCE)
        self.assertEqual((client.returncode, out), (0, ""), error)
        session.wait_for_end()

    def test_top_without_a_main_window_makes_none(self):
        session.brendle("top")
        session.wait_for_end()

    def test_catalogue_questions_leave_no_process_behind(self):
        session.brendle("status")
        session.wait_for_end()


class Select(LifecycleTest):
    def select_two(self):
        window = session.active_window("TemplateTree")
        new = control(window, "ID_NEW")
        self.assertFalse(enabled(new))
        session.key("Down", "Down", "Down", "Right", "Down")
        wait_for("New Document to be enabled", lambda: enabled(new))
        return window

    def test_the_chosen_document_is_printed_and_handed_over(self):
        client = session.start_brendle("select")
        window = self.select_two()
        press(control(window, "ID_NEW"))
        out, error = client.communicate(timeout=PATIENCE)
        self.assertEqual(client.returncode, 0, error)
        self.assertRegex(out, r"^<Documents><Document><Title><!\[CDATA\[Trial Balance\]\]></Title><FileName>")
        self.assertTrue(out.endswith("</Documents>\n"))
        with open(self.marker(), "rb") as file:
            self.assertEqual(file.read(), b'"' + out[:-1].encode() + b'"\r\n')
        session.wait_for_end()

    def test_closing_without_a_choice_hands_nothing_over(self):
        client = session.start_brendle("select")
        session.active_window("TemplateTree")
        session.key("alt+F4")
        out, error = client.communicate(timeout=PATIENCE)
        self.assertEqual((client.returncode, out), (0, ""), error)
        self.assertFalse(os.path.exists(self.marker()))


class MainWindow(LifecycleTest):
    def test_the_description_follows_the_selection(self):
        session.brendle("show")
        window = session.active_window("TemplateTree")
        description = control(window, "lblDesc")
        session.key("Down", "Down", "Down", "Right", "Down")
        wait_for("the description",
                 lambda: (description.clear_cache(), "trial balance" in description.get_name().lower())[1])

    def test_the_status_bar_names_its_key_panels(self):
        session.brendle("show")
        status = control(session.window("TemplateTree"), "sbZorvoBrendle")
        panels = " ".join(names(status, Atspi.Role.LABEL))
        for key in ("Caps", "Num", "Ins"):
            self.assertIn(key, panels)

    def test_without_an_office_suite_the_status_bar_says_so(self):
        session.env["ZORVOBRENDLE_OFFICE_DIR"] = "/nonexistent"
        subprocess.run(["dbus-update-activation-environment", "ZORVOBRENDLE_OFFICE_DIR=/nonexistent"],
                       env=session.env, check=True)
        try:
            session.brendle("show")
            window = session.active_window("TemplateTree")
            session.key("Down", "Down", "Down", "Right", "Down")
            wait_for("New Document to be enabled", lambda: enabled(control(window, "ID_NEW")))
            press(control(window, "ID_NEW"))
            status = control(window, "sbZorvoBrendle")
            wait_for("the status text",
                     lambda: (status.clear_cache(), "LibreOffice" in " ".join(names(status, Atspi.Role.LABEL)))[1])
        finally:
            session.env.pop("ZORVOBRENDLE_OFFICE_DIR")
            subprocess.run(["dbus-update-activation-environment", "ZORVOBRENDLE_OFFICE_DIR="], env=session.env,
                           check=True)


class Framework(LifecycleTest):
    def test_a_missing_framework_is_told_and_ends_the_process(self):
        session.brendle("registry", "delete", "HKEY_CLASSES_ROOT\\Brendle.ActXManager")
        client = session.start_brendle("show")
        box = session.box()
        texts = " ".join(names(box, Atspi.Role.LABEL))
        self.assertIn("The Brendle application cannot be created. The error is:", texts)
        self.assertIn("Please try to uninstall and then reinstall the Brendle framework.", texts)
        session.key("Return")
        self.assertEqual(client.wait(PATIENCE), 0, client.stderr.read())
        session.wait_for_end()


if __name__ == "__main__":
    unittest.main(verbosity=2)
