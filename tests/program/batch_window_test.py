"""Many documents into a folder by the real windows in the real office suite, on a virtual display."""

import os
import re
import sys
import unittest

sys.path.insert(0, os.path.dirname(__file__))
from session import ProgramTest, control, descendants, enabled, press, session, showing, wait_for  # noqa: E402
from gi.repository import Atspi  # noqa: E402
from offices import WaitingAddIn, flat  # noqa: E402
from treeRows import Rows  # noqa: E402

COMPOUND_FILE = bytes.fromhex("D0CF11E0A1B11AE1")
MAIN_STREAM = {"DOC": "WordDocument".encode("utf-16-le"), "XLS": "Workbook".encode("utf-16-le")}
PROFILE = {"txtClientName": "Fröhlich & Söhne", "txtPeriodEnd": "December 31, 2026", "txtPreparedBy": "P. Moss",
           "txtReviewedBy": "R. Fern"}
PROPERTIES = {"ClientName": "Fröhlich &amp; Söhne", "PeriodEnd": "December 31, 2026", "PreparedBy": "P. Moss",
              "ReviewedBy": "R. Fern"}
AUDIT = "Audit Engagements, 2007 Edition"
HELD = "Closely Held Companies (11/07)"
# Two templates come twice.
TWELVE = [
    (AUDIT, "Acceptance and Terms", ["Client Acceptance and Continuance", "Audit Engagement Letter",
                                     "Independence Confirmation"]),
    (AUDIT, "Planning", ["Audit Planning Memorandum", "Risk Assessment Summary", "Materiality", "Time Budget"]),
    (HELD, "Letters", ["Audit Engagement Letter", "Legal Letter"]),
    (HELD, "Worksheets", ["Trial Balance", "Materiality", "Adjusting Entries"]),
]
FILES = ["CLIENT ACCEPTANCE AND CONTINUANCE.DOC", "AUDIT ENGAGEMENT LETTER.DOC", "INDEPENDENCE CONFIRMATION.DOC",
         "AUDIT PLANNING MEMORANDUM.DOC", "RISK ASSESSMENT SUMMARY.DOC", "MATERIALITY.XLS", "TIME BUDGET.XLS",
         "AUDIT ENGAGEMENT LETTER_000.DOC", "LEGAL LETTER.DOC", "TRIAL BALANCE.XLS", "MATERIALITY_000.XLS",
         "ADJUSTING ENTRIES.XLS"]
DONE = " Multiple documents were successfully created."


def select(window, chosen):
    """Selects the documents of (product, folder, names) and nothing else."""
    rows = Rows(control(window, "TreeView1"))
    products = list(dict.fromkeys(product for product, _, _ in chosen))
    for product in products:
        rows.expand(product)
    for product, folder, _ in chosen:
        rows.expand(folder, rows.names().index(product))
    modifier = ""
    for product, folder, documents in chosen:
        at = rows.names().index(folder, rows.names().index(product))
        for name in documents:
            rows.walk(name, at, modifier)
            if modifier:
                session.tap("ctrl+space")
            modifier = "ctrl+"
    every = [name for _, _, documents in chosen for name in documents]
    wait_for("the selection of %d rows" % len(every), lambda: rows.selected() == every)


def window_of_any_program(form):
    """The showing window of that name."""
    def find():
        desktop = Atspi.get_desktop(0)
        desktop.clear_cache()
        for i in range(desktop.get_child_count()):
            application = desktop.get_child_at_index(i)
            if application:
                application.clear_cache()
            for n in range(application.get_child_count() if application else 0):
                window = application.get_child_at_index(n)
                if window and window.get_description() == "#" + form and showing(window):
                    return window
        return None
    return wait_for("the window " + form, find)


def text_of(accessible):
    accessible.clear_cache()
    return Atspi.Text.get_text(accessible, 0, -1)


def enter(accessible, text):
    accessible.set_text_contents(text)
    wait_for("the text to stand there", lambda: text_of(accessible) == text)


def label(window, name):
    found = control(window, name)
    found.clear_cache()
    return found.get_name()


class BatchWindow(ProgramTest):
    def setUp(self):
        super().setUp()
        self.folder = os.path.join(session.home, "Documents", "Clients", "Fröhlich", "2026")

    def begin(self):
        """From the main window to the profile's OK, after which the progress form makes the twelve documents."""
        session.brendle("show")
        select(session.active_window("TemplateTree"), TWELVE)
        session.key("Return")
        dialog = session.active_window("frmSaveFolderDialog")
        enter(control(dialog, "txtDocumentFolder"), self.folder)
        press(control(dialog, "cmdCreate"))
        wait_for("the word of the new folder",
                 lambda: label(dialog, "sbProgress") == " The document folder has been created.")
        self.assertTrue(os.path.isdir(self.folder))
        press(control(dialog, "cmdOK"))
        form = window_of_any_program("frmProfileData")
        for name, text in PROFILE.items():
            enter(control(form, name), text)
        press(control(form, "cmdOK"))

    def finished(self):
        """The progress form at the end of the batch. The making of documents answers nobody, so that a question may
        come back unanswered meanwhile."""
        wait_for("the end of the batch", lambda: session.has_window("frmProgressForm") and label(
            session.window("frmProgressForm"), "sbProgress") == DONE, 300)
        return session.active_window("frmProgressForm")

    def end_form(self, form):
        press(control(form, "cmdFinished"))
        wait_for("the form to go", lambda: not session.has_window("frmProgressForm"))
        wait_for("the main window to be free", lambda: enabled(control(session.window("TemplateTree"), "TreeView1")))

    def entries(self, form):
        return [node.get_name() for node in descendants(control(form, "TGenFileList"))
                if node.get_role() == Atspi.Role.TABLE_CELL]

    def log(self):
        path = os.path.join(session.home, "Documents", "Halvern House", "Brendle", "Brendle.err")
        if not os.path.exists(path):
            return []
        with open(path, encoding="utf-8") as file:
            return [line for line in file.read().splitlines() if line]

    def check_files(self, names):
        """These files and no others lie in the folder, each in its binary format with the client's data in its
        properties and in what shows them."""
        self.assertEqual(sorted(os.listdir(self.folder)), sorted(names))
        for name in names:
            with open(os.path.join(self.folder, name), "rb") as file:
                data = file.read()
            self.assertTrue(data.startswith(COMPOUND_FILE), name)
            self.assertIn(MAIN_STREAM[name[-3:]], data, name)
        for name, text in flat(names, self.folder).items():
            for key, value in PROPERTIES.items():
                self.assertRegex(text, r'<meta:user-defined meta:name="%s"[^>]*>%s<' % (key, value), name)
            body = text[text.index("<office:body>"):]
            self.assertIn(PROPERTIES["ClientName"], body, name)
            self.assertEqual([shown for key, shown in re.findall(r' text:name="(\w+)">([^<]*)<', body)
                              if key in PROPERTIES and shown != PROPERTIES[key]], [], name)

    def open_entries(self, form, places):
        """Selects those of the list by keyboard and presses Open."""
        session.key("alt+d")
        rows = Rows(control(form, "TGenFileList"))
        for each, place in enumerate(places):
            rows.walk(FILES[place], modifier="ctrl+" if each else "")
            # The first row is the current one of itself, but not selected.
            session.key("ctrl+space" if each else "space")
        wait_for("the selection", lambda: rows.selected() == [FILES[place] for place in places])
        session.key("alt+o")

    def test_twelve_documents_carry_the_clients_data_and_open_from_the_list(self):
        self.begin()
        form = self.finished()
        self.assertEqual(self.entries(form), FILES)
        self.assertEqual(label(form, "lblFolderPath"), self.folder)
        self.assertFalse(showing(control(form, "lblNotice")))
        self.assertEqual(self.log(), [])
        wait_for("our own office to go", lambda: session.offices(private=True) == [])
        self.check_files(FILES)
        session.screenshot("batch-finished")
        self.open_entries(form, [0, 5])
        for title in (FILES[0], FILES[5]):
            wait_for("the office's window of " + title,
                     lambda: any(title in each for each in session.office_windows()))
        self.end_form(form)

    def test_the_next_batch_begins_with_the_remembered_folder_and_profile(self):
        self.begin()
        self.end_form(self.finished())
        session.active_window("TemplateTree")
        session.key("Return")
        dialog = session.active_window("frmSaveFolderDialog")
        self.assertEqual(text_of(control(dialog, "txtDocumentFolder")), self.folder)
        press(control(dialog, "cmdOK"))
        profile = window_of_any_program("frmProfileData")
        for name, text in PROFILE.items():
            self.assertEqual(text_of(control(profile, name)), text)
        press(control(profile, "cmdCancel"))
        wait_for("the main window to be free", lambda: enabled(control(session.window("TemplateTree"), "TreeView1")))
        self.assertFalse(session.has_window("frmProgressForm"))
        self.assertEqual(sorted(os.listdir(self.folder)), sorted(FILES), "no second batch")

    def test_an_office_killed_at_documents_three_and_seven_costs_those_two(self):
        add_in = WaitingAddIn(3, 7)
        self.begin()
        for number in (3, 7):
            add_in.wait_for(number)
            session.screenshot("batch-at-document-%d" % number)
            add_in.kill_office_at(number)
        form = self.finished()
        self.assertEqual(self.entries(form), FILES, "an entry for each, made or not")
        failed = [FILES[2], FILES[6]]
        self.check_files([name for name in FILES if name not in failed])
        self.assertEqual(label(form, "lblNotice"),
                         "2 of 12 documents could not be created completely. LibreOffice has ended unexpectedly "
                         "(signal 9). It will be started again for the next document.")
        log = self.log()
        for name in FILES:
            told = [line for line in log if "(%s from " % name in line]
            self.assertEqual(bool(told), name in failed, "\n".join(log))
        self.open_entries(form, [2, 3])
        box = session.box()
        self.assertIn("The document %s does not exist at " % failed[0],
                      " ".join(node.get_name() for node in descendants(box)))
        session.screenshot("batch-missing-document")
        session.key("Return")
        wait_for("the office's window of the next one",
                 lambda: any(FILES[3] in each for each in session.office_windows()))
        self.end_form(form)


if __name__ == "__main__":
    unittest.main(verbosity=2)
