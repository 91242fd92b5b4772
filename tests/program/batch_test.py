"""Many documents into a folder by the real command in the real office suite."""

import os
import re
import subprocess
import sys
import time
import unittest
import zipfile

sys.path.insert(0, os.path.dirname(__file__))
from session import ProgramTest, session, wait_for  # noqa: E402


def flat(files, folder):
    """{file name: the document as one XML text}, as the office reads it."""
    texts = {}
    for extension, form in (("DOC", "fodt"), ("XLS", "fods")):
        some = [name for name in files if name.endswith(extension)]
        subprocess.run(["soffice", "-env:UserInstallation=file://%s/reader" % session.folder, "--headless",
                        "--convert-to", form, "--outdir", session.folder + "/read",
                        *[os.path.join(folder, name) for name in some]],
                       env=session.env, check=True, capture_output=True, timeout=120)
        for name in some:
            with open("%s/read/%s.%s" % (session.folder, name.rpartition(".")[0], form), encoding="utf-8") as file:
                texts[name] = file.read()
    return texts


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
        """Makes all of a product's documents; `act` is called with the number of lines after each. Gives the lines
        and the last one of the errors."""
        client = subprocess.Popen(["brendle", "create", "--to", self.folder, "AUDT/2007/*"],
                                  env={**session.env, **env}, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        lines = []
        for line in client.stdout:
            lines.append(line.rstrip("\n"))
            act(len(lines))
        return lines, client.communicate(timeout=60)[1].splitlines()[-1]

    def check_outcomes(self, lines, summary):
        """What was told is what is there; gives the failed ones."""
        failed = [line for line in lines if " -> FAILED: " in line]
        made = [line.partition(" -> ")[2] for line in lines if line not in failed]
        self.assertEqual(sorted(made), sorted(os.path.join(self.folder, name) for name in os.listdir(self.folder)))
        self.assertEqual(summary, "%d documents: %d created, %d failed" % (len(lines), len(made), len(failed)))
        return failed

    def test_an_office_that_is_killed_again_and_again_costs_single_documents(self):
        def kill(count):
            if count % 10 == 5:
                for process in session.offices(private=True):
                    os.kill(process, 9)
        lines, summary = self.watch(kill)
        self.assertGreaterEqual(len(lines), 39)
        failed = self.check_outcomes(lines, summary)
        self.assertLessEqual(len(failed), 4)
        for line in failed:
            self.assertIn("LibreOffice has ended unexpectedly (signal 9).", line)

    def test_an_office_that_hangs_costs_one_document(self):
        def stop(count):
            if count == 3:
                for process in session.offices(private=True):
                    os.kill(process, 19)
        lines, summary = self.watch(stop, ZORVOBRENDLE_OFFICE_TIMEOUT_MS="3000")
        failed = self.check_outcomes(lines, summary)
        self.assertEqual(len(failed), 1)
        self.assertIn("LibreOffice didn't answer", failed[0])

    def test_a_folder_that_vanishes_fails_the_rest_one_by_one(self):
        def remove(count):
            if count == 3:
                os.rename(self.folder, self.folder + "-gone")
        lines, summary = self.watch(remove)
        self.assertGreaterEqual(len(lines), 39)
        self.assertFalse(os.path.exists(self.folder), "it isn't made again behind the user's back")
        kept = os.listdir(self.folder + "-gone")
        failed = [line for line in lines if " -> FAILED: " in line]
        self.assertEqual(len(kept), len(lines) - len(failed))
        self.assertGreaterEqual(len(kept), 3, "finished files stay finished")
        self.assertIn("%d failed" % len(failed), summary)


class Ended:
    """Ends the user's office on the way out, whatever has failed."""

    def __init__(self, office):
        self.office = office

    def __enter__(self):
        return self

    def __exit__(self, *_):
        session.end_offices()
        self.office.wait(30)


class UsersOffice(ProgramTest):
    def test_unsaved_text_beside_a_batch_stays_untouched(self):
        mine = os.path.join(session.home, "Documents", "mine.odt")
        source = os.path.join(session.home, "mine.txt")
        with open(source, "w", encoding="utf-8") as file:
            file.write("saved words\n")
        subprocess.run(["soffice", "-env:UserInstallation=file://%s/reader" % session.folder, "--headless",
                        "--convert-to", "odt", "--outdir", os.path.dirname(mine), source], env=session.env, check=True,
                       capture_output=True, timeout=60)
        with subprocess.Popen(["soffice", "--norestore", "--nologo", mine], env=session.env,
                              stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL) as office, Ended(office):
            window = wait_for("the user's document", lambda: subprocess.run(
                ["xdotool", "search", "--onlyvisible", "--name", "mine.odt"], env=session.env, capture_output=True,
                text=True).stdout.split(), 60)[0]
            subprocess.run(["xdotool", "windowactivate", "--sync", window], env=session.env, check=True)
            time.sleep(1)
            subprocess.run(["xdotool", "type", "--delay", "40", "unsaved words "], env=session.env, check=True)
            before = os.stat(mine).st_mtime_ns
            process = session.offices(private=False)
            self.assertEqual(len(process), 1)
            session.brendle("create", "--to", session.home + "/made", "AUDT/2007/Management Letter",
                            "AUDT/2007/Trial Balance", "AUDT/2007/Legal Letter")
            self.assertEqual(len(os.listdir(session.home + "/made")), 3)
            self.assertEqual(session.offices(private=False), process, "the same office")
            self.assertEqual(os.stat(mine).st_mtime_ns, before, "nothing was saved behind the user's back")
            subprocess.run(["xdotool", "windowactivate", "--sync", window], env=session.env, check=True)
            session.key("ctrl+s")
            wait_for("the user's own save", lambda: os.stat(mine).st_mtime_ns != before, 30)
            time.sleep(0.5)
            with zipfile.ZipFile(mine) as packed:
                content = packed.read("content.xml").decode()
            # The office writes the first letter large by itself.
            self.assertIn("unsaved words saved words", re.sub("<[^>]*>", "", content).lower())


if __name__ == "__main__":
    unittest.main(verbosity=2)
