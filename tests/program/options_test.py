"""The preferences as a user changes them, by the real programs on a virtual display."""

import os
import signal
import sys
import unittest

sys.path.insert(0, os.path.dirname(__file__))
from session import ProgramTest, control, descendants, press, session, wait_for  # noqa: E402
from gi.repository import Atspi  # noqa: E402

COMPANIONS = "com.zorvo.Companions"


def checked(accessible):
    accessible.clear_cache()
    return accessible.get_state_set().contains(Atspi.StateType.CHECKED)


def dialog_of(title):
    """The window of that title, whatever process shows it; None while there is none."""
    desktop = Atspi.get_desktop(0)
    for i in range(desktop.get_child_count()):
        application = desktop.get_child_at_index(i)
        if application:
            application.clear_cache()
            for j in range(application.get_child_count()):
                window = application.get_child_at_index(j)
                if window and window.get_name() == title:
                    return window
    return None


class Options(ProgramTest):
    def tearDown(self):
        super().tearDown()
        companions = session.owner(COMPANIONS)
        if companions:
            os.kill(companions, signal.SIGTERM)
            wait_for("the companions to go", lambda: session.owner(COMPANIONS) is None)

    def open_options(self, *arguments):
        session.brendle("show", *arguments)
        session.active_window("TemplateTree")
        session.key("alt+t", "o")
        return session.active_window("frmOptions")

    def close_program(self):
        session.active_window("TemplateTree")
        session.key("alt+F4")
        session.wait_for_end()

    def turn_everything_around(self, options):
        press(control(options, "optViewCurrentPlusPrior"))
        press(control(options, "chkDisplaySplash"))
        press(control(options, "chkZorvoMenuState"))

    def menu_state(self, name):
        return session.brendle("registry", "get", "HKEY_CURRENT_USER\\Software\\Zorvo\\QBN", name,
                               check=False).stdout.strip()

    def test_preferences_survive_a_restart(self):
        options = self.open_options()
        self.assertTrue(checked(control(options, "optViewCurrentOnly")))
        self.assertTrue(checked(control(options, "chkZorvoMenuState")))
        self.turn_everything_around(options)
        press(control(options, "cmdOK"))
        wait_for("the settings to be written", lambda: session.setting("ShowViewOnTB") == "False")
        self.assertEqual(session.setting("ShowCurrentOnly"), "False")
        self.assertEqual(session.setting("DisplaySplash"), "True")
        self.assertEqual(self.menu_state("TurnOffMenu"), "Off")
        self.close_program()
        session.brendle("setting", "set", "DisplaySplash", "False")
        options = self.open_options()
        self.assertTrue(checked(control(options, "optViewCurrentPlusPrior")))
        self.assertFalse(checked(control(options, "chkZorvoMenuState")))
        press(control(options, "cmdCancel"))

    def test_a_company_keeps_its_own_preferences(self):
        session.brendle("setting", "set", "OTRDisplaySplash", "False")
        options = self.open_options("--company", "OTR")
        self.assertEqual(options.get_name(), "OT&R's Brendle Options")
        self.assertEqual(control(options, "chkZorvoMenuState").get_name(),
                         "Show the OT&R menu in Excel or Word for non-OT&R documents")
        self.turn_everything_around(options)
        press(control(options, "cmdOK"))
        wait_for("the settings to be written", lambda: session.setting("OTRShowViewOnTB") == "False")
        self.assertEqual(session.setting("OTRShowCurrentOnly"), "False")
        self.assertIsNone(session.setting("ShowCurrentOnly"))
        self.assertEqual(self.menu_state("OTRTurnOffMenu"), "Off")
        self.close_program()
        options = self.open_options()
        self.assertTrue(checked(control(options, "optViewCurrentOnly")))
        self.assertTrue(checked(control(options, "chkZorvoMenuState")))
        press(control(options, "cmdCancel"))

    def test_set_location_lets_the_user_choose_a_folder(self):
        options = self.open_options()
        press(control(options, "cmdSetLocation"))
        dialog = wait_for("the folder dialog", lambda: dialog_of("Location of reference material"))
        text = next(node for node in descendants(dialog) if node.get_role() == Atspi.Role.TEXT)
        text.get_editable_text_iface().set_text_contents(session.home + "/Documents")
        press(next(node for node in descendants(dialog)
                   if node.get_role() == Atspi.Role.PUSH_BUTTON and node.get_name() == "Choose"))
        wait_for("the folder to be kept", lambda: session.brendle(
            "registry", "get", "HKEY_CURRENT_USER\\Software\\Zorvo\\Reference", "Location",
            check=False).stdout.strip().endswith("\\Documents"))
        session.active_window("frmOptions")
        press(control(options, "cmdCancel"))
        self.assertIsNone(session.setting("ShowCurrentOnly"), "no preference changes")


if __name__ == "__main__":
    unittest.main(verbosity=2)
