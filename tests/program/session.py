"""A whole session for tests of the real programs: a home of its own, a virtual display with a window manager, a session
bus that knows the programs of a build tree, and the accessibility bus to read and press what a person would."""

import atexit
import os
import re
import shutil
import subprocess
import tempfile
import time
import unittest

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402

SOURCE = os.environ["ZORVO_SOURCE"]
BUILD = os.environ["ZORVO_BUILD"]

BUS_CONFIG = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig><type>session</type><listen>unix:dir={folder}</listen><standard_session_servicedirs/>
<policy context="default"><allow send_destination="*" eavesdrop="true"/><allow eavesdrop="true"/>
<allow own="*"/></policy></busconfig>"""


# How long a test waits for what must come: other tests run beside it, perhaps on a slow machine.
PATIENCE = 60


def wait_for(what, condition, seconds=PATIENCE):
    """Asks until the answer is true and gives it; fails with `what` after that many seconds."""
    end = time.monotonic() + seconds
    pause = 0.005
    while True:
        try:
            answer = condition()
        except gi.repository.GLib.Error:  # an accessible that has just gone
            answer = None
        if answer:
            return answer
        if time.monotonic() > end:
            raise AssertionError("waited %.0f s in vain for %s" % (seconds, what))
        time.sleep(pause)
        pause = min(2 * pause, 0.05)


class Session:
    """Display and bus live for all tests of a file, since the accessibility library connects once in a process; the
    home is made anew for each test by `new_home`."""

    def __init__(self):
        self.folder = tempfile.mkdtemp(prefix="zb-")
        self.processes = []
        self.env = {k: v for k, v in os.environ.items() if not k.startswith(("XDG_", "ZORVOBRENDLE_", "DBUS_"))}
        self.env.update(
            LC_ALL="C.UTF-8", QT_QPA_PLATFORM="xcb", QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", QT_ACCESSIBILITY="1",
            NO_AT_BRIDGE="0", XDG_RUNTIME_DIR=self.folder + "/run", XDG_DATA_DIRS=BUILD + "/share:/usr/share",
            PATH=BUILD + "/bin:" + os.environ["PATH"])
        self.env.pop("WAYLAND_DISPLAY", None)
        if os.geteuid() == 0:  # the browser engine's sandbox doesn't work for root
            self.env["QTWEBENGINE_DISABLE_SANDBOX"] = "1"
        os.makedirs(self.folder + "/run", mode=0o700)
        self._start_display()
        self._start_bus()

    def _start_display(self):
        read, write = os.pipe()
        self._start(["Xvfb", "-displayfd", str(write), "-screen", "0", "1280x800x24", "-nolisten", "tcp", "-noreset"],
                    pass_fds=[write])
        os.close(write)
        with os.fdopen(read) as number:
            self.env["DISPLAY"] = ":" + number.readline().strip()
        self._start(["openbox"])
        wait_for("the window manager", lambda: "window id" in subprocess.run(
            ["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"], env=self.env, capture_output=True, text=True).stdout)

    def _start_bus(self):
        config = self.folder + "/bus.conf"
        with open(config, "w", encoding="utf-8") as file:
            file.write(BUS_CONFIG.format(folder=self.folder))
        # The environment of the bus is what the services that it starts inherit: it stands in the folder of the home.
        self.home = self.folder + "/home"
        self.env.update(HOME=self.home, XDG_CONFIG_HOME=self.home + "/config", XDG_DATA_HOME=self.home + "/data",
                        XDG_CACHE_HOME=self.home + "/cache", ZORVOBRENDLE_MACHINE_DIR=self.home + "/machine",
                        ZORVOBRENDLE_UI_IDS="1")
        self.new_home()
        bus = self._start(["dbus-daemon", "--config-file=" + config, "--print-address", "--nofork"],
                          stdout=subprocess.PIPE)
        self.env["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().decode().strip()
        os.environ.update(self.env)
        Atspi.init()
        # A program that has no processor for a while isn't a dead one.
        Atspi.set_timeout(PATIENCE * 1000, PATIENCE * 1000)

    def _start(self, command, **options):
        options.setdefault("stdout", subprocess.DEVNULL)
        process = subprocess.Popen(command, env=self.env, stderr=subprocess.DEVNULL, **options)
        self.processes.append(process)
        return process

    def new_home(self, splash=False):
        shutil.rmtree(self.home, ignore_errors=True)
        fresh = self.folder + "/fresh"
        if not os.path.exists(fresh):
            self._make_home()
            os.rename(self.home, fresh)
        shutil.copytree(fresh, self.home, symlinks=True)
        if not splash:
            self.brendle("setting", "set", "DisplaySplash", "False")

    def _make_home(self):
        for name in ("config", "data", "cache", "machine", "Documents"):
            os.makedirs(os.path.join(self.home, name))
        with open(self.home + "/config/user-dirs.dirs", "w", encoding="utf-8") as file:
            file.write('XDG_DOCUMENTS_DIR="$HOME/Documents"\n')
        self.brendle("registry", "import", BUILD + "/program/sample.reg")

    def end(self):
        self.end_program()
        for process in reversed(self.processes):
            process.terminate()
            process.wait(PATIENCE)
            if process.stdout:
                process.stdout.close()
        shutil.rmtree(self.folder, ignore_errors=True)

    # The command

    def brendle(self, *arguments, check=True, env=None):
        """Runs `brendle` to its end and gives the finished process with its output as text."""
        result = subprocess.run(["brendle", *arguments], env={**self.env, **(env or {})}, capture_output=True,
                                text=True, encoding="utf-8", timeout=PATIENCE)
        if check and result.returncode != 0:
            raise AssertionError("brendle %s: %d %s" % (" ".join(arguments), result.returncode, result.stderr))
        return result

    def start_brendle(self, *arguments):
        return subprocess.Popen(["brendle", *arguments], env=self.env, stdout=subprocess.PIPE,
                                stderr=subprocess.PIPE, text=True)

    def setting(self, key):
        result = self.brendle("setting", "get", key, check=False)
        return result.stdout.rstrip("\n") if result.returncode == 0 else None

    # The process

    def owner(self, name="com.zorvo.TSelector"):
        """Process id of the owner of a bus name, or None."""
        result = subprocess.run(
            ["dbus-send", "--session", "--print-reply=literal", "--dest=org.freedesktop.DBus", "/",
             "org.freedesktop.DBus.GetConnectionUnixProcessID", "string:" + name],
            env=self.env, capture_output=True, text=True)
        return int(result.stdout.split()[-1]) if result.returncode == 0 else None

    def wait_for_end(self):
        wait_for("the end of the program", lambda: self.owner() is None)

    def end_program(self):
        process = self.owner()
        if process:
            os.kill(process, 15)
            wait_for("the killed program to go", lambda: self.owner() is None)

    # The office suite

    def offices(self, private):
        """Process ids of this session's offices: the program's own one, whose settings lie in its cache, or the user's."""
        found = []
        for process in subprocess.run(["pgrep", "-f", "soffice.bin"], capture_output=True, text=True).stdout.split():
            try:
                with open("/proc/%s/environ" % process, "rb") as file:
                    here = ("HOME=" + self.home).encode() in file.read().split(b"\0")
                with open("/proc/%s/cmdline" % process, "rb") as file:
                    own = b"zorvobrendle/office" in file.read()
            except OSError:
                continue
            if here and own == private:
                found.append(int(process))
        return found

    def end_offices(self):
        for process in self.offices(private=True) + self.offices(private=False):
            try:
                os.kill(process, 9)
            except ProcessLookupError:
                pass
        # One that is still going would write into the next test's home.
        wait_for("the offices to go", lambda: not self.offices(private=True) + self.offices(private=False))

    def office_windows(self):
        """Titles of its windows that can be seen."""
        found = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", "LibreOffice"], env=self.env,
                               capture_output=True, text=True).stdout.split()
        return [subprocess.run(["xdotool", "getwindowname", window], env=self.env, capture_output=True,
                               text=True).stdout.strip() for window in found]

    # The screen

    def type(self, text):
        subprocess.run(["xdotool", "type", "--delay", "40", text], env=self.env, check=True)

    def place(self, window):
        """Where the client area is on the screen: left, top, width, height."""
        window.clear_cache()
        area = window.get_component_iface().get_extents(Atspi.CoordType.SCREEN)
        return area.x, area.y, area.width, area.height

    def stacking(self):
        """Titles of the windows from the lowest to the one in front."""
        ids = subprocess.run(["xprop", "-root", "_NET_CLIENT_LIST_STACKING"], env=self.env, capture_output=True,
                             text=True).stdout.split("#")[-1].split(",")
        titles = []
        for each in ids:
            out = subprocess.run(["xprop", "-id", each.strip(), "_NET_WM_NAME"], env=self.env, capture_output=True,
                                 text=True).stdout
            titles.append(out.split("=", 1)[-1].strip().strip('"'))
        return titles

    def window_states(self, title):
        """Of all windows with that in their title, joined."""
        ids = subprocess.run(["xdotool", "search", "--name", title], env=self.env, capture_output=True,
                             text=True).stdout.split()
        return "".join(subprocess.run(["xprop", "-id", each, "_NET_WM_STATE"], env=self.env, capture_output=True,
                                      text=True).stdout for each in ids)

    def window_class(self, title):
        """The two names by which the desktop finds the launcher of the window of that title."""
        # The server shows it a little later than an assistive program is told of it.
        ids = wait_for("a window %s" % title, lambda: subprocess.run(
            ["xdotool", "search", "--onlyvisible", "--name", title], env=self.env, capture_output=True, text=True,
            check=False).stdout.split())
        return [subprocess.run(["xprop", "-notype", "-id", each, "WM_CLASS"], env=self.env, capture_output=True,
                               text=True, check=True).stdout.strip() for each in ids]

    def active(self):
        """The active window's id, once the window manager has told it: a program may know before."""
        def told():
            result = subprocess.run(["xdotool", "getactivewindow"], env=self.env, capture_output=True, text=True)
            return result.stdout.strip() if result.returncode == 0 and result.stdout.strip() != "0" else None
        return wait_for("an active window", told)

    def move(self, window, left, top, width, height):
        """The active window, by its window manager; until it is there."""
        active = self.active()
        subprocess.run(["xdotool", "windowsize", "--sync", active, str(width), str(height)], env=self.env, check=True)
        subprocess.run(["xdotool", "windowmove", active, str(left), str(top)], env=self.env, check=True)
        wait_for("the new place", lambda: self.place(window) == (left, top, width, height))

    def minimise(self):
        """The active window, by its window manager."""
        window = self.active()
        subprocess.run(["xdotool", "windowminimize", "--sync", window], env=self.env, check=True)

    def owner_window(self):
        """Title of the window that the active one stands above, or None."""
        window = self.active()
        owner = re.search(r"0x[0-9a-f]+", subprocess.run(["xprop", "-id", window, "WM_TRANSIENT_FOR"], env=self.env,
                                                         capture_output=True, text=True).stdout)
        return owner and subprocess.run(["xdotool", "getwindowname", str(int(owner[0], 16))], env=self.env,
                                        capture_output=True, text=True).stdout.strip()

    def key(self, *keys):
        for key in keys:
            subprocess.run(["xdotool", "key", "--delay", "40", key], env=self.env, check=True)
            time.sleep(0.08)

    def tap(self, key):
        """One key as fast as it goes, for a caller who then waits for what it does."""
        subprocess.run(["xdotool", "key", "--delay", "0", key], env=self.env, check=True)

    def click(self, accessible):
        """With the mouse. A tool that brings up a dialog answers an assistive program only when that has gone."""
        place = accessible.get_extents(Atspi.CoordType.SCREEN)
        subprocess.run(["xdotool", "mousemove", str(place.x + place.width // 2), str(place.y + place.height // 2),
                        "click", "1"], env=self.env, check=True)

    def screenshot(self, name):
        folder = BUILD + "/test-screenshots"
        os.makedirs(folder, exist_ok=True)
        subprocess.run(["scrot", "--overwrite", "%s/%s.png" % (folder, name)], env=self.env, check=False)

    def application(self):
        desktop = Atspi.get_desktop(0)
        for i in range(desktop.get_child_count()):
            child = desktop.get_child_at_index(i)
            if child and child.get_process_id() == self.owner():
                child.clear_cache()
                return child
        return None

    def window(self, form, seconds=PATIENCE):
        """The showing window of a form's name."""
        def find():
            application = self.application()
            for i in range(application.get_child_count() if application else 0):
                window = application.get_child_at_index(i)
                if window and window.get_description() == "#" + form and showing(window):
                    return window
            return None
        return wait_for("the window " + form, find, seconds)

    def active_window(self, form):
        """The same once it has the keyboard and takes keys: while work is under way a form can't even be closed."""
        window = self.window(form)

        def is_ready():
            window.clear_cache()
            states = window.get_state_set()
            return states.contains(Atspi.StateType.ACTIVE) and states.contains(Atspi.StateType.ENABLED)
        wait_for("the keyboard to reach " + form, is_ready)
        return window

    def has_window(self, form):
        application = self.application()
        for i in range(application.get_child_count() if application else 0):
            window = application.get_child_at_index(i)
            if window and window.get_description() == "#" + form and showing(window):
                return True
        return False

    def box(self, seconds=PATIENCE):
        """The message box, once it has the keyboard."""
        def find():
            application = self.application()
            for i in range(application.get_child_count() if application else 0):
                window = application.get_child_at_index(i)
                if window and showing(window) and window.get_role() in (Atspi.Role.ALERT, Atspi.Role.DIALOG) \
                        and not window.get_description().startswith("#frm") \
                        and has_state(window, Atspi.StateType.ACTIVE):
                    return window
            return None
        return wait_for("a message box", find, seconds)


def showing(accessible):
    return accessible.get_state_set().contains(Atspi.StateType.SHOWING)


def has_state(accessible, state):
    """As it is now, whatever was read before."""
    accessible.clear_cache()
    return accessible.get_state_set().contains(state)


def descendants(accessible, limit=4000):
    stack = [accessible]
    while stack and limit:
        limit -= 1
        node = stack.pop()
        if node is None:
            continue
        yield node
        for i in reversed(range(node.get_child_count())):
            stack.append(node.get_child_at_index(i))


def control(window, name):
    """The control of that object name."""
    for node in descendants(window):
        if node.get_description() == "#" + name:
            return node
    raise AssertionError("no control " + name)


def names(window, role):
    return [node.get_name() for node in descendants(window) if node.get_role() == role]


def enabled(accessible):
    accessible.clear_cache()
    return accessible.get_state_set().contains(Atspi.StateType.ENABLED)


def press(accessible):
    """The first action that presses it, as an assistive program would, once it can be pressed."""
    wait_for("%s to be enabled" % accessible.get_name(), lambda: enabled(accessible))
    for i in range(accessible.get_n_actions()):
        if accessible.get_action_name(i).lower() in ("press", "toggle", "click"):
            try:
                accessible.do_action(i)
            except gi.repository.GLib.Error:  # what was pressed ended the program before the answer
                pass
            return
    raise AssertionError("nothing to press on " + accessible.get_name())


# One for the file that imports it: the accessibility library connects once in a process.
session = Session()
atexit.register(session.end)


class ProgramTest(unittest.TestCase):
    """A test of the real programs: it begins with a new home and none of them running, and leaves none. What the screen
    shows when it fails is kept."""

    def setUp(self):
        session.end_program()
        session.new_home()

    def tearDown(self):
        # Of its own `success` a test knows nothing here: it is set anew for the tearDown.
        result = self._outcome.result
        if any(test is self for test, _ in result.errors + result.failures):
            session.screenshot(self.id())
        session.end_program()
        session.end_offices()
