"""Documents made by the real program in the real office suite, on a virtual display."""

import os
import subprocess
import sys
import unittest

sys.path.insert(0, os.path.dirname(__file__))
from session import ProgramTest, control, enabled, session, wait_for  # noqa: E402

COMPOUND_FILE = bytes.fromhex("D0CF11E0A1B11AE1")

class OneDocument(ProgramTest):
    def test_enter_on_a_workbook_opens_it_new_and_unsaved_and_the_program_stays(self):
        session.brendle("show")
        window = session.active_window("TemplateTree")
        session.key("Down", "Down", "Down", "Right", "Down")
        wait_for("New Document to be enabled", lambda: enabled(control(window, "ID_NEW")))
        session.key("Return")
        wait_for("the office's window", lambda: any(name.startswith("Untitled") for name in session.office_windows()))
        self.assertIsNotNone(session.owner())
        self.assertEqual(os.listdir(session.home + "/Documents"), ["Halvern House"], "nothing was saved")
        wait_for("the main window to be enabled again", lambda: enabled(control(window, "TreeView1")))


class Create(ProgramTest):
    def setUp(self):
        super().setUp()
        self.folder = os.path.join(session.home, "made", "here")

    def create(self, *what, check=True, env=None):
        return session.brendle("create", "--to", self.folder, *what, check=check, env=env)

    def test_word_and_excel_documents_are_saved_under_generated_names(self):
        result = self.create("AUDT/2007/Trial Balance", "AUDT/2007/Management Letter")
        self.assertEqual(sorted(os.listdir(self.folder)), ["MANAGEMENT LETTER.DOC", "TRIAL BALANCE.XLS"])
        for name in os.listdir(self.folder):
            with open(os.path.join(self.folder, name), "rb") as file:
                self.assertEqual(file.read(8), COMPOUND_FILE)
        self.assertEqual(len(result.stdout.splitlines()), 2)

    def test_no_file_is_ever_written_over(self):
        os.makedirs(self.folder)
        mine = os.path.join(self.folder, "TRIAL BALANCE.XLS")
        with open(mine, "w", encoding="utf-8") as file:
            file.write("mine")
        self.create("AUDT/2007/Trial Balance")
        with open(mine, encoding="utf-8") as file:
            self.assertEqual(file.read(), "mine")
        self.assertIn("TRIAL BALANCE_000.XLS", os.listdir(self.folder))

    def test_an_unknown_document_fails_alone(self):
        result = self.create("AUDT/2007/No such paper", "AUDT/2007/Trial Balance", check=False)
        self.assertEqual(result.returncode, 1)
        self.assertEqual(os.listdir(self.folder), ["TRIAL BALANCE.XLS"])

    def test_without_an_office_suite_each_document_fails_with_the_reason(self):
        result = self.create("AUDT/2007/Trial Balance", check=False, env={"ZORVOBRENDLE_OFFICE_DIR": "/nonexistent"})
        self.assertEqual(result.returncode, 1)
        self.assertIn("LibreOffice", result.stdout + result.stderr)

    def test_no_office_process_is_left_running(self):
        self.create("AUDT/2007/Trial Balance")
        mine = subprocess.run(["pgrep", "-f", session.home], capture_output=True, text=True).stdout
        self.assertEqual(mine, "")


if __name__ == "__main__":
    unittest.main(verbosity=2)
