"""The offerings browsed as a person would: offline, and against a web server of the test's own. The page is read through
the accessibility bus, where its process stands beside the program's."""

import http.server
import os
import re
import shutil
import signal
import socketserver
import subprocess
import sys
import threading
import time
import unittest

sys.path.insert(0, os.path.dirname(__file__))
from session import BUILD, ProgramTest, control, descendants, enabled, names, press, session, showing, wait_for  # noqa: E402
from gi.repository import Atspi  # noqa: E402

NOT_CONNECTED = "View latest information on the web (not connected)"
CONNECTED = "View latest information on the web (connected)"
QUERY = "&txtFuse=dspShellProductDetail&numSiteID=2&numTaxonomyTypeID=29&numTaxonomyID=232"


class Site(http.server.BaseHTTPRequestHandler):
    """The publisher's site, on this machine alone."""
    protocol_version = "HTTP/1.1"
    asked = []
    released = threading.Event()

    def log_message(self, *_):
        pass

    def do_GET(self):
        if self.path == "/favicon.ico":
            return self.answer(404, "")
        Site.asked.append(self.path)
        number = re.search(r"numProdClassID=(\d+)", self.path)
        if self.path.startswith("/hang"):
            Site.released.wait(60)
            return None
        if self.path.startswith("/loop"):
            return self.answer(302, "", "/loop?%d" % len(Site.asked))
        if number:
            return self.answer(200, "<h1>Web page of class %s</h1>" % number[1])
        return self.answer(200, "<h1>Page %s</h1>" % self.path)

    def answer(self, status, text, location=None):
        data = ("<!DOCTYPE html><title>Site</title><body>" + text).encode()
        self.send_response(status)
        self.send_header("Content-Type", "text/html")
        self.send_header("Content-Length", str(len(data)))
        if location:
            self.send_header("Location", location)
        self.end_headers()
        self.wfile.write(data)


class Server(socketserver.ThreadingMixIn, http.server.HTTPServer):
    daemon_threads = True


def set_environment(**variables):
    """Of the session's bus, and so of what it starts."""
    session.env.update(variables)
    subprocess.run(["dbus-update-activation-environment", *("%s=%s" % pair for pair in variables.items())],
                   env=session.env, check=True)


def setUpModule():
    global site, server
    server = Server(("127.0.0.1", 0), Site)
    threading.Thread(target=server.serve_forever, daemon=True).start()
    site = "http://127.0.0.1:%d" % server.server_address[1]
    # A browser that only remembers.
    opener = session.folder + "/browser"
    os.makedirs(opener)
    with open(opener + "/xdg-open", "w", encoding="utf-8") as file:
        file.write('#!/bin/sh\necho "$@" >> %s/opened\n' % session.folder)
    os.chmod(opener + "/xdg-open", 0o755)
    set_environment(PATH=opener + ":" + session.env["PATH"], ZORVOBRENDLE_PROGRAM_DIR=session.folder + "/program")


def tearDownModule():
    Site.released.set()
    server.shutdown()
    server.server_close()


class OfferingsTest(ProgramTest):
    def setUp(self):
        super().setUp()
        Site.asked.clear()
        self.make_program(site + "/start")
        if os.path.exists(session.folder + "/opened"):
            os.remove(session.folder + "/opened")

    def make_program(self, home_page):
        """A program folder whose publisher has its site at that address."""
        folder = session.folder + "/program"
        shutil.rmtree(folder, ignore_errors=True)
        os.makedirs(folder)
        for name in os.listdir(BUILD + "/program"):
            if name not in ("xmlCaptions.xml", "TreeData"):
                os.symlink(os.path.join(BUILD, "program", name), os.path.join(folder, name))
        shutil.copytree(BUILD + "/program/TreeData", folder + "/TreeData")
        with open(BUILD + "/program/xmlCaptions.xml", encoding="utf-8") as file:
            captions = file.read()
        with open(folder + "/xmlCaptions.xml", "w", encoding="utf-8") as file:
            file.write(re.sub("<OnTheWeb2>[^<]*<", "<OnTheWeb2>%s<" % home_page, captions))

    def open(self):
        """The form with its first page, from the main window's menu."""
        session.brendle("show")
        session.active_window("TemplateTree")
        session.key("alt+v", "o")
        self.window = session.active_window("frmAllProducts")
        self.wait_for_page("Construction Contractors")
        return self.window

    def page_process(self):
        result = subprocess.run(["pgrep", "--parent", str(session.owner()), "-f", "zorvo-page"], capture_output=True,
                                text=True)
        return int(result.stdout.split()[0]) if result.stdout else None

    def page(self):
        """The accessible of the page's process."""
        process = self.page_process()
        desktop = Atspi.get_desktop(0)
        for i in range(desktop.get_child_count()):
            child = desktop.get_child_at_index(i)
            if child and process and child.get_process_id() == process:
                child.clear_cache()
                return child
        return None

    def wait_for_page(self, heading):
        def find():
            page = self.page()
            return page and any(node.get_role() == Atspi.Role.HEADING and node.get_name() == heading
                                for node in descendants(page))
        wait_for("the page " + heading, find)

    def link(self, name):
        def find():
            for node in descendants(self.page()):
                if node.get_role() == Atspi.Role.LINK and node.get_name() == name:
                    return node
            return None
        return wait_for("the link " + name, find)

    def tree_item(self, name):
        for node in descendants(control(self.window, "ssTreeZorvoBrendle")):
            if node.get_name() == name:
                return node
        raise AssertionError("no node " + name)

    def caption(self):
        box = control(self.window, "chkConnectToWeb")
        box.clear_cache()
        return box.get_name()

    def checked(self, name):
        box = control(self.window, name)
        box.clear_cache()
        return box.get_state_set().contains(Atspi.StateType.CHECKED)

    def in_browser(self):
        try:
            with open(session.folder + "/opened", encoding="utf-8") as file:
                return file.read().splitlines()
        except FileNotFoundError:
            return []

    def box_text(self):
        box = session.box()
        return "\n".join(name for name in names(box, Atspi.Role.LABEL) if name)


class Offline(OfferingsTest):
    def test_the_tree_has_all_offerings_and_each_shows_its_page(self):
        window = self.open()
        self.assertEqual(window.get_name(), "Zorvo's Brendle Offerings")
        tree = control(window, "ssTreeZorvoBrendle")
        texts = [tree.get_child_at_index(i).get_name() for i in range(tree.get_child_count())]
        for text in ("Tessora", "Tessora Specialized Industries", "Construction Contractors", "Audit Engagements",
                     "Sablewood Library for Nonprofits"):
            self.assertIn(text, texts)
        session.key("Down")
        self.wait_for_page("Agricultural Cooperatives")
        session.key("Down")
        self.wait_for_page("Audit Engagements")
        self.assertIn("The 2007 edition is on this machine.", self.text_of_page(), "the installed product's page wins")
        session.key("Home")
        self.wait_for_page("Tessora")
        self.assertEqual(Site.asked, [])
        self.assertEqual(self.caption(), NOT_CONNECTED)
        self.assertFalse(enabled(control(window, "chkUseBrowser")))
        session.screenshot("offerings-offline")

    def text_of_page(self):
        texts = []
        for node in descendants(self.page()):
            texts.append(node.get_name() or "")
            text = node.get_text_iface()
            if text:
                texts.append(Atspi.Text.get_text(text, 0, Atspi.Text.get_character_count(text)))
        return " ".join(texts)

    def test_a_link_within_the_folder_is_followed(self):
        self.open()
        session.click(self.link("Audit Engagements"))
        self.wait_for_page("Audit Engagements")

    def test_an_offering_whose_page_is_gone_is_told_with_its_address(self):
        self.open()
        os.remove(session.folder + "/program/TreeData/HTML/COPT.htm")
        session.key("Down")
        address = "file://Z:" + (session.folder + "/program/TreeData/HTML/COPT.htm").replace("/", "\\")
        self.assertEqual(self.box_text(), "Can't connect to '\n\n" + address +
                         "\"\n\nEnsure you have a connection to the internet and try again later.")
        session.key("Return")
        session.active_window("frmAllProducts")
        session.key("Down")
        self.wait_for_page("Audit Engagements")

    def test_ok_and_escape_close_the_form_and_end_the_page_process(self):
        for leave in (lambda: press(control(self.window, "cmdOK")), lambda: session.key("Escape")):
            self.open()
            process = self.page_process()
            leave()
            wait_for("the form to go", lambda: not session.has_window("frmAllProducts"))
            wait_for("the page process to go", lambda: not os.path.exists("/proc/%d" % process))
            session.active_window("TemplateTree")

    def test_the_search_button_opens_the_report(self):
        self.open()
        press(control(self.window, "cmdSearch"))
        wait_for("the report", self.in_browser)
        self.assertEqual(self.in_browser(), [session.folder + "/program/TreeData/Zorvo LIBRARY TEMPLATE REPORT.HTM"])

    def test_the_form_is_not_offered_under_a_company_that_doesnt_sell_it(self):
        session.brendle("setting", "set", "OTRDisplaySplash", "False")
        session.brendle("show", "--company", "OTR")
        window = session.active_window("TemplateTree")
        self.assertFalse([node for node in descendants(window)
                          if node.get_description() == "#ID_ALLBRENDLEOFFERINGS" and showing(node)])


class Web(OfferingsTest):
    def connect(self):
        press(control(self.window, "chkConnectToWeb"))

    def test_checked_each_node_shows_its_web_page(self):
        self.open()
        self.connect()
        self.wait_for_page("Web page of class 311")
        self.assertEqual(Site.asked, ["/sitecomposer/Index.cfm?numProdClassID=311" + QUERY])
        wait_for("the caption", lambda: self.caption() == CONNECTED)
        self.assertTrue(enabled(control(self.window, "chkUseBrowser")))
        control(self.window, "ssTreeZorvoBrendle").grab_focus()
        session.key("Down")
        self.wait_for_page("Web page of class 312")
        self.assertEqual(self.in_browser(), [])
        session.screenshot("offerings-web")
        self.connect()
        self.wait_for_page("Agricultural Cooperatives")
        self.assertEqual(self.caption(), NOT_CONNECTED)
        self.assertFalse(enabled(control(self.window, "chkUseBrowser")))

    def test_with_the_browser_checked_each_page_opens_there_as_well(self):
        self.open()
        self.connect()
        wait_for("the caption", lambda: self.caption() == CONNECTED)
        press(control(self.window, "chkUseBrowser"))
        address = site + Site.asked[0]
        wait_for("the browser", lambda: self.in_browser() == [address])

    def test_a_followed_link_to_the_web_checks_the_box(self):
        with open(session.folder + "/program/TreeData/HTML/CTRT.htm", "a", encoding="utf-8") as file:
            file.write('<p><a href="%s/news" target="_blank">News on the web</a></p>' % site)
        self.open()
        session.click(self.link("News on the web"))
        self.wait_for_page("Page /news")
        wait_for("the caption", lambda: self.caption() == CONNECTED)
        self.assertTrue(self.checked("chkConnectToWeb"))
        self.assertTrue(enabled(control(self.window, "chkUseBrowser")))
        session.click(self.tree_item("Agricultural Cooperatives"))
        self.wait_for_page("Web page of class 312")

    def fails(self, home_page):
        """Connecting to a site there gives the message and leaves the boxes as they are."""
        self.make_program(home_page)
        self.open()
        start = time.monotonic()
        self.connect()
        text = self.box_text()
        taken = time.monotonic() - start
        found = re.fullmatch("Can't connect to '\n\n(.*)\"\n\nEnsure you have a connection to the internet and try "
                             "again later\\.", text)
        self.assertTrue(found, text)
        session.screenshot("offerings-failed")
        session.key("Return")
        session.active_window("frmAllProducts")
        self.assertTrue(self.checked("chkConnectToWeb"))
        self.assertTrue(enabled(control(self.window, "chkUseBrowser")))
        self.assertEqual(self.caption(), NOT_CONNECTED)
        return found[1], taken

    def test_a_failing_address_is_told(self):
        address, _ = self.fails("http://127.0.0.1:1/")
        self.assertEqual(address, "http://127.0.0.1:1/sitecomposer/Index.cfm?numProdClassID=311" + QUERY)

    def test_a_site_that_never_answers_is_told_within_ten_seconds(self):
        with open(session.folder + "/program/TreeData/HTML/CTRT.htm", "a", encoding="utf-8") as file:
            file.write('<p><a href="%s/hang">Silence</a></p>' % site)
        self.open()
        start = time.monotonic()
        session.click(self.link("Silence"))
        text = self.box_text()
        self.assertLess(time.monotonic() - start, 20, "ten seconds, and a slow machine's time")
        self.assertIn(site + "/hang\"", text)
        self.assertFalse(self.checked("chkConnectToWeb"))

    def test_redirections_for_ever_end_in_the_message(self):
        with open(session.folder + "/program/TreeData/HTML/CTRT.htm", "a", encoding="utf-8") as file:
            file.write('<p><a href="%s/loop">Round and round</a></p>' % site)
        self.open()
        session.click(self.link("Round and round"))
        self.assertIn(site + "/loop", self.box_text())
        self.assertLessEqual(len(Site.asked), 25)


class Processes(OfferingsTest):
    def test_a_crash_of_the_page_is_told_and_the_next_page_starts_it_anew(self):
        self.open()
        first = self.page_process()
        os.kill(first, signal.SIGKILL)
        wait_for("the notice", lambda: [n for n in names(self.window, Atspi.Role.LABEL) if "ended unexpectedly" in n])
        session.key("Down")
        self.wait_for_page("Agricultural Cooperatives")
        self.assertNotEqual(self.page_process(), first)

    def test_the_page_process_ends_when_the_program_is_killed(self):
        self.open()
        process = self.page_process()
        os.kill(session.owner(), signal.SIGKILL)
        wait_for("the page process to go", lambda: not os.path.exists("/proc/%d" % process))

    def test_no_page_process_runs_until_the_form_opens(self):
        session.brendle("show")
        session.active_window("TemplateTree")
        self.assertIsNone(self.page_process())

    def test_without_the_engine_the_pages_show_as_rich_text(self):
        set_environment(QTWEBENGINEPROCESS_PATH="/nonexistent")
        try:
            session.brendle("show")
            session.active_window("TemplateTree")
            session.key("alt+v", "o")
            self.window = session.active_window("frmAllProducts")

            def text():
                for node in descendants(self.window):
                    if node.get_text_iface() and "Construction Contractors" in Atspi.Text.get_text(
                            node.get_text_iface(), 0, -1):
                        return node.get_role() != Atspi.Role.TREE_ITEM
                return False
            wait_for("the page as rich text", text)
            session.screenshot("offerings-rich-text")
        finally:
            set_environment(QTWEBENGINEPROCESS_PATH="/usr/lib/qt6/libexec/QtWebEngineProcess")


class Keyboard(OfferingsTest):
    def test_it_enters_the_page_walks_its_links_and_comes_out(self):
        self.open()
        self.rest_mouse_beside()
        session.key("Tab")
        wait_for("the first link to have the keyboard", lambda: self.focused_link() == "Audit Engagements")
        session.key("Return")
        self.wait_for_page("Audit Engagements")
        session.key("Escape")
        wait_for("the tree to have the keyboard",
                 lambda: self.has_focus(control(self.window, "ssTreeZorvoBrendle")))
        session.key("Down")
        self.wait_for_page("Web page of class 312")

    def test_a_click_gives_the_page_the_keyboard_and_one_beside_takes_it_back(self):
        with open(session.folder + "/program/TreeData/HTML/CTRT.htm", "a", encoding="utf-8") as file:
            file.write('<form><input aria-label="Name" autocomplete="off"></form>')
        self.open()
        field = wait_for("the field", lambda: next((n for n in descendants(self.page()) if n.get_name() == "Name"), None))
        session.click(field)
        self.rest_mouse_beside()
        session.key("a", "b")
        wait_for("what was typed", lambda: (field.clear_cache(), self.text_of(field))[1] == "ab")
        session.click(self.tree_item("Construction Contractors"))
        session.key("Down")
        self.wait_for_page("Agricultural Cooperatives")

    def text_of(self, accessible):
        return Atspi.Text.get_text(accessible.get_text_iface(), 0, -1)

    def rest_mouse_beside(self):
        place = control(self.window, "chkUseBrowser").get_extents(Atspi.CoordType.SCREEN)
        subprocess.run(["xdotool", "mousemove", str(place.x + 2 * place.width), str(place.y)], env=session.env,
                       check=True)

    def test_behind_the_last_link_comes_the_next_control(self):
        self.open()
        before = None
        for _ in range(12):
            session.key("Tab")
            before = wait_for("the keyboard to go on", lambda: self.other_place_of_the_keyboard(before))
            if before == "chkConnectToWeb":
                break
        self.assertEqual(before, "chkConnectToWeb")
        session.key("space")
        self.wait_for_page("Web page of class 311")

    def test_keys_go_to_the_tree_though_the_mouse_rests_on_the_page(self):
        self.open()
        place = control(self.window, "webZorvoBrendle").get_extents(Atspi.CoordType.SCREEN)
        subprocess.run(["xdotool", "mousemove", str(place.x + 50), str(place.y + 250)], env=session.env, check=True)
        session.key("Down")
        self.wait_for_page("Agricultural Cooperatives")

    def test_a_click_into_the_page_doesnt_show_it_anew(self):
        self.open()
        session.click(self.link("Audit Engagements"))
        self.wait_for_page("Audit Engagements")
        session.click(control(self.window, "chkUseBrowser"))  # disabled: the form alone takes the click
        time.sleep(1)
        self.wait_for_page("Audit Engagements")

    def focused_link(self):
        for node in descendants(self.page()):
            node.clear_cache()
            if node.get_role() == Atspi.Role.LINK and node.get_state_set().contains(Atspi.StateType.FOCUSED):
                return node.get_name()
        return None

    def other_place_of_the_keyboard(self, before):
        """The link or the control behind the page that has the keyboard; None while that is still `before`."""
        behind = self.has_focus(control(self.window, "chkConnectToWeb"))
        at = "chkConnectToWeb" if behind else self.focused_link()
        return at if at != before else None

    def has_focus(self, accessible):
        for node in descendants(accessible):
            node.clear_cache()
            if node.get_state_set().contains(Atspi.StateType.FOCUSED):
                return True
        return False


if __name__ == "__main__":
    unittest.main(verbosity=2)
