"""The About box and the latest version report, by the real programs on a virtual display."""

import os
import stat
import subprocess
import sys
import time
import unittest

sys.path.insert(0, os.path.dirname(__file__))
from session import PATIENCE, SOURCE, ProgramTest, control, enabled, press, session, wait_for  # noqa: E402

VIEWER = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\SharedTools\\MSInfo\\Path"
DOCUMENT = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Classes\\MSInfo.Document\\shell\\open\\command"


def setUpModule():
    # A folder of recorders ahead of all others: each notes its arguments, one to a line.
    recorders = session.folder + "/recorders"
    os.makedirs(recorders)
    for name in ("xdg-open", "information-viewer"):
        path = recorders + "/" + name
        with open(path, "w", encoding="utf-8") as file:
            file.write('#!/bin/sh\nprintf "%%s\\n" "$@" >"$HOME/%s.part"\nmv "$HOME/%s.part" "$HOME/%s"\n'
                       % (name, name, name))
        os.chmod(path, stat.S_IRWXU)
    session.env["PATH"] = recorders + ":" + session.env["PATH"]
    subprocess.run(["dbus-update-activation-environment", "PATH=" + session.env["PATH"]], env=session.env, check=True)


class RecordedTest(ProgramTest):
    def recorded(self, name):
        """The arguments that the recorder of that name was started with."""
        path = os.path.join(session.home, name)
        wait_for("a start of " + name, lambda: os.path.exists(path))
        with open(path, encoding="utf-8") as file:
            return file.read().splitlines()

    def was_started(self, name):
        return os.path.exists(os.path.join(session.home, name))

    def support_file(self, name):
        return os.path.join(session.home, "Documents", "Halvern House", "Brendle", name)

    def report(self, name="ZorvoSysOut.txt"):
        # It is there, empty, before the main window's caption is asked for.
        wait_for("the report", lambda: os.path.exists(self.support_file(name)) and
                 os.path.getsize(self.support_file(name)) > 0)
        with open(self.support_file(name), "rb") as file:
            return file.read().decode()


class About(RecordedTest):
    def test_by_command_leaves_the_window_to_work_in(self):
        session.brendle("show")
        window = session.active_window("TemplateTree")
        session.key("alt+h", "a")
        press(control(session.window("frmAbout"), "cmdOK"))
        wait_for("the box to go", lambda: not session.has_window("frmAbout"))
        time.sleep(2)
        self.assertIsNotNone(session.owner())
        self.assertTrue(enabled(window))

    def test_beside_a_main_window_the_call_ends_with_the_box_and_the_process_stays(self):
        session.brendle("show")
        session.window("TemplateTree")
        process = session.owner()
        client = session.start_brendle("about")
        box = session.window("frmAbout")
        self.assertIsNone(client.poll(), "the call stays open while the box is up")
        press(control(box, "cmdOK"))
        self.assertEqual(client.communicate(timeout=PATIENCE), ("", ""))
        self.assertEqual(client.returncode, 0)
        time.sleep(2)
        self.assertEqual(session.owner(), process)
        self.assertTrue(session.has_window("TemplateTree"))

    def test_without_a_main_window_the_process_ends_inside_the_call_and_saves_nothing(self):
        client = session.start_brendle("about")
        box = session.window("frmAbout")
        self.assertFalse(session.has_window("TemplateTree"))
        press(control(box, "cmdOK"))
        self.assertEqual(client.communicate(timeout=PATIENCE), ("", ""))
        self.assertEqual(client.returncode, 0)
        session.wait_for_end()
        self.assertIsNone(session.setting("MainState"), "no main form was ever loaded")
        self.assertRegex(session.setting("Version"), r"^Version \d+\.\d+\.0\.\d+$")

    def test_by_its_own_class_without_a_main_window_the_process_ends_by_itself(self):
        client = session.start_brendle("call", "ZorvoTSelector.clsAbout", "show_QBK_About")
        press(control(session.window("frmAbout"), "cmdOK"))
        self.assertEqual(client.communicate(timeout=PATIENCE), ("", ""))
        self.assertEqual(client.returncode, 0)
        session.wait_for_end()

    def test_escape_closes_it(self):
        client = session.start_brendle("about")
        session.active_window("frmAbout")
        session.key("Escape")
        self.assertEqual(client.communicate(timeout=PATIENCE), ("", ""))
        self.assertEqual(client.returncode, 0)


class Support(RecordedTest):
    def press_support(self):
        client = session.start_brendle("about")
        box = session.window("frmAbout")
        press(control(box, "cmdSupport"))
        return client, box

    def end(self, client, box):
        press(control(box, "cmdOK"))
        self.assertEqual(client.communicate(timeout=PATIENCE), ("", ""))

    def test_without_a_main_window_loads_it_hidden_and_the_process_ends_through_its_unload(self):
        client, box = self.press_support()
        report = self.report()
        self.assertRegex(report, r"^Zorvo's Brendle properties as of [A-Z][a-z]+day, [A-Z][a-z]{2} \d{1,2} \d{4} "
                                 r"\d\d:\d\d:\d\d [AP]M\r\n\r\nLOG REFERENCES -----\r\n"
                                 r"There are no entries in the error log\.\r\n\r\n$")
        self.assertFalse(session.has_window("TemplateTree"))
        self.end(client, box)
        session.wait_for_end()
        self.assertIsNotNone(session.setting("MainState"), "the normal way out saves the geometry")

    def test_beside_a_companys_window_the_report_carries_its_names(self):
        session.brendle("setting", "set", "OTRDisplaySplash", "False")
        session.brendle("show", "--company", "OTR")
        session.window("TemplateTree")
        os.makedirs(os.path.dirname(self.support_file("")), exist_ok=True)
        with open(self.support_file("Brendle.err"), "wb") as file:
            file.write(b'OTR 1/2/2024 3:04:05 AM One, two\r\n"three, four",five\r\n')
        client, box = self.press_support()
        report = self.report("OTRSysOut.txt")
        self.assertTrue(report.startswith("OT&R's Brendle properties as of "), report)
        self.assertTrue(report.endswith("-----\r\nOTR 1/2/2024 3:04:05 AM One\r\n two\r\nthree, four\r\n"), report)
        self.end(client, box)

    def test_starts_the_viewer_that_the_registry_names_without_its_argument(self):
        session.brendle("registry", "set", DOCUMENT, "", 'information-viewer /report "%1"')
        client, box = self.press_support()
        self.assertEqual(self.recorded("information-viewer"), ["/report"])
        self.end(client, box)

    def test_starts_the_viewer_of_the_first_key_first(self):
        session.brendle("registry", "set", VIEWER, "", "information-viewer first")
        session.brendle("registry", "set", DOCUMENT, "", "information-viewer second")
        client, box = self.press_support()
        self.assertEqual(self.recorded("information-viewer"), ["first"])
        self.end(client, box)

    def test_without_a_viewer_nothing_is_started_and_nothing_said(self):
        client, box = self.press_support()
        self.report()
        time.sleep(1)
        self.assertFalse(self.was_started("information-viewer"))
        self.end(client, box)

    def test_a_viewer_that_isnt_there_is_told_in_a_box_and_the_log(self):
        session.brendle("registry", "set", VIEWER, "", "no-such-viewer")
        client, box = self.press_support()
        message = session.box()
        self.assertEqual(message.get_name(), "Zorvo's Brendle:  frmAbout.cmdSupport_Click")
        session.key("Return")
        session.active_window("frmAbout")
        self.end(client, box)
        with open(self.support_file("Brendle.err"), "rb") as file:
            self.assertRegex(file.read().decode(), r" frmAbout\.cmdSupport_Click Error 53 - [^\r\n]+\r\n$")

    def test_the_quick_tour_opens_its_page(self):
        client = session.start_brendle("about")
        box = session.window("frmAbout")
        press(control(box, "cmdQuickTour"))
        self.assertRegex(self.recorded("xdg-open")[0], r"^https?://")
        self.end(client, box)


class VersionReport(RecordedTest):
    def open_report(self, company=None):
        if company:
            session.brendle("setting", "set", company + "DisplaySplash", "False")
        session.brendle("show", *(["--company", company] if company else []))
        session.active_window("TemplateTree")
        session.key("alt+t", "l")
        return self.recorded("xdg-open")

    def expected(self, company):
        path = os.path.join(SOURCE, "tests", "program", "expected", "version-report-%s.htm" % company)
        with open(path, encoding="utf-8") as file:
            return file.read().replace("\n", "") + "\r\n"

    def assert_page(self, arguments, company):
        self.assertEqual(arguments, [session.env["XDG_RUNTIME_DIR"] + "/zorvobrendle/VersionReport.htm"])
        with open(arguments[0], "rb") as file:
            self.assertEqual(file.read().decode(), self.expected(company))

    def test_of_the_house(self):
        self.assert_page(self.open_report(), "Zorvo")

    def test_of_the_partners(self):
        for company in ("OTR", "MRL"):
            with self.subTest(company):
                session.end_program()
                session.new_home()
                self.assert_page(self.open_report(company), company)

    def test_is_replaced_and_opened_again(self):
        arguments = self.open_report()
        os.remove(os.path.join(session.home, "xdg-open"))
        with open(arguments[0], "w", encoding="utf-8") as file:
            file.write("an older page that is longer than nothing")
        session.active_window("TemplateTree")
        session.key("alt+t", "l")
        self.assert_page(self.recorded("xdg-open"), "Zorvo")


if __name__ == "__main__":
    unittest.main(verbosity=2)
