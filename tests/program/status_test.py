#!/usr/bin/python3
"""What the catalogue operations answer on the sample products, asked by the `brendle` command on a private bus.

    status_test.py SOURCE BUILD
"""

import os
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

SOURCE, BUILD = Path(sys.argv[1]), Path(sys.argv[2])
EXPECTED = SOURCE / "tests" / "program" / "expected"
PROGRAM = BUILD / "program"
BRENDLE = str(BUILD / "bin" / "brendle")
SECONDS = 60


def expected(name):
    """The answer that a file of the folder expected/ stands for."""
    lines = (EXPECTED / name).read_text(encoding="utf-8").splitlines()
    return "".join(line.strip() for line in lines).replace("@PROGRAM@", "Z:" + str(PROGRAM).replace("/", "\\"))


class Status(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        home = cls.folder.name
        os.mkdir(f"{home}/run", 0o700)
        cls.environment = {
            **os.environ,
            "HOME": home,
            "XDG_CONFIG_HOME": f"{home}/config",
            "XDG_DATA_HOME": f"{home}/data",
            "XDG_RUNTIME_DIR": f"{home}/run",
            "XDG_DATA_DIRS": f"{BUILD}/share:/usr/local/share:/usr/share",
            "ZORVOBRENDLE_MACHINE_DIR": f"{home}/machine",
            "QT_QPA_PLATFORM": "offscreen",
        }
        cls.environment.pop("DBUS_SESSION_BUS_ADDRESS", None)
        cls.brendle("registry", "import", str(PROGRAM / "sample.reg"))

    @classmethod
    def tearDownClass(cls):
        cls.folder.cleanup()

    @classmethod
    def brendle(cls, *arguments):
        command = ["dbus-run-session", "--", BRENDLE, *arguments]
        result = subprocess.run(command, env=cls.environment, capture_output=True, text=True, timeout=SECONDS)
        if result.returncode != 0:
            raise AssertionError(f"{arguments}: exit code {result.returncode}\n{result.stderr}")
        return result.stdout

    def assert_answers(self, name, *arguments):
        answer = self.brendle(*arguments)
        self.assertTrue(answer.endswith("\n"))
        # Element by element, so that a difference can be read.
        self.assertEqual(expected(name).replace("><", ">\n<"), answer[:-1].replace("><", ">\n<"))

    def test_installed_products(self):
        self.assert_answers("status.xml", "status")

    def test_installed_products_of_tessora(self):
        self.assert_answers("status-tessora.xml", "status", "--tessora")

    def test_all_offerings(self):
        self.assert_answers("status-all.xml", "status", "--all")

    def test_all_offerings_whatever_the_other_flag_says(self):
        self.assert_answers("status-all.xml", "status", "--all", "--tessora")

    def test_without_a_display_the_reason_is_told(self):
        environment = {name: value for name, value in self.environment.items()
                       if name not in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XDG_SESSION_TYPE")}
        for command, told in ((["dbus-run-session", "--", BRENDLE, "status"], "Error 429 - There is no display: "),
                              ([f"{BUILD}/bin/zorvobrendle"], "zorvobrendle: there is no display: ")):
            result = subprocess.run(command, env=environment, capture_output=True, text=True, timeout=SECONDS)
            self.assertEqual(result.returncode, 1, result.stderr)
            self.assertEqual(result.stdout, "")
            self.assertIn(told + "neither DISPLAY nor WAYLAND_DISPLAY is set", result.stderr)

    def test_tree_order_is_the_newest_copy(self):
        self.assert_answers("treeorder.txt", "treeorder")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
