"""Many documents into a folder by the real command in the real office suite."""

import os
import subprocess
import sys
import unittest

sys.path.insert(0, os.path.dirname(__file__))
from session import PATIENCE, ProgramTest, session, wait_for  # noqa: E402
from offices import WaitingAddIn, convert, flat, office_documents  # noqa: E402


class Create(ProgramTest):
    def setUp(self):
        super().setUp()
        self.folder = os.path.join(session.home, "made")
        self.profile = os.path.join(session.home, "profile.txt")
        with open(self.profile, "w", encoding="utf-8") as file:
            file.write("ClientName=Fröhlich & Söhne\nperiod end=December 31, 2026\npreparer=P. Moss\n")

    def create(self, *what, check=True):
        return session.brendle("create", "--to", self.folder, *what, check=check)

    def test_a_profile_goes_into_the_documents(self):
        result = self.create("--profile", self.profile, "AUDT/2007/Management Letter", "AUDT/2007/Trial Balance")
        self.assertEqual(result.stderr, "2 documents: 2 created, 0 failed\n")
        for text in flat(["MANAGEMENT LETTER.DOC", "TRIAL BALANCE.XLS"], self.folder).values():
            self.assertRegex(text, r'meta:name="PeriodEnd"[^>]*>December 31, 2026<')
            self.assertIn("Fröhlich &amp; Söhne", text[text.index("<office:body>"):])

    def test_without_the_add_in_documents_are_made_and_it_is_told(self):
        for name in ("ZorvoTSR.Connect", "ZorvoTSR.ExcelConnect"):
            session.brendle("registry", "delete", "HKEY_CLASSES_ROOT\\" + name)
        result = self.create("--profile", self.profile, "AUDT/2007/Management Letter")
        self.assertEqual(result.stderr, "1 document: 1 created, 0 failed, 1 without the profile data\n")

    def watch(self, act, **env):
        """Makes all of a product's documents behind a text, which brings the add-in for the workbooks, too, while
        `act` does its work. Gives the lines and the last one of the errors."""
        command = ["brendle", "create", "--to", self.folder, "--profile", self.profile, "AUDT/2007/Management Letter",
                   "AUDT/2007/*"]
        with subprocess.Popen(command, env={**session.env, **env}, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                              text=True) as client:
            try:
                act()
                out, error = client.communicate(timeout=300)
            except BaseException:
                client.kill()
                raise
        return out.splitlines(), error.splitlines()[-1]

    def check_outcomes(self, lines, summary):
        """What was told is what is there; gives the places of the failed ones, from 1, and their lines."""
        failed = {at: line for at, line in enumerate(lines, 1) if " -> FAILED: " in line}
        made = [line.partition(" -> ")[2] for line in lines if line not in failed.values()]
        self.assertGreaterEqual(len(lines), 39)
        self.assertEqual(sorted(made), sorted(os.path.join(self.folder, name) for name in os.listdir(self.folder)))
        self.assertEqual(summary, "%d documents: %d created, %d failed" % (len(lines), len(made), len(failed)))
        return failed

    def test_an_office_that_is_killed_again_and_again_costs_single_documents(self):
        killed = [5, 15, 16, 35]
        add_in = WaitingAddIn(*killed)

        def kill():
            for number in killed:
                add_in.kill_office_at(number)
        failed = self.check_outcomes(*self.watch(kill))
        self.assertEqual(list(failed), killed)
        for line in failed.values():
            self.assertIn("LibreOffice has ended unexpectedly (signal 9).", line)

    def test_an_office_that_hangs_costs_one_document(self):
        add_in = WaitingAddIn(4)
        failed = self.check_outcomes(*self.watch(lambda: add_in.wait_for(4), ZORVOBRENDLE_OFFICE_TIMEOUT_MS="5000"))
        self.assertEqual(list(failed), [4])
        self.assertIn("LibreOffice didn't answer", failed[4])

    def test_a_folder_that_vanishes_fails_the_rest_one_by_one(self):
        add_in = WaitingAddIn(4)

        def remove():
            add_in.wait_for(4)
            os.rename(self.folder, self.folder + "-gone")
            add_in.let_go()
        lines, summary = self.watch(remove)
        self.assertGreaterEqual(len(lines), 39)
        self.assertFalse(os.path.exists(self.folder), "it isn't made again behind the user's back")
        self.assertEqual(len(os.listdir(self.folder + "-gone")), 3, "finished files stay finished")
        self.assertEqual([" -> FAILED: " in line for line in lines], [False] * 3 + [True] * (len(lines) - 3))
        self.assertEqual(summary, "%d documents: 3 created, %d failed" % (len(lines), len(lines) - 3))


class Ended:
    """Ends the user's office on the way out, whatever has failed."""

    def __init__(self, office):
        self.office = office

    def __enter__(self):
        return self

    def __exit__(self, *_):
        session.end_offices()
        self.office.wait(PATIENCE)


class UsersOffice(ProgramTest):
    def test_unsaved_text_beside_a_batch_stays_untouched(self):
        mine = os.path.join(session.home, "Documents", "mine.odt")
        source = os.path.join(session.home, "mine.txt")
        with open(source, "w", encoding="utf-8") as file:
            file.write("saved words\n")
        convert("odt", os.path.dirname(mine), [source])
        with subprocess.Popen(["soffice", "--norestore", "--nologo", mine], env=session.env,
                              stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL) as office, Ended(office):
            window = wait_for("the user's document", lambda: subprocess.run(
                ["xdotool", "search", "--onlyvisible", "--name", "mine.odt"], env=session.env, capture_output=True,
                text=True).stdout.split())[0]
            subprocess.run(["xdotool", "windowactivate", "--sync", window], env=session.env, check=True)
            wait_for("the saved text", lambda: self.text() == "saved words")
            session.type("unsaved words ")
            # The office writes the first letter large by itself.
            wait_for("the typed text", lambda: self.text().lower() == "unsaved words saved words")
            before = os.stat(mine)
            process = session.offices(private=False)
            self.assertEqual(len(process), 1)
            session.brendle("create", "--to", session.home + "/made", "AUDT/2007/Management Letter",
                            "AUDT/2007/Trial Balance", "AUDT/2007/Legal Letter")
            self.assertEqual(len(os.listdir(session.home + "/made")), 3)
            self.assertEqual(session.offices(private=False), process, "the same office")
            self.assertEqual(self.text().lower(), "unsaved words saved words")
            (document,) = office_documents()
            self.assertEqual(document.properties["modified"], "yes")
            self.assertEqual(document.properties["visible"], "yes")
            after = os.stat(mine)
            self.assertEqual((after.st_ino, after.st_mtime_ns), (before.st_ino, before.st_mtime_ns),
                             "nothing was saved behind the user's back")

    @staticmethod
    def text():
        """Of the documents that the user's office holds."""
        return " ".join(text for document in office_documents() for _, text in document.blocks)


if __name__ == "__main__":
    unittest.main(verbosity=2)
