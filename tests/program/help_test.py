"""Help as its readers see it: the real programs on a virtual display."""

import os
import subprocess
import sys
import time
import unittest

sys.path.insert(0, os.path.dirname(__file__))
from session import BUILD, ProgramTest, control, descendants, enabled, names, press, session, showing, wait_for  # noqa: E402
from gi.repository import Atspi  # noqa: E402
from treeRows import Rows  # noqa: E402

NAME = "com.zorvo.Help"


def end_viewer():
    process = session.owner(NAME)
    if process:
        os.kill(process, 15)
        wait_for("the help viewer to go", lambda: session.owner(NAME) is None)


def viewer():
    """The viewer as the accessibility bus shows it, or None."""
    desktop = Atspi.get_desktop(0)
    process = session.owner(NAME)
    for i in range(desktop.get_child_count()):
        child = desktop.get_child_at_index(i)
        if child and process and child.get_process_id() == process:
            child.clear_cache()
            return child
    return None


def windows(form="HelpWindow"):
    application = viewer()
    found = []
    for i in range(application.get_child_count() if application else 0):
        window = application.get_child_at_index(i)
        if window and window.get_description() == "#" + form and showing(window):
            found.append(window)
    return found


def window(form="HelpWindow"):
    return wait_for("the window " + form, lambda: (windows(form) or [None])[0])


def page_text():
    text = Atspi.Text.get_text
    node = control(window(), "Page")
    return text(node, 0, Atspi.Text.get_character_count(node))


def wait_for_page(heading):
    wait_for("the page " + heading, lambda: page_text().startswith(heading))


class HelpTest(ProgramTest):
    def tearDown(self):
        super().tearDown()
        end_viewer()


class FromOutside(HelpTest):
    def test_help_without_a_main_window_opens_at_its_contents_and_outlives_the_program(self):
        session.brendle("help")
        session.wait_for_end()
        self.assertEqual(window().get_name(), "Zorvo's Brendle Help")
        self.assertIn("Making many documents", names(control(window(), "Contents"), Atspi.Role.TABLE_CELL))
        wait_for_page("Zorvo's Brendle")
        time.sleep(1)
        self.assertEqual(len(windows()), 1, "it stays")

    def test_help_by_its_own_class_outlives_a_client_that_leaves_at_once(self):
        session.brendle("call", "ZorvoTSelector.clsHelpDisplay", "show_QBK_Help")
        session.wait_for_end()
        window()
        time.sleep(1)
        self.assertEqual(len(windows()), 1, "it stays")

    def test_a_second_request_finds_the_same_window(self):
        session.brendle("help")
        window()
        process = session.owner(NAME)
        session.brendle("help")
        session.wait_for_end()
        self.assertEqual(session.owner(NAME), process)
        self.assertEqual(len(windows()), 1)

    def test_closing_the_last_window_ends_the_viewer(self):
        session.brendle("help")
        window()
        session.key("ctrl+w")
        wait_for("the viewer to end", lambda: session.owner(NAME) is None)


class FromTheProgram(HelpTest):
    def show_main(self, *arguments):
        session.brendle("show", *arguments)
        return session.active_window("TemplateTree")

    def test_the_help_command_brings_the_help_in_front_without_keeping_it_there(self):
        self.show_main()
        session.key("alt+h", "h")
        window()
        wait_for("the help to be in front", lambda: session.stacking()[-1] == "Zorvo's Brendle Help")
        wait_for("the topmost state to go", lambda: "ABOVE" not in session.window_states("Zorvo's Brendle Help"))
        session.brendle("top")
        wait_for("the main window to be in front", lambda: session.stacking()[-1] == "Zorvo's Brendle")
        self.assertEqual(len(windows()), 1)

    def test_the_main_window_takes_its_help_with_it(self):
        self.show_main()
        session.key("alt+h", "h")
        window()
        main = session.window("TemplateTree")
        subprocess.run(["xdotool", "search", "--onlyvisible", "--name", "^Zorvo's Brendle$", "windowactivate"],
                       env=session.env, check=True)
        session.active_window("TemplateTree")
        session.key("alt+F4")
        session.wait_for_end()
        wait_for("the help to close", lambda: not windows())
        self.assertIsNotNone(main)

    def test_help_that_an_add_in_asked_for_stays_when_a_main_window_that_showed_none_goes(self):
        session.brendle("help")
        session.wait_for_end()
        # A help window that still comes up would take the key from the main one.
        wait_for("the help to be in front", lambda: session.stacking()[-1] == "Zorvo's Brendle Help")
        self.show_main()
        session.key("alt+F4")
        session.wait_for_end()
        time.sleep(1)
        self.assertEqual(len(windows()), 1)

    def test_the_folder_form_and_the_progress_form_ask_for_topic_one(self):
        # Under another company no add-in asks for the client's data in between.
        session.brendle("setting", "set", "OTRDisplaySplash", "False")
        main = self.show_main("--company", "OTR")
        self.select_two_documents(main)
        session.key("Return")
        folder = session.window("frmSaveFolderDialog")
        press(control(folder, "cmdHelp"))
        wait_for_page("Making many documents")
        end_viewer()
        control(folder, "txtDocumentFolder").set_text_contents(os.path.join(session.home, "Documents"))
        press(control(folder, "cmdOK"))
        progress = session.window("frmProgressForm")
        wait_for("the documents to be made", lambda: enabled(control(progress, "cmdHelp")), 90)
        press(control(progress, "cmdHelp"))
        wait_for_page("Making many documents")
        press(control(progress, "cmdFinished"))

    def select_two_documents(self, main):
        rows = Rows(control(main, "TreeView1"))
        rows.expand("OT&R Assurance File")
        rows.expand("Accept and Plan")
        rows.walk("Audit Engagement Letter")
        session.key("shift+Down")
        wait_for("the selection", lambda: rows.selected() == ["Audit Engagement Letter", "Audit Planning Memorandum"])

    def test_other_help_buttons_open_the_contents(self):
        self.show_main()
        session.key("alt+t", "o")
        options = session.window("frmOptions")
        press(control(options, "cmdHelp"))
        wait_for_page("Zorvo's Brendle")
        press(control(options, "cmdCancel"))


class Companies(HelpTest):
    def show_help_of(self, company):
        session.brendle("setting", "set", company + "DisplaySplash", "False")
        session.brendle("show", "--company", company)
        session.active_window("TemplateTree")
        session.key("alt+h", "h")
        return window()

    def copies(self):
        folder = os.path.join(session.home, "config", "Zorvo")
        return sorted(os.listdir(folder)) if os.path.isdir(folder) else []

    def test_another_company_reads_a_copy_of_its_own_file_in_its_own_wording(self):
        self.assertEqual(self.show_help_of("OTR").get_name(), "OT&R's Brendle Help")
        wait_for_page("OT&R's Brendle")
        self.assertEqual(self.copies(), ["OTRQBK_HELP.chm"])

    def test_the_house_writes_nothing_to_the_profile(self):
        session.brendle("show")
        session.active_window("TemplateTree")
        session.key("alt+h", "h")
        window()
        self.assertEqual(self.copies(), [])


class BadFiles(HelpTest):
    """The program folder of these tests has a help file of its own."""

    def help_with(self, content):
        folder = os.path.join(session.home, "program")
        os.makedirs(folder)
        for name in os.listdir(BUILD + "/program"):
            if name.upper() != "QBK_HELP.CHM":
                os.symlink(BUILD + "/program/" + name, folder + "/" + name)
        self.file = folder + "/QBK_HELP.chm"
        if content is not None:
            with open(self.file, "wb") as file:
                file.write(content)
        program = subprocess.Popen(["zorvobrendle"], env={**session.env, "ZORVOBRENDLE_PROGRAM_DIR": folder},
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.addCleanup(program.wait)
        wait_for("the program", session.owner)
        session.brendle("help")

    def message(self):
        box = window("HelpMessage")
        return "\n".join(node.get_name() for node in descendants(box) if node.get_role() == Atspi.Role.LABEL)

    def test_a_missing_file_is_named(self):
        self.help_with(None)
        text = self.message()
        self.assertIn("The help file can't be found", text)
        self.assertIn(self.file, text)
        press(next(node for node in descendants(window("HelpMessage")) if node.get_name() == "OK"))
        wait_for("the viewer to end", lambda: session.owner(NAME) is None)

    def test_a_truncated_file_is_told(self):
        with open(BUILD + "/program/QBK_HELP.chm", "rb") as file:
            self.help_with(file.read(3000))
        self.assertIn("The help file can't be read", self.message())

    def test_a_file_of_another_kind_is_told(self):
        self.help_with(b"#!/bin/sh\nrm -rf /nothing\n" * 100)
        self.assertIn("The help file can't be read", self.message())

    def test_a_hostile_directory_is_told(self):
        with open(BUILD + "/program/QBK_HELP.chm", "rb") as file:
            data = bytearray(file.read())
        data[0x78 + 0x2C:0x78 + 0x30] = b"\xff\xff\xff\x7f"
        self.help_with(bytes(data))
        self.assertIn("The help file can't be read", self.message())


if __name__ == "__main__":
    unittest.main(verbosity=2)
