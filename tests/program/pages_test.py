"""The page process by itself: what it shows, where a page may lead, and how it ends. The test speaks the program's part."""

import http.server
import os
import shutil
import signal
import socketserver
import subprocess
import sys
import tempfile
import threading
import time
import unittest

sys.path.insert(0, os.path.dirname(__file__))
from session import PATIENCE, session, wait_for  # noqa: E402

PAGES = {
    "/": "<a href='/next'>next</a>",
    "/next": "next",
    "/meta": "<meta http-equiv=refresh content='0;url=/meta?{n}'>",
    "/script": "<script>location = '/script?{n}'</script>",
    "/links": "<script>var a = document.createElement('a'); a.href = '/links?{n}'; document.body.append(a);"
              "a.click()</script>",
    "/to-file": "<script>location = 'file:///etc/passwd'</script>",
    "/to-page": "<script>location = 'page://f1/own.htm'</script>",
    "/to-data": "<script>location = 'data:text/html,x'</script>",
    "/window": "<script>window.open('/next')</script>",
    "/boxes": "<script>alert(1); confirm(2); prompt(3); location = '/next'</script>",
    "/slow-picture": "<img src=/hang>text",
    "/reads": "<img src='file://{secret}' onerror=\"location='/cannot'\" onload=\"location='/can'\">",
    "/reads-page": "<img src='page://f1/dot.svg' onerror=\"location='/cannot'\" onload=\"location='/can'\">",
    "/can": "x",
    "/cannot": "x",
}


class Site(http.server.BaseHTTPRequestHandler):
    """A web site on this machine alone."""
    protocol_version = "HTTP/1.1"
    asked = []
    secret = ""
    released = threading.Event()

    def log_message(self, *_):
        pass

    def do_GET(self):
        path = self.path.split("?")[0]
        if path == "/favicon.ico":
            return self.answer(404, "")
        Site.asked.append(self.path)
        number = len(Site.asked)
        if path == "/loop":
            return self.answer(302, "", {"Location": "/loop?%d" % number})
        if path == "/hang":
            Site.released.wait(60)
            return None
        if path == "/saved":
            return self.answer(200, "abc", {"Content-Type": "application/octet-stream",
                                            "Content-Disposition": "attachment"})
        if path in PAGES:
            text = PAGES[path].replace("{n}", str(number)).replace("{secret}", Site.secret)
            return self.answer(200, "<!DOCTYPE html><body>" + text)
        return self.answer(404, "not here")

    def answer(self, status, text, headers=None):
        data = text.encode()
        self.send_response(status)
        for name, value in {"Content-Type": "text/html", "Content-Length": str(len(data)), **(headers or {})}.items():
            self.send_header(name, value)
        self.end_headers()
        self.wfile.write(data)


class Server(socketserver.ThreadingMixIn, http.server.HTTPServer):
    daemon_threads = True


class PageProcess:
    def __init__(self):
        self.process = subprocess.Popen(["zorvo-page"], env=session.env, stdin=subprocess.PIPE,
                                        stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        self.number = 0
        self.lines = []
        threading.Thread(target=self._read, daemon=True).start()
        wait_for("the process to say hello", lambda: self.lines)
        self.say("show-in 0")

    def _read(self):
        for line in self.process.stdout:
            self.lines.append(line.rstrip("\n"))

    def say(self, line):
        self.process.stdin.write(line + "\n")
        self.process.stdin.flush()

    def navigate(self, address):
        """Asks for a page and gives what is told of it first."""
        self.ask(address)
        return self.told()[0]

    def ask(self, address):
        self.number += 1
        self.say("navigate %d %s" % (self.number, address))

    def told(self, count=1):
        """What is told of the page asked for last, once there is so much of it."""
        def find():
            found = [line.replace(" %d " % self.number, " ", 1).strip() for line in self.lines
                     if not line.startswith("hello") and line.split(" ")[1:2] == [str(self.number)]]
            return found if len(found) >= count else None
        return wait_for("%d lines on page %d of %s" % (count, self.number, self.lines), find)

    def end(self):
        self.process.stdin.close()
        self.process.wait(PATIENCE)
        self.process.stdout.close()


def setUpModule():
    global site, server
    server = Server(("127.0.0.1", 0), Site)
    threading.Thread(target=server.serve_forever, daemon=True).start()
    site = "http://127.0.0.1:%d" % server.server_address[1]


def tearDownModule():
    Site.released.set()
    server.shutdown()
    server.server_close()


class PageTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.page = PageProcess()

    @classmethod
    def tearDownClass(cls):
        cls.page.end()

    def setUp(self):
        Site.asked.clear()
        self.folder = tempfile.mkdtemp(prefix="zb-pages-")
        self.addCleanup(shutil.rmtree, self.folder)
        os.makedirs(self.folder + "/HTML/below")
        self.write("secret.txt", "secret")
        Site.secret = self.folder + "/secret.txt"

    def write(self, name, text):
        path = os.path.join(self.folder, name)
        with open(path, "w", encoding="utf-8") as file:
            file.write(text)
        return "file://" + path

    def scripted(self, script, name="HTML/own.htm"):
        """An offline page that runs a script and then reports through a web address."""
        return self.write(name, "<!DOCTYPE html><meta charset=utf-8><body><script>%s</script>" % script)

    def reported(self, script):
        """What the script of an offline page gives to `say`: the page that it then goes to."""
        for name in ("seen", "unseen", "read", "unread"):
            self.write("HTML/%s.htm" % name, name)
        self.page.ask(self.scripted("function say(x) { location = x + '.htm' }\n" + script))
        wait_for("the page's report", lambda: "own.htm" not in self.page.told()[-1])
        return os.path.basename(self.page.told()[-1]).removesuffix(".htm")


class Addresses(PageTest):
    def test_a_page_of_the_machine(self):
        address = self.write("HTML/own.htm", "hello")
        self.assertEqual(self.page.navigate(address), "finished " + address)

    def test_a_web_page(self):
        self.assertEqual(self.page.navigate(site + "/"), "finished " + site + "/")

    def test_a_missing_page(self):
        address = "file://" + self.folder + "/HTML/none.htm"
        self.assertEqual(self.page.navigate(address), "failed " + address)

    def test_nobody_listens(self):
        self.assertEqual(self.page.navigate("http://127.0.0.1:1/"), "failed http://127.0.0.1:1/")

    def test_a_name_that_nobody_has(self):
        self.assertEqual(self.page.navigate("http://nowhere.invalid/"), "failed http://nowhere.invalid/")

    def test_a_page_that_the_site_doesnt_have(self):
        self.assertEqual(self.page.navigate(site + "/none"), "failed " + site + "/none")

    def test_other_schemes(self):
        for address in ("ftp://127.0.0.1/", "chrome://gpu", "view-source:" + site + "/", "data:text/html,x",
                        "javascript:1", "page://f1/own.htm", "nonsense"):
            self.assertTrue(self.page.navigate(address).startswith("failed "), address)

    def test_something_to_be_saved_is_no_page(self):
        self.assertEqual(self.page.navigate(site + "/saved"), "stopped")

    def test_the_last_of_quick_requests_counts_and_is_told_once(self):
        addresses = [self.write("HTML/%d.htm" % n, "page %d" % n) for n in range(8)]
        for address in addresses:
            self.page.ask(address)
        self.assertEqual(self.page.told(), ["finished " + addresses[-1]])
        time.sleep(1)
        self.assertEqual(self.page.told(), ["finished " + addresses[-1]])

    def test_one_that_takes_over_from_a_page_under_way_is_told_before_that_would_be_given_up(self):
        address = self.write("HTML/own.htm", "hello")
        beside = PageProcess()
        self.addCleanup(beside.end)
        for page in (beside, self.page):
            asked = len(Site.asked)
            page.ask(site + "/hang")
            wait_for("the request", lambda: len(Site.asked) > asked)
        self.assertEqual(self.page.navigate(address), "finished " + address)
        self.assertFalse([line for line in beside.lines if not line.startswith(("hello", "focus"))],
                         "the other one waits still")

    def test_the_same_page_twice_in_a_row_is_told_once(self):
        self.page.ask(site + "/slow-picture")
        self.page.ask(site + "/")
        self.page.ask(site + "/")
        self.assertEqual(self.page.told(), ["finished " + site + "/"])
        time.sleep(1)
        self.assertEqual(len(self.page.told()), 1)


class Time(PageTest):
    def test_a_server_that_never_answers_is_given_up_within_ten_seconds(self):
        start = time.monotonic()
        self.assertEqual(self.page.navigate(site + "/hang"), "failed " + site + "/hang")
        self.assertLess(time.monotonic() - start, 20, "ten seconds, and a slow machine's time")

    def test_nor_is_it_taken_for_shown_when_it_is_the_first_page_of_all(self):
        page = PageProcess()
        self.addCleanup(page.end)
        self.assertEqual(page.navigate(site + "/hang"), "failed " + site + "/hang")

    def test_a_page_doesnt_wait_for_ever_for_a_picture(self):
        self.assertEqual(self.page.navigate(site + "/slow-picture"), "finished " + site + "/slow-picture")


class Redirections(PageTest):
    def ends(self, path):
        """The site hears no more of it after a while."""
        self.page.ask(site + path)
        lines = wait_for("the end", lambda: [line for line in self.page.told() if line.startswith("failed")])
        self.assertTrue(lines[0].startswith("failed " + site + path), lines)
        asked = len(Site.asked)
        self.assertLessEqual(asked, 25)
        time.sleep(1)
        self.assertEqual(len(Site.asked), asked)

    def test_of_the_server_end(self):
        self.ends("/loop")

    def test_of_a_refresh_end(self):
        self.ends("/meta")

    def test_of_a_script_end(self):
        self.ends("/script")

    def test_of_links_that_press_themselves_end(self):
        self.ends("/links")


class Walls(PageTest):
    def test_a_web_page_leads_to_no_file_no_offline_page_and_no_text_of_its_own(self):
        self.page.navigate(self.write("HTML/own.htm", "own"))
        for path in ("/to-file", "/to-page", "/to-data"):
            self.assertEqual(self.page.navigate(site + path), "finished " + site + path)
            time.sleep(0.5)
            self.assertEqual(len(self.page.told()), 1, path)

    def test_a_web_page_sees_no_file_and_no_offline_page(self):
        self.write("HTML/dot.svg", "<svg xmlns='http://www.w3.org/2000/svg'/>")
        self.page.navigate(self.write("HTML/own.htm", "own"))
        for path in ("/reads", "/reads-page"):
            Site.asked.clear()
            self.page.ask(site + path)
            wait_for("an answer", lambda: "/can" in Site.asked or "/cannot" in Site.asked)
            self.assertIn("/cannot", Site.asked)

    def test_an_offline_page_leads_within_its_folder(self):
        self.write("HTML/below/other.htm", "other")
        self.page.ask(self.scripted("location = 'below/other.htm'"))
        wait_for("the other page", lambda: self.page.told()[-1] == "finished file://%s/HTML/below/other.htm"
                 % self.folder)
        self.assertNotIn("stopped", self.page.told())

    def test_an_offline_page_leads_to_no_file_outside(self):
        for target in ("file://%s/secret.txt" % self.folder, "../secret.txt", "/etc/passwd", "..%2fsecret.txt",
                       "%2e%2e/secret.txt", "page://f2/x.htm"):
            self.page.ask(self.scripted("setTimeout(() => location = '%s', 200)" % target))
            self.page.told()
            time.sleep(1)
            for line in self.page.told():
                own = line == "finished file://%s/HTML/own.htm" % self.folder
                self.assertTrue(own or line == "stopped" or line.startswith("failed "), (target, line))

    def test_an_offline_page_shows_pictures_of_its_folder_whatever_their_case(self):
        self.write("HTML/below/Dot.SVG", "<svg xmlns='http://www.w3.org/2000/svg' width='1' height='1'/>")
        self.assertEqual(self.reported("var i = new Image(); i.onload = () => say('seen');"
                                       "i.onerror = () => say('unseen'); i.src = 'BELOW\\\\dot.svg'"), "seen")

    def test_an_offline_page_reads_no_file_outside(self):
        os.symlink(self.folder + "/secret.txt", self.folder + "/HTML/link.svg")
        self.write("secret.svg", "<svg xmlns='http://www.w3.org/2000/svg' width='1' height='1'/>")
        os.symlink(self.folder + "/secret.svg", self.folder + "/HTML/picture.svg")
        for target in ("file://%s/secret.svg" % self.folder, "../secret.svg", "picture.svg", "..%2fsecret.svg"):
            Site.asked.clear()
            self.assertEqual(self.reported("var i = new Image(); i.onload = () => say('seen');"
                                           "i.onerror = () => say('unseen'); i.src = '%s'" % target), "unseen", target)
        for target in ("file://%s/secret.txt" % self.folder, "../secret.txt", "link.svg"):
            Site.asked.clear()
            self.assertEqual(self.reported("fetch('%s').then(r => r.text()).then(t => say('read'), () => "
                                           "say('unread'))" % target), "unread", target)

    def test_no_script_opens_a_window_or_a_box(self):
        self.page.navigate(site + "/window")
        time.sleep(0.5)
        self.assertNotIn("/next", Site.asked)
        self.page.ask(site + "/boxes")
        wait_for("the script to go on", lambda: "/next" in Site.asked)

    def test_what_a_page_writes_is_no_message(self):
        self.page.ask(self.scripted("console.log('\\nfinished 99 http://forged/'); document.title = '\\nleave next'"))
        self.page.told()
        time.sleep(0.5)
        self.assertFalse([line for line in self.page.lines if "forged" in line or line.startswith("leave")])


class End(unittest.TestCase):
    def test_it_says_hello_with_its_version_first(self):
        page = PageProcess()
        self.assertEqual(page.lines[0], "hello 1")
        page.end()

    def test_it_ends_with_its_input(self):
        page = PageProcess()
        page.navigate(site + "/")
        page.end()
        self.assertEqual(page.process.returncode, 0)

    def test_a_crash_of_the_page_ends_it(self):
        page = PageProcess()
        page.navigate(site + "/")
        children = subprocess.run(["pgrep", "--parent", str(page.process.pid)], capture_output=True, text=True)
        below = children.stdout.split()
        for child in list(below):
            below += subprocess.run(["pgrep", "--parent", child], capture_output=True, text=True).stdout.split()
        for child in below:
            with open("/proc/%s/cmdline" % child, "rb") as file:
                if b"--type=renderer" in file.read():
                    os.kill(int(child), signal.SIGKILL)
        self.assertEqual(page.process.wait(PATIENCE), 1)
        page.end()

    def test_nonsense_is_passed_over(self):
        page = PageProcess()
        for line in ("", "size", "size a b", "size -1 -1", "size 99999999 5", "nonsense 1 2", "navigate",
                     "x" * 100000, "size 300 200"):
            page.say(line)
        self.assertEqual(page.navigate(site + "/"), "finished " + site + "/")
        page.end()


if __name__ == "__main__":
    unittest.main(verbosity=2)
