"""Engagements chosen as a partner's suite has its user choose them: `brendle engagements`, by keyboard and by double click,
with the hand-over compared to the character."""

import os
import re
import subprocess
import sys
import unittest

sys.path.insert(0, os.path.dirname(__file__))
from session import BUILD, PATIENCE, ProgramTest, control, names, press, session, wait_for  # noqa: E402
from gi.repository import Atspi  # noqa: E402

PROGRAM = BUILD + "/program"


def native(path):
    return path.removeprefix("Z:").replace("\\", "/")


def engagement(file, title):
    """The text of the element of that title, as it stands in the file."""
    with open(file, encoding="utf-8", newline="") as document:
        text = document.read().replace("\r\n", "\n")
    found = [e for e in re.findall(r"<engagement .*?</engagement>", text, re.S) if "<title>%s</title>" % title in e]
    assert len(found) == 1, title
    return found[0]


class Engagements(ProgramTest):
    GENERAL = PROGRAM + "/TreeData/Zorvo_Engagement.xml"

    def open(self):
        self.client = session.start_brendle("engagements")
        window = session.active_window("frmEngagementList")
        self.assertEqual(window.get_name(), "Zorvo Engagements")
        self.list = control(window, "List1")
        return window

    def rows(self):
        self.list.clear_cache()
        return names(self.list, Atspi.Role.LIST_ITEM)

    def folder(self, product, year):
        """The registered template folder of a year, as the registry has it."""
        for hive in ("HKEY_LOCAL_MACHINE", "HKEY_CURRENT_USER"):
            key = hive + "\\Software\\Zorvo\\Tessora\\%s\\%s\\InstallDefaults" % (product, year)
            result = session.brendle("registry", "get", key, "AppPath2", check=False)
            if result.returncode == 0:
                return result.stdout.rstrip("\n")
        return self.fail("no folder of %s %s" % (product, year))

    def handed_over(self, path, element):
        """The client's output, the file, and that the process ends."""
        text = '<?xml version="1.0" encoding="utf-8" ?><selection path="%s">%s</selection>' % (path, element)
        expected = text.replace('"', "|")
        out, error = self.client.communicate(timeout=PATIENCE)
        self.assertEqual(self.client.returncode, 0, error)
        self.assertEqual(out, expected + "\n")
        with open(session.home + "/Documents/Halvern House/Brendle/DFS_DFK.txt", "rb") as file:
            self.assertEqual(file.read(), ('"' + expected + '"\r\n').encode())
        session.wait_for_end()

    def test_ok_takes_the_first_row_at_once(self):
        window = self.open()
        title = self.rows()[0]
        press(control(window, "cmdOK"))
        element = engagement(self.GENERAL, title)
        path, year = re.search(r'path="(\w+)" year="(\w+)"', element).groups()
        self.handed_over(self.folder(path, year), element)

    def test_chosen_by_keyboard(self):
        self.open()
        rows = self.rows()
        self.assertEqual(rows[:3], ["Audit of a Small Manufacturer, First Year", "Audit of a Small Manufacturer, "
                                    "Continuing", "Audit of a Service Company"])
        wanted = rows.index("Review of Annual Statements")
        session.key("alt+p", *["Down"] * wanted, "Return")
        self.handed_over(self.folder("RCOT", "2007"), engagement(self.GENERAL, "Review of Annual Statements"))

    def test_a_package_of_the_general_document_hands_over_its_first_match(self):
        self.open()
        self.assertEqual(self.rows()[2], "Audit of a Service Company")
        session.key("Down", "Down", "Return")
        self.handed_over(self.folder("AUDT", "2007"),
                         engagement(self.GENERAL, "Audit of a Small Manufacturer, First Year"))

    def test_prior_years_chosen_by_double_click(self):
        window = self.open()
        view = control(window, "btnView")
        self.assertEqual(view.get_name(), "View My Current and Prior Releases")
        press(view)
        wait_for("the other caption", lambda: (view.clear_cache(), view.get_name())[1] == "View My Current Releases")
        self.assertEqual(session.setting("ShowCurrentOnly"), "False")
        title = "Audit of a Wholesaler, 2006 Edition"
        wait_for("prior engagements", lambda: title in self.rows())
        self.double_click(title)
        # A year's own document: the package counts.
        own = os.path.join(native(self.folder("AUDT", "2006")), "Zorvo_Engagement.xml")
        self.handed_over(self.folder("AUDT", "2006"), engagement(own, title))

    def double_click(self, title):
        for i in range(self.list.get_child_count()):
            row = self.list.get_child_at_index(i)
            if row.get_name() == title:
                place = row.get_extents(Atspi.CoordType.SCREEN)
                subprocess.run(["xdotool", "mousemove", str(place.x + place.width // 2),
                                str(place.y + place.height // 2), "click", "--repeat", "2", "--delay", "60", "1"],
                               env=session.env, check=True)
                return
        self.fail("no row " + title)

    def test_cancel_and_escape_hand_nothing_over(self):
        for leave in (lambda window: press(control(window, "cmdCancel")), lambda _: session.key("Escape"),
                      lambda _: session.key("alt+F4")):
            leave(self.open())
            out, error = self.client.communicate(timeout=PATIENCE)
            self.assertEqual((self.client.returncode, out), (0, ""), error)
            self.assertFalse(os.path.exists(session.home + "/Documents/Halvern House/Brendle/DFS_DFK.txt"))
            session.wait_for_end()


if __name__ == "__main__":
    unittest.main(verbosity=2)
