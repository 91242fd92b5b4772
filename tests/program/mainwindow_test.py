"""A user's work at the main window of the real program: by keyboard alone, read as a screen reader reads it."""

import datetime
import os
import re
import sys
import unittest

sys.path.insert(0, os.path.dirname(__file__))
from session import PATIENCE, ProgramTest, control, enabled, names, press, session, showing, wait_for  # noqa: E402
from gi.repository import Atspi  # noqa: E402


def name(accessible):
    accessible.clear_cache()
    return accessible.get_name()


def panels(window):
    status = control(window, "sbZorvoBrendle")
    status.clear_cache()
    return names(status, Atspi.Role.LABEL)


def selected(tree):
    """Texts of the tree's selected items, opened ones included."""
    texts, stack = [], [tree]
    while stack:
        node = stack.pop()
        node.clear_cache()
        for i in range(node.get_child_count()):
            child = node.get_child_at_index(i)
            if child.get_state_set().contains(Atspi.StateType.SELECTED):
                texts.append(child.get_name())
            stack.append(child)
    return texts


def overlap(one, other):
    return all(one[i] < other[i] + other[i + 2] and other[i] < one[i] + one[i + 2] for i in (0, 1))


class MainWindow(ProgramTest):
    def store_place(self, left, top, width, height, state=0):
        for key, value in (("State", state), ("Left", left), ("Top", top), ("Width", width), ("Height", height)):
            session.brendle("setting", "set", "Main" + key, str(value))

    def stored_place(self):
        return [int(session.setting("Main" + key)) for key in ("Left", "Top", "Width", "Height")]

    def show(self):
        session.brendle("show")
        return session.active_window("TemplateTree")

    def close(self):
        session.key("alt+F4")
        session.wait_for_end()

    def to_the_trial_balance(self, window):
        session.key("Down", "Down", "Down", "Right", "Down")
        wait_for("New Document to be enabled", lambda: enabled(control(window, "ID_NEW")))

    def test_a_day_select_read_make_a_document_close_and_find_the_place_again(self):
        self.store_place(1500, 1200, 13500, 9000)
        window = self.show()
        self.to_the_trial_balance(window)
        self.assertEqual(selected(control(window, "TreeView1")), ["Trial Balance"])
        wait_for("the description", lambda: "trial balance" in name(control(window, "lblDesc")).lower())
        texts = panels(window)
        self.assertEqual(len(texts), 6)
        self.assertIn(str(datetime.date.today().day), re.findall(r"\d+", texts[1]))
        self.assertRegex(texts[2], r"^\d{1,2}:\d{2}")
        self.assertEqual(texts[3:], ["Caps Lock off", "Num Lock off", "Insert off"])
        press(control(window, "ID_NEW"))
        wait_for("the office's window", lambda: any(each.startswith("Untitled") for each in session.office_windows()),
                 60)
        wait_for("the main window to be enabled again", lambda: enabled(control(window, "TreeView1")))
        session.end_offices()
        window = session.window("TemplateTree")
        process = session.owner()
        # By the bus rather than by Alt+F4, which the office's window could take.
        control(window, "TreeView1").get_component_iface().grab_focus()
        session.brendle("show")
        session.active_window("TemplateTree")
        self.assertEqual(session.owner(), process)
        place = (140, 110, 940, 640)
        session.move(window, *place)
        self.close()
        self.assertEqual(self.stored_place(), [15 * each for each in place])
        window = self.show()
        wait_for("the same place", lambda: session.place(window) == place)
        self.close()
        self.assertEqual(self.stored_place(), [15 * each for each in place], "a window mustn't creep from start to start")

    def test_a_window_left_minimised_comes_back_in_its_stored_place(self):
        self.store_place(1500, 1200, 13500, 9000, state=1)
        window = self.show()
        wait_for("its place", lambda: session.place(window) == (100, 80, 900, 600))

    def test_a_window_closed_while_minimised_keeps_its_stored_place(self):
        self.store_place(1500, 1200, 13500, 9000)
        window = self.show()
        session.move(window, 140, 110, 940, 640)
        session.minimise()
        client = session.start_brendle("engagements")
        press(control(session.window("frmEngagementList"), "cmdCancel"))
        error = client.communicate(timeout=PATIENCE)[1]
        self.assertEqual(client.returncode, 0, error)
        session.wait_for_end()
        self.assertEqual(self.stored_place(), [1500, 1200, 13500, 9000])
        self.assertEqual(session.setting("MainState"), "1")

    def test_the_search_dialog_hides_no_match_and_stays_above_the_window(self):
        self.store_place(600, 600, 12000, 9000)
        window = self.show()
        session.click(control(window, "ID_SEARCHTREE"))
        session.active_window("frmTreeSearch")
        session.type("e")
        before = None
        for _ in range(18):  # the lower rows too, at which it goes to the upper corner
            session.key("Return")
            match = wait_for("the next match", lambda: self.match_beside(window, before))
            before = match.get_name()
            dialog = session.active_window("frmTreeSearch")
            wait_for("the dialog to stand beside " + before,
                     lambda: not overlap(session.place(match), session.place(dialog)))
            wait_for("the dialog above its window", lambda: session.owner_window() == "Zorvo's Brendle")

    def match_beside(self, window, before):
        tree = control(window, "TreeView1")
        tree.clear_cache()
        for i in range(tree.get_child_count()):
            child = tree.get_child_at_index(i)
            child.clear_cache()
            if child.get_state_set().contains(Atspi.StateType.SELECTED):
                return child if child.get_name() != before else None
        return None

    def test_the_tree_is_searched_by_keyboard(self):
        window = self.show()
        session.click(control(window, "ID_SEARCHTREE"))
        session.active_window("frmTreeSearch")
        session.type("TRIAL bal")
        session.key("Return")
        tree = control(window, "TreeView1")
        wait_for("the first match", lambda: selected(tree) == ["Trial Balance"])
        session.active_window("frmTreeSearch")
        session.key("Escape")
        wait_for("the dialog to go", lambda: not session.has_window("frmTreeSearch"))
        self.assertEqual(selected(tree), ["Trial Balance"])
        match = [each for each in (tree.get_child_at_index(i) for i in range(tree.get_child_count()))
                 if each.get_name() == "Trial Balance"]
        self.assertTrue(match and showing(match[0]), "a match inside a closed product is brought into view")

    def test_ctrl_and_shift_add_to_the_selection(self):
        window = self.show()
        self.to_the_trial_balance(window)
        session.key("shift+Down")
        tree = control(window, "TreeView1")
        wait_for("two rows", lambda: len(selected(tree)) == 2)
        session.key("Home")
        wait_for("one row", lambda: len(selected(tree)) == 1)

    def test_blank_documents_open_in_the_users_own_office(self):
        window = self.show()
        press(control(window, "ID_WORD"))
        wait_for("a blank text", lambda: any("Writer" in each for each in session.office_windows()))
        wait_for("the window to be usable", lambda: enabled(control(window, "ID_EXCEL")))
        press(control(window, "ID_EXCEL"))
        wait_for("a blank sheet", lambda: any("Calc" in each for each in session.office_windows()))
        self.assertIsNotNone(session.owner())

    def test_the_view_menu_works_by_keyboard_and_shows_its_state(self):
        window = self.show()
        before = control(window, "TreeView1").get_child_count()
        session.key("alt+v", "r")
        tree = control(window, "TreeView1")
        wait_for("the prior years", lambda: (tree.clear_cache(), tree.get_child_count())[1] > before)
        self.assertEqual(session.setting("ShowCurrentOnly"), "False")


if __name__ == "__main__":
    unittest.main(verbosity=2)
