"""The program as it is installed, away from its build tree, on a bus that knows nothing but the installation.

    install_test.py BUILD
"""

import configparser
import os
import shutil
import subprocess
import sys
import tempfile
import unittest

BUILD = sys.argv.pop(1)
SECONDS = 120


class Installation(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.mkdtemp(prefix="zb-install-")
        cls.prefix = cls.folder + "/prefix"
        cls.share = cls.prefix + "/share"
        subprocess.run(["cmake", "--install", BUILD, "--prefix", cls.prefix], check=True, stdout=subprocess.DEVNULL)
        home = cls.folder + "/home"
        os.makedirs(cls.folder + "/run", 0o700)
        kept = {k: v for k, v in os.environ.items() if not k.startswith(("XDG_", "ZORVOBRENDLE_", "DBUS_"))}
        cls.env = {
            **kept,
            "HOME": home,
            "XDG_CONFIG_HOME": home + "/config",
            "XDG_DATA_HOME": home + "/data",
            "XDG_CACHE_HOME": home + "/cache",
            "XDG_RUNTIME_DIR": cls.folder + "/run",
            "XDG_DATA_DIRS": cls.share + ":/usr/share",
            "ZORVOBRENDLE_MACHINE_DIR": home + "/machine",
            "PATH": cls.prefix + "/bin:" + os.environ["PATH"],
            "QT_QPA_PLATFORM": "offscreen",
            "LC_ALL": "C.UTF-8",
        }
        cls.brendle("registry", "import", cls.share + "/zorvobrendle/sample.reg")

    @classmethod
    def tearDownClass(cls):
        shutil.rmtree(cls.folder)

    @classmethod
    def brendle(cls, *arguments):
        run = subprocess.run(["dbus-run-session", "--", "brendle", *arguments], env=cls.env, capture_output=True,
                             text=True, timeout=SECONDS)
        if run.returncode != 0:
            raise AssertionError("brendle %s: %d %s" % (" ".join(arguments), run.returncode, run.stderr))
        return run.stdout

    def test_its_bus_services_start_its_own_programs(self):
        services = os.listdir(self.share + "/dbus-1/services")
        self.assertEqual(sorted(services), ["com.zorvo.Companions.service", "com.zorvo.Help.service",
                                            "com.zorvo.TSelector.service"])
        for service in services:
            file = configparser.ConfigParser()
            file.read(self.share + "/dbus-1/services/" + service)
            self.assertEqual(file["D-BUS Service"]["Name"] + ".service", service)
            program = file["D-BUS Service"]["Exec"].strip('"')
            self.assertEqual(os.path.dirname(program), self.prefix + "/bin")
            self.assertTrue(os.access(program, os.X_OK), program)

    def test_the_products_are_registered_where_they_lie_now(self):
        status = self.brendle("status")
        self.assertIn("Z:" + self.share.replace("/", "\\") + "\\zorvobrendle\\Products\\AUDT\\2007\\", status)
        self.assertNotIn(BUILD.replace("/", "\\"), status)

    def test_it_makes_documents_with_its_own_templates_and_office_adaptor(self):
        made = self.brendle("create", "--to", self.folder + "/made", "AUDT/2007/Trial Balance")
        path = self.folder + "/made/TRIAL BALANCE.XLS"
        self.assertEqual(made, "Trial Balance -> %s\n" % path)
        with open(path, "rb") as document:
            self.assertEqual(document.read(4), b"\xd0\xcf\x11\xe0")

    def test_the_menu_entries_start_its_programs_and_have_icons(self):
        entries = os.listdir(self.share + "/applications")
        self.assertEqual(sorted(entries), ["com.zorvo.Help.desktop", "com.zorvo.TSelector.desktop"])
        for entry in entries:
            file = configparser.ConfigParser(interpolation=None)
            file.optionxform = str
            file.read(self.share + "/applications/" + entry)
            values = file["Desktop Entry"]
            self.assertTrue(os.access(self.prefix + "/bin/" + values["Exec"].split()[0], os.X_OK), entry)
            self.assertEqual(values["Icon"] + ".desktop", entry)
            icon = self.share + "/icons/hicolor/scalable/apps/" + values["Icon"] + ".svg"
            self.assertTrue(os.path.getsize(icon) > 0)


if __name__ == "__main__":
    unittest.main()
