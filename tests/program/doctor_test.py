"""`brendle doctor` on the sample products: it finds each planted fault and nothing else, and it changes nothing.

Every test has a home, a machine folder and a program folder of its own; the bus is a private one without a display.
"""

import hashlib
import json
import os
import re
import shutil
import sqlite3
import subprocess
import tempfile
import unittest

BUILD = os.environ["ZORVO_BUILD"]
PROGRAM = BUILD + "/program"
HKLM = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Zorvo\\"
CENTRAL = "TreeData/Zorvo Library.xml"


class DoctorTest(unittest.TestCase):
    def setUp(self):
        # Not below a folder that everybody may write to: a temporary folder there would be refused.
        self.folder = tempfile.mkdtemp(prefix="zb-doctor-")
        self.home = self.folder + "/home"
        self.program = self.folder + "/program"
        for name in ("config", "data", "machine", "run", "Documents"):
            os.makedirs(os.path.join(self.home, name), mode=0o700)
        with open(self.home + "/config/user-dirs.dirs", "w", encoding="utf-8") as file:
            file.write('XDG_DOCUMENTS_DIR="$HOME/Documents"\n')
        subprocess.run(["cp", "-r", PROGRAM, self.program], check=True)  # four times as quick as Python
        self.env = {k: v for k, v in os.environ.items() if not k.startswith(("XDG_", "ZORVOBRENDLE_", "DBUS_"))}
        self.env.update(
            LC_ALL="C.UTF-8", HOME=self.home, XDG_CONFIG_HOME=self.home + "/config", XDG_DATA_HOME=self.home + "/data",
            XDG_CACHE_HOME=self.home + "/cache", XDG_RUNTIME_DIR=self.home + "/run",
            XDG_DATA_DIRS=BUILD + "/share:/usr/share", ZORVOBRENDLE_MACHINE_DIR=self.home + "/machine",
            ZORVOBRENDLE_PROGRAM_DIR=self.program, PATH=BUILD + "/bin:" + os.environ["PATH"])
        self.brendle_program = BUILD + "/bin/brendle"
        with open(self.program + "/sample.reg", encoding="utf-8") as file:
            text = file.read()
        with open(self.folder + "/products.reg", "w", encoding="utf-8") as file:
            file.write(text.replace(PROGRAM.replace("/", "\\\\"), self.program.replace("/", "\\\\")))
        self.brendle("registry", "import", self.folder + "/products.reg")

    def tearDown(self):
        shutil.rmtree(self.folder)

    def brendle(self, *arguments):
        subprocess.run([BUILD + "/bin/brendle", *arguments], env=self.env, check=True, capture_output=True)

    def doctor(self, *arguments, bus=True):
        command = [self.brendle_program, "doctor", *arguments]
        if bus:
            command = ["dbus-run-session", "--", *command]
        result = subprocess.run(command, env=self.env, capture_output=True, text=True, encoding="utf-8", timeout=120)
        # The daemon's own words about the limits of a container aren't the command's.
        result.stderr = re.sub(r"(?m)^dbus-daemon\[.*\n", "", result.stderr)
        return result

    def faults(self, bus=True):
        """[(code, section, item, fault)] and checks what goes with having some, or none."""
        result = self.doctor("--json", bus=bus)
        report = json.loads(result.stdout)
        found = [(fault["code"], section, item["name"], fault)
                 for section, items in report.items() if isinstance(items, list)
                 for item in items for fault in item["faults"]]
        self.assertEqual(report["faults"], len(found))
        self.assertEqual(report["ok"], not found)
        self.assertEqual(result.returncode, 1 if found else 0, result.stderr)
        return found

    def assert_finds(self, code, times=1, file=None, line=None, text="", bus=True):
        found = self.faults(bus)
        self.assertEqual([fault[0] for fault in found], [code] * times, found)
        fault = found[0][3]
        if file is not None:
            self.assertEqual(fault["file"], file)
        if line is not None:
            self.assertEqual(fault["line"], line)
        self.assertIn(text, fault["text"])
        result = self.doctor(bus=bus)
        self.assertEqual(result.returncode, 1)
        for _, _, _, each in found:
            place = each.get("file", "") + (":%d" % each["line"] if "line" in each else "")
            self.assertIn("    ! " + each["text"] + (" (%s)" % place if place else ""), result.stdout)
        self.assertRegex(result.stderr, r"^\d+ things? (is|are) wrong\n$")

    # What is planted

    def path(self, name):
        return os.path.join(self.program, name)

    def text(self, name):
        with open(self.path(name), encoding="utf-8") as file:
            return file.read()

    def put(self, name, text):
        with open(self.path(name), "w", encoding="utf-8") as file:
            file.write(text)

    def replace(self, name, old, new, count=1):
        text = self.text(name)
        self.assertIn(old, text)
        self.put(name, text.replace(old, new, count))

    def line_of(self, name, piece):
        return self.text(name).split(piece)[0].count("\n") + 1

    def value(self, key, name, data, kind="REG_SZ"):
        self.brendle("registry", "set", key, name, data, "--type", kind)


class Healthy(DoctorTest):
    def test_nothing_is_wrong_with_the_samples(self):
        self.assertEqual(self.faults(), [])
        result = self.doctor()
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertTrue(result.stdout.endswith("\nNothing is wrong.\n"))

    def test_nothing_is_wrong_after_the_first_use(self):
        self.env["QT_QPA_PLATFORM"] = "offscreen"
        subprocess.run(["dbus-run-session", "--", "brendle", "status"], env=self.env, check=True, capture_output=True)
        for key, value in (("DisplaySplash", "False"), ("OTRMainState", "2"), ("MainLeft", "-120"),
                           ("DocumentFolder", self.home + "/Documents")):
            self.brendle("setting", "set", key, value)
        self.assertEqual(self.faults(), [])

    def test_it_tells_what_there_is(self):
        report = json.loads(self.doctor("--json").stdout)
        programs = {item["name"]: item for item in report["programs"]}
        self.assertEqual(programs["brendle"]["path"], BUILD + "/bin/brendle")
        self.assertRegex(programs["brendle"]["version"], r"^\d+\.\d+\.0\.\d+$")
        self.assertRegex(programs["LibreOffice Writer"]["version"], r"^\d+\.\d+$")
        self.assertRegex(programs["session bus"]["version"], r"^\d+\.\d+")
        folders = {item["name"]: item for item in report["folders"]}
        self.assertEqual(folders["documents"]["path"], self.home + "/Documents")
        self.assertTrue(folders["documents"]["writable"])
        products = {item["name"]: item for item in report["products"]}
        audit = products["Tessora\\AUDT 2007"]
        self.assertEqual((audit["title"], audit["hive"], audit["installed"]), ("Audit Engagements", "machine", True))
        self.assertEqual(audit["folder"].rstrip("/"), self.path("Products/AUDT/2007"))
        self.assertEqual(audit["documents"], self.documents_of("AUDT", "2007"))
        self.assertFalse(products["Quillbook\\NPQ 2007"]["installed"], "announced, and never installed")
        self.assertEqual(products["Quillbook\\QCQ 2002"]["folder"].rstrip("/"), self.path("Products/QCQ/2002"))
        self.assertEqual(products["Quillbook\\EBQ 2007"]["catalogue"],
                         self.path("Products/EBQ/2007/Zorvo Library.xml"))
        add_ins = {item["name"]: item for item in report["addIns"]}
        self.assertEqual(add_ins["Brendle.ActXManager"]["server"], "com.zorvo.Companions")
        self.assertEqual(add_ins["OTRTurnOffMenu"]["value"], "On")

    def documents_of(self, product, year):
        text = self.text(CENTRAL).split('Acronym="%s" Year="%s"' % (product, year))[1].split("</Product>")[0]
        return text.count("<Document ")

    def test_wrong_usage_is_told(self):
        for arguments in (["--xml"], ["--json", "--json"], ["now"]):
            result = self.doctor(*arguments)
            self.assertEqual((result.returncode, result.stdout), (2, ""))
            self.assertEqual(result.stderr, "usage: brendle doctor [--json]\n")


class Untouched(DoctorTest):
    def snapshot(self):
        """Every file, folder and link below the test's folder with its times, sizes and bytes."""
        state = {}
        for folder, folders, files in os.walk(self.folder):
            for name in [".", *folders, *files]:
                path = os.path.join(folder, name)
                status = os.lstat(path)
                digest = ""
                if os.path.isfile(path) and not os.path.islink(path):
                    with open(path, "rb") as file:
                        digest = hashlib.sha256(file.read()).hexdigest()
                # For root, SQLite gives a journal the owner that it has already: bytes and times stay, but for this one.
                changed = 0 if path.endswith("-journal") else status.st_ctime_ns
                state[path] = (status.st_mode, status.st_ino, status.st_size, status.st_mtime_ns, changed,
                               status.st_uid, digest)
        return state

    def assert_untouched(self):
        before = self.snapshot()
        # Without a bus, since the daemon has files of its own in the run folder.
        self.doctor(bus=False)
        self.doctor("--json", bus=False)
        after = self.snapshot()
        self.assertEqual({path for path in after if path not in before}, set(), "something was made")
        self.assertEqual({path for path in before if before[path] != after.get(path)}, set(), "something was changed")

    def test_a_machine_that_was_never_used(self):
        shutil.rmtree(self.home + "/data")
        shutil.rmtree(self.home + "/machine")
        self.assert_untouched()
        self.assertFalse(os.path.exists(self.home + "/data"))
        self.assertFalse(os.path.exists(self.home + "/run/zorvobrendle"))

    def test_a_machine_with_products(self):
        self.brendle("setting", "set", "DisplaySplash", "False")
        self.value(HKLM + "Quillbook\\EXTRA\\2007\\InstallDefaults", "AppPath2", "C:\\Products\\EXTRA")
        self.assert_untouched()

    def test_a_machine_whose_registry_was_being_written_when_it_broke_off(self):
        file = self.home + "/machine/registry.db"
        # A writer that never ends: its journal is what a crash leaves behind.
        writer = sqlite3.connect(file, isolation_level=None)
        writer.execute("PRAGMA cache_size = 1")
        writer.execute("BEGIN IMMEDIATE")
        writer.execute("CREATE TABLE big(x)")
        for n in range(300):
            writer.execute("INSERT INTO big VALUES(randomblob(4000))")
        shutil.copy(file, self.folder + "/broken.db")
        shutil.copy(file + "-journal", self.folder + "/broken.db-journal")
        writer.execute("ROLLBACK")
        writer.close()
        shutil.copy(self.folder + "/broken.db", file)
        shutil.copy(self.folder + "/broken.db-journal", file + "-journal")
        self.assert_untouched()
        self.assertIn("registry.damaged", [fault[0] for fault in self.faults()])

    def test_a_bus_is_asked_without_starting_the_program(self):
        script = ("%s doctor; dbus-send --session --print-reply --dest=org.freedesktop.DBus / "
                  "org.freedesktop.DBus.NameHasOwner string:com.zorvo.TSelector" % self.brendle_program)
        result = subprocess.run(["dbus-run-session", "--", "sh", "-c", script], env=self.env, capture_output=True,
                                text=True, timeout=120)
        self.assertIn("boolean false", result.stdout)


class PlantedFaults(DoctorTest):
    """One at a time: it is found, and nothing else is."""

    # Programs

    def test_a_program_that_isnt_there(self):
        os.makedirs(self.folder + "/bin")
        for program in ("brendle", "brendle-help"):
            shutil.copy(BUILD + "/bin/" + program, self.folder + "/bin")
        self.brendle_program = self.folder + "/bin/brendle"
        self.assert_finds("program.missing", file=self.folder + "/bin/zorvobrendle")

    def test_no_office_suite(self):
        self.env["ZORVOBRENDLE_OFFICE_DIR"] = "/nonexistent"
        self.assert_finds("office.missing", times=2, text="libreoffice-writer")

    def test_no_session_bus(self):
        self.assert_finds("bus.missing", bus=False, text="DBUS_SESSION_BUS_ADDRESS")

    def test_a_bus_that_cant_be_reached(self):
        self.env["DBUS_SESSION_BUS_ADDRESS"] = "unix:path=" + self.folder + "/nobody"
        self.assert_finds("bus.missing", bus=False, text="can't be reached")

    def test_a_bus_that_doesnt_know_the_program(self):
        self.env["XDG_DATA_DIRS"] = "/usr/share"
        self.assert_finds("bus.notActivatable")

    # Folders and stores

    def test_no_documents_folder(self):
        os.rmdir(self.home + "/Documents")
        self.assert_finds("folder.missing", file=self.home + "/Documents")

    def test_a_documents_folder_that_is_a_file(self):
        os.rmdir(self.home + "/Documents")
        with open(self.home + "/Documents", "w", encoding="utf-8"):
            pass
        found = self.faults()
        self.assertEqual({fault[0] for fault in found}, {"folder.notAFolder", "folder.notWritable"})
        self.assertEqual({fault[2] for fault in found}, {"documents", "support"})

    def test_a_settings_folder_that_is_a_file(self):
        with open(self.home + "/config/ZorvoBrendle", "w", encoding="utf-8"):
            pass
        self.assertIn("folder.notAFolder", [fault[0] for fault in self.faults()])

    def test_a_damaged_registry_of_the_user(self):
        with open(self.home + "/data/zorvobrendle/registry.db", "r+b") as file:
            file.write(b"this is no registry at all, whatever its name says")
        self.assert_finds("registry.damaged", file=self.home + "/data/zorvobrendle/registry.db")

    def test_settings_that_cant_be_read(self):
        os.makedirs(self.home + "/config/ZorvoBrendle/settings.ini")
        self.assert_finds("settings.unreadable", file=self.home + "/config/ZorvoBrendle/settings.ini")

    # The program's files

    def test_a_missing_index_of_the_library(self):
        os.remove(self.path("TreeData/SWDXML.xml"))
        self.assert_finds("file.missing", file=self.path("TreeData/SWDXML.xml"))

    def test_a_malformed_central_catalogue(self):
        line = self.line_of(CENTRAL, "</Product>")
        self.replace(CENTRAL, "</Product>", "</Prodct>")
        self.assert_finds("file.malformed", file=self.path(CENTRAL), line=line)

    def test_malformed_captions_of_a_company(self):
        self.replace("OTR/xmlCaptions.xml", "&amp;", "&")
        self.assert_finds("file.malformed", file=self.path("OTR/xmlCaptions.xml"))

    def test_a_malformed_tree_order(self):
        name = "TreeData/TreeOrder.xml"
        self.put(name, self.text(name) + "<More/>\n")
        line = self.text(name).count("\n")
        self.replace("Products/AUQ/2005/TreeOrder.xml", 'Version="', 'Version="-')  # so that it isn't in use
        found = self.faults()
        self.assertEqual([(fault[0], fault[3]["line"]) for fault in found], [("file.malformed", line)])

    def test_a_tree_order_without_an_edition(self):
        self.replace("TreeData/TreeOrder.xml", ' Version="12"', "")
        self.assert_finds("treeOrder.version", line=2)

    def test_a_group_without_an_icon(self):
        self.replace("TreeData/TreeOrder.xml", ' IconSmall="Quillbook16.ico"', "")
        self.assert_finds("treeOrder.group", line=self.line_of("TreeData/TreeOrder.xml", 'TreeTitle="Quillbook"'),
                          text="IconSmall")

    def test_two_groups_of_one_title(self):
        self.replace("TreeData/TreeOrder.xml", 'TreeTitle="Fennimore Composer"', 'TreeTitle="Quillbook"')
        self.assert_finds("treeOrder.twice", text="Quillbook")

    def test_an_error_log_that_cant_be_read(self):
        folder = self.home + "/Documents/Halvern House/Brendle"
        os.makedirs(folder)
        with open(folder + "/Brendle.err", "wb") as file:
            file.truncate(3 << 30)  # more than is ever read
        self.assert_finds("log.unreadable", file=folder + "/Brendle.err")

    # Products

    def test_a_product_without_a_title(self):
        self.brendle("registry", "delete", HKLM + "Tessora\\CTRT", "Title")
        self.assert_finds("product.title", text="CTRT")

    def test_a_title_that_is_too_long(self):
        self.value(HKLM + "Tessora\\CTRT", "Title", "T" * 128)
        self.assert_finds("product.title")

    def test_a_title_that_breaks_the_product_list(self):
        self.value(HKLM + "Tessora\\CTRT", "Title", "Construction ]]> Contractors")
        self.assert_finds("product.characters", text="CTRT 2007")

    def test_a_year_that_is_no_year(self):
        self.brendle("registry", "set", HKLM + "Tessora\\CTRT\\99999999999", "", "x")
        self.assert_finds("product.year", text="99999999999")

    def test_a_template_folder_that_is_gone(self):
        shutil.rmtree(self.path("Products/CTRT"))
        found = self.faults()
        self.assertEqual(found[0][0], "product.folderMissing")
        self.assertEqual(found[0][3]["file"].rstrip("/"), self.path("Products/CTRT/2007"))
        self.assertEqual({fault[0] for fault in found[1:]}, {"template.missing"}, "and its templates with it")

    def test_a_path_that_is_too_long(self):
        self.value(HKLM + "Tessora\\CTRT\\2007\\InstallDefaults", "AppPath2", "C:\\" + "x" * 253)
        self.assert_finds("product.folder", text="CTRT 2007")

    def test_an_empty_path(self):
        self.value(HKLM + "Quillbook\\NPQ\\2006\\InstallDefaults", "AppPath2", "")
        self.assertIn("product.folder", [fault[0] for fault in self.faults()])

    def test_a_product_year_without_a_catalogue_entry(self):
        self.value(HKLM + "Tessora\\CTRT\\2008\\InstallDefaults", "AppPath2",
                   "Z:" + self.path("Products/CTRT/2007/").replace("/", "\\"))
        self.assert_finds("product.catalogue", text="CTRT 2008", file=self.path(CENTRAL))

    def test_a_product_that_the_tree_order_doesnt_name(self):
        self.replace("TreeData/TreeOrder.xml", ">CTRT<", ">CTRL<")
        self.assert_finds("product.treeOrder", text="CTRT")

    def test_a_year_that_is_registered_for_the_user_and_for_the_machine(self):
        self.value("HKEY_CURRENT_USER\\Software\\Zorvo\\Tessora\\CTRT", "Title", "Construction Contractors")
        self.value("HKEY_CURRENT_USER\\Software\\Zorvo\\Tessora\\CTRT\\2007\\InstallDefaults", "AppPath2",
                   "Z:" + self.path("Products/CTRT/2007/").replace("/", "\\"))
        self.assert_finds("product.twice", text="CTRT 2007")

    def test_a_template_that_is_gone(self):
        name = "Products/AUDT/2007/Trial Balance.xlt"
        os.remove(self.path(name))
        self.assert_finds("template.missing", file=self.path(name), text="Trial Balance")

    def test_a_template_of_no_bytes(self):
        name = "Products/AUDT/2007/Trial Balance.xlt"
        self.put(name, "")
        self.assert_finds("template.empty", file=self.path(name))

    def test_a_guid_met_twice(self):
        guids = [piece.split('"')[0] for piece in self.text(CENTRAL).split('<Document Guid="')[1:3]]
        line = self.line_of(CENTRAL, guids[1])
        self.replace(CENTRAL, guids[1], guids[0])
        self.assert_finds("document.duplicateGuid", line=line, text=guids[0])

    def test_a_document_without_a_file(self):
        text = self.text(CENTRAL)
        self.put(CENTRAL, text.replace("<File>Trial Balance.xlt</File>", "", 1))
        self.assert_finds("document.incomplete", file=self.path(CENTRAL), text="File")

    def test_a_document_without_a_guid(self):
        guid = self.text(CENTRAL).split('<Document Guid="')[1].split('"')[0]
        line = self.line_of(CENTRAL, guid)
        self.replace(CENTRAL, ' Guid="%s"' % guid, "")
        self.assert_finds("document.incomplete", line=line, text="Guid")

    def test_a_malformed_catalogue_of_a_product(self):
        name = "Products/EBQ/2007/Zorvo Library.xml"
        line = self.line_of(name, "</Name>")
        self.replace(name, "</Name>", "<Name>")
        found = self.faults()
        self.assertEqual([fault[0] for fault in found], ["file.malformed"], found)
        self.assertEqual(found[0][2], "Quillbook\\EBQ 2007")
        self.assertEqual(found[0][3]["file"], self.path(name))
        self.assertGreaterEqual(found[0][3]["line"], line)

    def test_a_malformed_engagement_document_of_a_product(self):
        name = "Products/AUDT/2006/Zorvo_Engagement.xml"
        self.put(name, "<root>\n<engagement>\n</root>\n")
        self.assert_finds("file.malformed", file=self.path(name), line=3)

    # Settings and add-ins

    def test_a_window_state_that_doesnt_fit(self):
        self.brendle("setting", "set", "OTRMainState", "99999")
        self.assert_finds("setting.number", text="OTRMainState")

    def test_a_place_that_is_no_number(self):
        self.brendle("setting", "set", "MainLeft", "left")
        self.assert_finds("setting.number", text="MainLeft")

    def test_a_switch_that_is_neither_on_nor_off(self):
        self.brendle("setting", "set", "DisplaySplash", "perhaps")
        self.assert_finds("setting.switch", text="DisplaySplash")

    def test_a_document_folder_that_is_gone(self):
        self.brendle("setting", "set", "DocumentFolder", "Z:" + self.folder.replace("/", "\\") + "\\gone")
        self.assert_finds("setting.folder", file=self.folder + "/gone")

    def test_a_framework_that_isnt_registered(self):
        self.brendle("registry", "delete", "HKEY_CLASSES_ROOT\\Brendle.ActXManager")
        self.assert_finds("addIn.class", text="Brendle.ActXManager")

    def test_a_class_that_nothing_serves(self):
        key = "HKEY_CLASSES_ROOT\\CLSID\\{3561154C-DACA-40C5-85E8-A020D429B090}\\LocalServer32"
        self.value(key, "", "com.zorvo.Nobody")
        self.value(key, "ServerExecutable", self.folder + "/nobody")
        self.assert_finds("addIn.server", text="com.zorvo.Nobody")

    def test_a_menu_that_is_neither_on_nor_off(self):
        self.value("HKEY_CURRENT_USER\\Software\\Zorvo\\QBN", "OTRTurnOffMenu", "Maybe")
        self.assert_finds("addIn.menu", text="OTRTurnOffMenu")

    def test_a_menu_state_of_the_wrong_type(self):
        self.value("HKEY_CURRENT_USER\\Software\\Zorvo\\QBN", "TurnOffMenu", "1", "REG_DWORD")
        self.assert_finds("addIn.menu", text="TurnOffMenu")


class ManyFaults(DoctorTest):
    def test_twenty_at_once_are_all_found(self):
        self.env["ZORVOBRENDLE_OFFICE_DIR"] = "/nonexistent"
        self.env["XDG_DATA_DIRS"] = "/usr/share"
        os.rmdir(self.home + "/Documents")
        os.remove(self.path("TreeData/SWDXML.xml"))
        self.replace("OTR/xmlCaptions.xml", "&amp;", "&")
        self.replace("TreeData/TreeOrder.xml", ' IconSmall="Quillbook16.ico"', "")
        self.replace("TreeData/TreeOrder.xml", 'TreeTitle="Fennimore Composer"', 'TreeTitle="Quillbook"')
        self.replace("TreeData/TreeOrder.xml", ">FENC<", ">FEND<")
        self.brendle("registry", "delete", HKLM + "Tessora\\MRLW", "Title")
        self.value(HKLM + "Tessora\\OTRP", "Title", "]]>")
        self.brendle("registry", "set", HKLM + "Tessora\\OTRP\\99999999999", "", "x")
        shutil.rmtree(self.path("Products/CTRT"))
        self.value(HKLM + "Quillbook\\AUQ\\2006\\InstallDefaults", "AppPath2", "C:\\" + "x" * 253)
        self.value(HKLM + "Quillbook\\NPQ\\2009\\InstallDefaults", "AppPath2",
                   "Z:" + self.path("Products/NPQ/2006/").replace("/", "\\"))
        os.remove(self.path("Products/AUDT/2007/Trial Balance.xlt"))
        self.put("Products/AUDT/2006/Trial Balance.xlt", "")
        guids = [piece.split('"')[0] for piece in self.text(CENTRAL).split('<Document Guid="')[2:4]]
        self.replace(CENTRAL, guids[1], guids[0])
        self.put("Products/AUDT/2006/Zorvo_Engagement.xml", "<root>")
        self.brendle("setting", "set", "MainState", "99999")
        self.brendle("setting", "set", "DisplaySplash", "perhaps")
        self.brendle("registry", "delete", "HKEY_CLASSES_ROOT\\Brendle.ActXManager")
        self.value("HKEY_CURRENT_USER\\Software\\Zorvo\\QBN", "TurnOffMenu", "Maybe")
        codes = {fault[0] for fault in self.faults()}
        self.assertEqual(codes, {
            "office.missing", "bus.notActivatable", "folder.missing", "file.missing", "file.malformed",
            "treeOrder.group", "treeOrder.twice", "product.treeOrder", "product.title", "product.characters",
            "product.year", "product.folderMissing", "product.folder", "product.catalogue", "template.missing",
            "template.empty", "document.duplicateGuid", "setting.number", "setting.switch", "addIn.class",
            "addIn.menu"})
        self.assertGreaterEqual(len(codes), 20)


if __name__ == "__main__":
    unittest.main(verbosity=2)
