"""Both roads from the search form to the result document, which is read back out of the user's own office."""

import os
import re
import shutil
import subprocess
import sys
import unittest

sys.path.insert(0, os.path.dirname(__file__))
from session import BUILD, PATIENCE, SOURCE, ProgramTest, control, descendants, press, session, showing, wait_for  # noqa: E402
from offices import office_documents  # noqa: E402

sys.dont_write_bytecode = True
sys.path.insert(0, SOURCE + "/sample/tools")
from disclosureSource import examples_of_year, read_edition  # noqa: E402

import gi  # noqa: E402

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402

LIBRARY = "SablewoodLibrary"
LIBRARY_KEY = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Zorvo\\Quillbook\\SablewoodLibrary\\2007\\InstallDefaults"


def examples(edition, year):
    """The examples of an edition from the source of the samples, by file name."""
    source = "%s/sample/templates/disclosures/%s.txt" % (SOURCE, edition)
    return examples_of_year(read_edition(__import__("pathlib").Path(source)), year)


def text_of(example):
    blocks = [" ".join(" ".join(row) for row in block) if isinstance(block, list) else block
              for block in example.blocks]
    return " ".join([example.title, *blocks])


def titles_with_words(edition, year, *words):
    found = [example.title for example in examples(edition, year)
             if all(re.search(r"\b%s\b" % word, text_of(example), re.IGNORECASE) for word in words)]
    return sorted(found, key=lambda title: (title + ".rtf").upper())


def wait_for_document():
    wait_for("the result's window", lambda: any(name.startswith("Untitled") for name in session.office_windows()), 90)


def saved_documents():
    return [name for _, _, names in os.walk(session.home + "/Documents") for name in names]


def question():
    """The showing message box."""
    def find():
        application = session.application()
        for i in range(application.get_child_count() if application else 0):
            window = application.get_child_at_index(i)
            if window and showing(window) and window.get_role() == Atspi.Role.ALERT:
                return window
        return None
    return wait_for("a message box", find)


def box_text(box):
    return " ".join(node.get_name() for node in descendants(box) if node.get_role() == Atspi.Role.LABEL)


def button(window, name):
    for node in descendants(window):
        if node.get_role() == Atspi.Role.PUSH_BUTTON and node.get_name().replace("&", "") == name:
            return node
    raise AssertionError("no button " + name)


class SearchTest(ProgramTest):
    def setUp(self):
        super().setUp()
        self.set_word("11.0")
        self.client = None

    def tearDown(self):
        super().tearDown()
        if self.client:
            self.client.kill()
            self.client.communicate()

    @staticmethod
    def set_word(version):
        """For the programs that the bus starts from now on."""
        subprocess.run(
            ["dbus-send", "--session", "--print-reply", "--dest=org.freedesktop.DBus", "/org/freedesktop/DBus",
             "org.freedesktop.DBus.UpdateActivationEnvironment",
             "dict:string:string:ZORVOBRENDLE_WORD_VERSION," + version],
            env=session.env, check=True, capture_output=True)

    def search(self, keyword, library=0):
        """Starts the search as a user would; `library` is the place in the list."""
        self.client = session.start_brendle("search")
        form = session.active_window("SearchSwdLib")
        control(form, "Keyword").grab_focus()
        session.key("shift+Tab", *["Down"] * library)
        control(form, "Keyword").set_text_contents(keyword)
        press(control(form, "SearchButton"))

    def assert_client_ends_well(self):
        out, err = self.client.communicate(timeout=PATIENCE)
        self.assertEqual((self.client.returncode, out, err), (0, "", ""))
        self.client = None

    def copy_library(self):
        """An installation of the first edition that a test may damage."""
        folder = session.home + "/Library/2007"
        original = BUILD + "/program/Products/SablewoodLibrary/2007"
        shutil.copytree(original, folder)
        shutil.copy(original + "Allrtf.dot", folder + "Allrtf.dot")
        session.brendle("registry", "set", LIBRARY_KEY, "AppPath2", "Z:" + folder.replace("/", "\\"))
        return folder


class FoundExamples(SearchTest):
    def assert_holds(self, document, titles):
        """All of these examples, each once, in this order, and the template's own text behind them."""
        paragraphs = [text for kind, text in document.blocks if kind == "paragraph"]
        every_title = {example.title for example in examples(LIBRARY, "2007")}
        self.assertEqual([text for text in paragraphs if text in every_title], titles)
        by_title = {example.title: example for example in examples(LIBRARY, "2007")}
        for title in titles:
            texts = [block for block in by_title[title].blocks if isinstance(block, str)]
            for text in texts:
                self.assertIn(text, paragraphs)
        self.assertTrue([text for text in paragraphs if text][-1].startswith("The examples below were found"))

    def assert_unsaved_and_in_front(self, document):
        self.assertEqual(document.properties, {"address": "", "modified": "yes", "visible": "yes", "before": ""})
        self.assertEqual(saved_documents(), [])

    def test_all_examples_with_the_words_come_into_one_unsaved_document_by_file_name(self):
        titles = titles_with_words(LIBRARY, "2007", "bank", "loan")
        self.assertGreater(len(titles), 2)
        self.search("loan BANK")
        box = question()
        self.assertIn("found %d example disclosures containing the text 'loan BANK'." % len(titles), box_text(box))
        press(button(box, "Yes"))
        wait_for_document()
        documents = office_documents()
        self.assertEqual(len(documents), 1)
        self.assert_holds(documents[0], titles)
        self.assert_unsaved_and_in_front(documents[0])
        self.assertFalse(session.owner() and session.has_window("BuildDisclosureProgressForm"))

    def test_tables_of_the_examples_come_too(self):
        self.search("recoveries")
        press(button(question(), "Yes"))
        wait_for_document()
        (document,) = office_documents()
        self.assertIn(("table", "This year|Last year|Beginning of year|$42,000|$37,500|Charged to expense|18,200|"
                       "12,900|Written off, net of recoveries|(15,700)|(8,400)|End of year|$44,500|$42,000"),
                      document.blocks)

    def test_another_edition_is_searched_in_its_own_folder(self):
        titles = titles_with_words("SablewoodGovernment", "2006", "encumbrances")
        self.assertTrue(titles)
        self.search("encumbrances", library=1)
        press(button(question(), "Yes"))
        wait_for_document()
        (document,) = office_documents()
        self.assertEqual([text for kind, text in document.blocks if text in titles], titles)

    def test_an_example_that_vanishes_meanwhile_takes_the_document_with_it(self):
        folder = self.copy_library()
        titles = titles_with_words(LIBRARY, "2007", "bank", "loan")
        self.search("bank loan")
        box = question()
        os.remove("%s/%s.rtf" % (folder, titles[-1]))
        press(button(box, "Yes"))
        box = wait_for("the message", lambda: (lambda b: b if "Unable" in box_text(b) else None)(question()))
        self.assertEqual(box_text(box).strip(),
                         "Unable to show examples. One or more of the example disclosure files are missing.")
        self.assertTrue(session.has_window("BuildDisclosureProgressForm"))
        press(button(box, "OK"))
        self.assert_client_ends_well()
        self.assertEqual(office_documents(), [])

    def test_a_damaged_example_is_told_and_shows_nothing(self):
        folder = self.copy_library()
        titles = titles_with_words(LIBRARY, "2007", "bank", "loan")
        self.search("bank loan")
        box = question()
        path = "%s/%s.rtf" % (folder, titles[0])
        os.truncate(path, os.path.getsize(path) // 2)
        press(button(box, "Yes"))
        box = wait_for("the message", lambda: (lambda b: b if "Unable" in box_text(b) else None)(question()))
        self.assertEqual(box_text(box).strip(), "Unable to create the example disclosure file.")
        press(button(box, "OK"))
        self.assert_client_ends_well()
        self.assertEqual(office_documents(), [])


class FilteredMaster(SearchTest):
    def setUp(self):
        super().setUp()
        self.set_word("12.0")

    def test_what_lacks_the_keyword_is_cut_out_but_for_the_last(self):
        every = examples(LIBRARY, "2007")
        kept = [example.title for example in every[:-1] if "swap" in text_of(example).lower()]
        self.assertTrue(kept)
        self.search("SWAP")
        wait_for_document()
        self.assert_client_ends_well()
        (document,) = office_documents()
        tables = [text.split("|")[0] for kind, text in document.blocks if kind == "table"]
        self.assertEqual(tables, kept + [every[-1].title])
        self.assertEqual(document.properties["address"], "")
        self.assertEqual(document.properties["visible"], "yes")
        self.assertEqual(document.properties["modified"], "yes")
        self.assertEqual(saved_documents(), [])

    def test_a_keyword_that_nothing_holds_leaves_the_last_example(self):
        self.search("no such words")
        wait_for_document()
        (document,) = office_documents()
        tables = [text.split("|")[0] for kind, text in document.blocks if kind == "table"]
        self.assertEqual(tables, [examples(LIBRARY, "2007")[-1].title])

    def test_without_the_master_nothing_is_shown(self):
        folder = self.copy_library()
        os.remove(folder + "Allrtf.dot")
        self.search("lease")
        self.assert_client_ends_well()
        self.assertEqual(session.office_windows(), [])


if __name__ == "__main__":
    unittest.main(verbosity=2)
