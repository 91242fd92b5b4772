#!/usr/bin/python3
"""Holds the sample products together: what one of their files names, another one has.

    samples_test.py SOURCE PROGRAM TEMPLATES
"""

import hashlib
import re
import struct
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree
from pathlib import Path
from urllib.parse import unquote

SOURCE, PROGRAM, TEMPLATES = (Path(argument) for argument in sys.argv[1:4])
COMPOUND_FILE = bytes.fromhex("D0CF11E0A1B11AE1")
LABELLED_GROUPS = {"Quillbook", "Sablewood Libraries", "Fennimore Composer"}
OWN_ICONS = ["Open Chapter16", "Word16", "Excel16", "Default Page16", "Product16", "Zorvo", "Quillbook16",
             "Tessora16", "Brendle"]
PROPERTIES = ["ClientName", "PeriodEnd", "EngagementType", "PreparedBy", "ReviewedBy"]


def parse(path):
    return ElementTree.parse(path).getroot()


def registry():
    """{key: {value name: text}} of the sample registry file."""
    keys, key = {}, None
    for line in (PROGRAM / "sample.reg").read_text(encoding="utf-8").splitlines():
        if line.startswith("["):
            key = line.strip("[]")
            keys[key] = {}
        match = re.fullmatch(r'(@|"[^"]*")="(.*)"', line)
        if match:
            keys[key][match[1].strip('"')] = match[2].replace("\\\\", "\\")
    return keys


def installed():
    """[(group, product, year, AppPath2)] of all registered folders."""
    found = []
    for key, values in registry().items():
        if "AppPath2" in values:
            group, product, below = key.split("\\")[3:6]
            found.append((group, product, "2002" if below == "InstallDefaults" else below, values["AppPath2"]))
    return found


def native(path):
    return Path(path.removeprefix("Z:").replace("\\", "/"))


def catalogue_for(folder):
    own = folder / "Zorvo Library.xml"
    return own if own.exists() else PROGRAM / "TreeData" / "Zorvo Library.xml"


def products(catalogue):
    return list(parse(catalogue).iter("Product"))


def installed_products():
    """[(folder, Product element)] as the tree will show them."""
    for _, acronym, year, path in installed():
        folder = native(path)
        matches = [p for p in products(catalogue_for(folder)) if (p.get("Acronym"), p.get("Year")) == (acronym, year)]
        yield acronym, year, folder, matches


def tree_order():
    return parse(PROGRAM / "TreeData" / "TreeOrder.xml")


class Registry(unittest.TestCase):
    def test_holds_both_groups_six_products_and_ten_years(self):
        years = installed()
        self.assertEqual({"Tessora", "Quillbook"}, {group for group, *_ in years})
        self.assertGreaterEqual(len({product for _, product, *_ in years}), 6)
        self.assertGreaterEqual(len(years), 10)

    def test_folders_fit_the_buffer_they_are_read_with(self):
        for _, _, _, path in installed():
            self.assertLess(len(path.encode()), 256, path)

    def test_folders_are_there(self):
        for _, _, _, path in installed():
            self.assertTrue(native(path).is_dir(), path)

    def test_every_product_has_a_title_in_its_hive(self):
        keys = registry()
        for key, values in keys.items():
            if "AppPath2" in values:
                product = "\\".join(key.split("\\")[:5])
                self.assertTrue(keys.get(product, {}).get("Title"), product)

    def test_every_product_stands_in_the_tree_order(self):
        order = {element.text for element in tree_order().iter("Acronymn")}
        for _, product, *_ in installed():
            self.assertIn(product, order)

    def test_companion_classes_lead_to_their_program(self):
        keys = registry()
        for name in ("ZorvoTSR.Connect", "ZorvoTSR.ExcelConnect", "Brendle.ActXManager"):
            class_id = keys[f"HKEY_CLASSES_ROOT\\{name}\\CLSID"]["@"]
            server = keys[f"HKEY_CLASSES_ROOT\\CLSID\\{class_id}\\LocalServer32"]
            self.assertEqual("com.zorvo.Companions", server["@"])
            self.assertEqual("zorvo-companions", Path(server["ServerExecutable"]).name)
        self.assertIn("HKEY_CLASSES_ROOT\\CLSID\\{3561154C-DACA-40C5-85E8-A020D429B090}\\LocalServer32", keys)


class TreeOrder(unittest.TestCase):
    def test_titles_are_unique_and_hold_those_with_year_labels(self):
        titles = [group.get("TreeTitle") for group in tree_order().iter("ProductTreeGroup")]
        self.assertEqual(len(titles), len(set(titles)))
        self.assertLessEqual(LABELLED_GROUPS, set(titles))

    def test_groups_and_products_carry_what_the_views_read(self):
        for group in tree_order().iter("ProductTreeGroup"):
            for name in ("TreeTitle", "TreeTitleShort", "IconLarge", "IconSmall"):
                self.assertTrue(group.get(name), f"{group.attrib} lacks {name}")
        for product in tree_order().iter("Acronymn"):
            self.assertIsNotNone(product.get("Name"), product.text)
            self.assertTrue(product.get("numProdClassID").isdigit(), product.text)

    def test_there_are_nested_groups_and_other_companies(self):
        self.assertTrue(tree_order().findall("ProductTreeGroup/ProductTreeGroup"))
        companies = {p.get("companyID") for p in tree_order().iter("Acronymn")}
        self.assertLessEqual({None, "OTR", "MRL"}, companies)

    def test_the_program_has_the_newest_edition(self):
        own = int(tree_order().get("Version"))
        carried = [int(parse(path).get("Version")) for path in PROGRAM.glob("Products/*/*/TreeOrder.xml")]
        self.assertTrue(carried)
        self.assertLess(max(carried), own)

    def test_every_offering_has_a_page(self):
        for product in tree_order().iter("Acronymn"):
            self.assertTrue((PROGRAM / "TreeData" / "HTML" / f"{product.text}.htm").is_file(), product.text)


class Catalogue(unittest.TestCase):
    def test_every_installed_year_has_one_product(self):
        for acronym, year, _, matches in installed_products():
            self.assertEqual(1, len(matches), f"{acronym} {year}")

    def test_identities_are_unique_within_one_tree(self):
        seen = set()
        elements = [p for p in products(PROGRAM / "TreeData" / "Zorvo Library.xml")]
        elements += [p for path in PROGRAM.glob("Products/*/*/Zorvo Library.xml") for p in products(path)]
        for product in elements:
            for element in product.iter():
                guid = element.get("Guid")
                if element.tag in ("Product", "Folder", "Document"):
                    self.assertRegex(guid, r"^\{[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}\}$")
                    self.assertNotIn(guid, seen)
                    seen.add(guid)

    def test_every_node_has_a_name_and_a_description(self):
        for product in products(PROGRAM / "TreeData" / "Zorvo Library.xml"):
            for element in product.iter():
                if element.tag in ("Folder", "Document"):
                    self.assertTrue(element.findtext("Name", "").strip())
                    self.assertGreater(len(element.findtext("Desc", "").strip()), 15, element.findtext("Name"))

    def test_a_hundred_documents_of_thirty_templates(self):
        files = [f.text for _, _, _, matches in installed_products() for p in matches for f in p.iter("File")]
        self.assertGreaterEqual(len(files), 100)
        self.assertGreaterEqual(len(set(files)), 30)

    def test_folders_nest(self):
        self.assertTrue(parse(PROGRAM / "TreeData" / "Zorvo Library.xml").findall("Product/Folder/Folder"))

    def test_one_product_brings_its_own_copy(self):
        self.assertTrue(list(PROGRAM.glob("Products/*/*/Zorvo Library.xml")))


class Templates(unittest.TestCase):
    def test_every_document_has_its_template_in_the_binary_format(self):
        for acronym, year, folder, matches in installed_products():
            for product in matches:
                for file in product.iter("File"):
                    path = folder / file.text
                    self.assertTrue(path.is_file(), path)
                    self.assertEqual(COMPOUND_FILE, path.read_bytes()[:8], path)

    def test_no_two_templates_are_alike(self):
        contents = {}
        for path in [*TEMPLATES.glob("word/*.dot"), *TEMPLATES.glob("excel/*.xlt")]:
            contents.setdefault(hashlib.sha256(path.read_bytes()).digest(), []).append(path.name)
        self.assertGreaterEqual(len(contents), 30)
        self.assertEqual([], [names for names in contents.values() if len(names) > 1])

    def test_each_carries_the_properties_of_its_first_page(self):
        for path in TEMPLATES.glob("word/*.dot"):
            data = path.read_bytes()
            for name in PROPERTIES:
                field = f'DOCPROPERTY "{name}"'
                self.assertTrue(field.encode() in data or field.encode("utf-16-le") in data, f"{path.name}: {name}")
        for path in TEMPLATES.glob("excel/*.xlt"):
            data = path.read_bytes()
            for name in PROPERTIES:
                self.assertIn(name.encode(), data, path.name)

    def test_no_formula_of_a_fresh_worksheet_is_in_error(self):
        with tempfile.TemporaryDirectory() as folder:
            every_sheet = "csv:Text - txt - csv (StarCalc):44,34,76,1,,0,false,true,false,false,false,-1"
            subprocess.run(
                ["soffice", f"-env:UserInstallation=file://{folder}/profile", "--headless", "--convert-to", every_sheet,
                 "--outdir", f"{folder}/sheets", *map(str, sorted(TEMPLATES.glob("excel/*.xlt")))],
                check=True, capture_output=True, timeout=120,
            )
            sheets = list(Path(folder, "sheets").glob("*.csv"))
            self.assertGreaterEqual(len(sheets), len(list(TEMPLATES.glob("excel/*.xlt"))))
            for sheet in sheets:
                self.assertNotRegex(sheet.read_text(encoding="utf-8"), r"#N/A|#NAME|#REF|#VALUE|#DIV|Err:", sheet.name)


class Libraries(unittest.TestCase):
    @staticmethod
    def editions():
        """[(Product element of the index, group, year, AppPath2)] of all installed editions."""
        index = parse(PROGRAM / "TreeData" / "SWDXML.xml")
        known = {p.findtext("ID").strip(): p for p in index.iter("Product")}
        return [(known[product], group, year, path) for group, product, year, path in installed() if product in known]

    @classmethod
    def examples(cls):
        return [path for edition, _, _, folder in cls.editions()
                for path in native(folder).glob("*." + edition.findtext("rdfExt").strip())]

    def test_every_installed_edition_can_be_searched(self):
        group = parse(PROGRAM / "TreeData" / "SWDXML.xml").get("group")
        for edition, its_group, _, path in self.editions():
            folder, extension = native(path), edition.findtext("rdfExt").strip()
            self.assertEqual(group, its_group)
            self.assertFalse(path.endswith("\\"), "the search joins this folder with a backslash of its own")
            self.assertTrue((folder / f"SWD.{edition.findtext('template').strip()}").is_file())
            self.assertEqual(COMPOUND_FILE, Path(f"{folder}All{extension}.dot").read_bytes()[:8])

    def test_three_editions_over_two_years_hold_a_hundred_and_fifty_examples(self):
        self.assertEqual({"SablewoodLibrary", "SablewoodGovernment", "SablewoodNonprofit"},
                         {edition.findtext("ID").strip() for edition, *_ in self.editions()})
        self.assertGreaterEqual(len({year[:4] for _, _, year, _ in self.editions()}), 2)
        contents = {path.read_bytes() for path in self.examples()}
        self.assertGreaterEqual(len(contents), 150)

    def test_examples_are_whole_rich_texts_that_begin_with_their_titles(self):
        for path in self.examples():
            text = path.read_text(encoding="ascii")
            self.assertTrue(text.startswith("{\\rtf1"), path)
            bare = re.sub(r"\\[\\{}]", "", text)
            self.assertEqual(bare.count("{"), bare.count("}"), path)
            self.assertIn(f" {path.stem}\\par", text)

    def test_a_master_holds_every_example_of_its_year_and_no_other(self):
        for edition, _, _, path in self.editions():
            folder = native(path)
            master = Path(f"{folder}All{edition.findtext('rdfExt').strip()}.dot").read_bytes()
            text = master.decode("latin-1") + master.decode("utf-16-le", "ignore")
            here = {example.stem for example in folder.glob("*.rtf")}
            for title in {example.stem for example in self.examples()}:
                # A table's first cell, with the mark that ends it.
                cell = re.search(rf"(?<![A-Za-z ]){re.escape(title)}\a", text)
                self.assertEqual(title in here, bool(cell), f"{folder.name}: {title}")

    def test_a_newer_year_has_examples_that_the_older_lacks(self):
        years = {year: {example.name for example in native(path).glob("*.rtf")} for edition, _, year, path
                 in self.editions() if edition.findtext("ID").strip() == "SablewoodLibrary"}
        self.assertLess(years["2006"], years["2007"])


class Engagements(unittest.TestCase):
    def test_each_is_for_a_product_on_the_machine_and_names_its_templates(self):
        folders = {(product, year): native(path) for _, product, year, path in installed()}
        documents = [PROGRAM / "TreeData" / "Zorvo_Engagement.xml", *PROGRAM.glob("Products/*/*/Zorvo_Engagement.xml")]
        self.assertGreaterEqual(len(documents), 2)
        for path in documents:
            for engagement in parse(path).iter("engagement"):
                folder = folders[engagement.get("path"), engagement.get("year")]
                for document in engagement.iter("document"):
                    self.assertTrue((folder / document.text).is_file(), document.text)


class Pages(unittest.TestCase):
    PAGES = [*PROGRAM.glob("TreeData/HTML/*.htm"), *PROGRAM.glob("Products/*/*/HTML/*.htm")]

    def test_links_and_pictures_lead_somewhere_within_the_pages_own_folder(self):
        for page in self.PAGES:
            for name in re.findall(r'(?:href|src)="([^"]+)"', page.read_text(encoding="utf-8")):
                if not name.startswith("https://"):
                    self.assertTrue((page.parent / unquote(name)).is_file(), f"{page.name}: {name}")

    def test_web_addresses_are_nobodys(self):
        addresses = [a for p in self.PAGES for a in re.findall(r'href="(https?:[^"]+)"', p.read_text(encoding="utf-8"))]
        self.assertTrue(addresses)
        for address in addresses:
            self.assertRegex(address, r"^https://[a-z.-]+\.example/")

    def test_every_group_of_the_tree_has_a_page_of_its_title(self):
        for group in tree_order().iter("ProductTreeGroup"):
            self.assertTrue((PROGRAM / "TreeData" / "HTML" / f"{group.get('TreeTitle')}.htm").is_file(), group.attrib)

    def test_the_report_that_the_offerings_form_opens_lists_templates(self):
        report = (PROGRAM / "TreeData" / "Zorvo LIBRARY TEMPLATE REPORT.HTM").read_text(encoding="utf-8")
        self.assertGreaterEqual(report.count("<tr>"), 50)


class Branding(unittest.TestCase):
    CAPTIONS = ["TemplateTreeCaptions/DialogTitle", "TemplateTreeCaptions/TreeLabel_both",
                "TemplateTreeCaptions/TreeLabel_qbkonly", "TemplateTreeCaptions/TreeLabel_tsronly",
                "TemplateTreeCaptions/CategoryDescrProduct", "TemplateTreeCaptions/CategoryDescrCategeory",
                "TemplateTreeCaptions/CategoryDescrDocument", "AboutDialog/Warning", "Web/ContactUs", "Web/OnTheWeb1",
                "Web/OnTheWeb2", "Web/OnTheWeb3", "Web/QuickTour", "Web/MyAccount"]

    def test_every_company_has_all_captions(self):
        for folder in (PROGRAM, PROGRAM / "OTR", PROGRAM / "MRL"):
            captions = parse(folder / "xmlCaptions.xml")
            self.assertEqual("Captions", captions.tag)
            for path in self.CAPTIONS:
                self.assertTrue(captions.findtext(path, "").strip(), f"{folder.name}: {path}")

    def test_web_addresses_are_nobodys(self):
        for folder in (PROGRAM, PROGRAM / "OTR", PROGRAM / "MRL"):
            for address in parse(folder / "xmlCaptions.xml").find("Web"):
                self.assertRegex(address.text, r"^https://[a-z.-]+\.example/")

    def test_pairs_are_numbered_without_a_gap_and_show_deletion_and_the_house_word(self):
        for folder in (PROGRAM / "OTR", PROGRAM / "MRL"):
            pairs = parse(folder / "xmlCaptions.xml").find("Rebrand")
            count = sum(1 for element in pairs if element.tag.startswith("Find"))
            texts = [(pairs.findtext(f"Find{n}"), pairs.findtext(f"Replace{n}")) for n in range(1, count + 1)]
            self.assertTrue(all(find and replace is not None for find, replace in texts), texts)
            self.assertTrue(any(replace == "" for _, replace in texts), folder)
            self.assertTrue(any("Zorvo" in find and "Zorvo" not in replace for find, replace in texts), folder)

    def test_pictures_are_what_their_names_say(self):
        for folder in (PROGRAM / "Images", PROGRAM / "OTR", PROGRAM / "MRL"):
            for name in ("Splash.bmp", "About.bmp", "Sidebar.bmp"):
                self.assertEqual(b"BM", (folder / name).read_bytes()[:2], folder / name)
            self.assertTrue((folder / "Brendle.ico").is_file())


class Icons(unittest.TestCase):
    def test_the_program_finds_every_icon_it_asks_for(self):
        names = [f"{name}.ico" for name in OWN_ICONS]
        for group in tree_order().iter("ProductTreeGroup"):
            names += [group.get("IconLarge"), group.get("IconSmall")]
        for name in names:
            self.assertTrue((PROGRAM / "Images" / name).is_file(), name)

    def test_every_icon_has_all_sizes(self):
        icons = [*PROGRAM.glob("Images/*.ico"), *PROGRAM.glob("*/Brendle.ico")]
        for path in icons:
            data = path.read_bytes()
            reserved, kind, count = struct.unpack_from("<HHH", data)
            self.assertEqual((0, 1), (reserved, kind), path)
            self.assertEqual([16, 20, 24, 32, 48], [data[6 + 16 * i] for i in range(count)], path)


class HelpFile(unittest.TestCase):
    """Its sources: what a page, a line of the contents or of the index, or a number leads to is there."""

    FOLDER = SOURCE / "sample" / "help"

    def pages(self):
        return {path.name: path.read_text(encoding="utf-8") for path in self.FOLDER.glob("*.htm")}

    def section(self, name):
        project = (self.FOLDER / "QBK_HELP.hhp").read_text(encoding="utf-8")
        lines = project.split("[%s]" % name)[1].split("[")[0].splitlines()
        return [line for line in lines if line and not line.startswith(";")]

    def targets(self, map_name):
        return re.findall(r'name="Local" value="([^"]*)"', (self.FOLDER / map_name).read_text(encoding="utf-8"))

    def assert_leads(self, target, where):
        page, _, anchor = target.partition("#")
        pages = self.pages()
        self.assertIn(page, pages, "%s leads to %s" % (where, target))
        if anchor:
            self.assertIn('name="%s"' % anchor, pages[page], "%s leads to %s" % (where, target))

    def test_every_link_leads_somewhere(self):
        for name, text in self.pages().items():
            for target in re.findall(r'href="([^"?]*)"', text):
                if target != "help.css":
                    self.assert_leads(target if not target.startswith("#") else name + target, name)

    def test_contents_and_index_lead_to_pages_and_no_page_is_left_out(self):
        for target in self.targets("contents.hhc") + self.targets("index.hhk"):
            self.assert_leads(target, "the contents or the index")
        self.assertEqual(sorted(self.targets("contents.hhc")), sorted(self.pages()))

    def test_the_project_takes_all_pages_and_numbers_its_topics(self):
        self.assertEqual(sorted(self.section("FILES")), sorted([*self.pages(), "help.css"]))
        pages = dict(line.split("=") for line in self.section("ALIAS"))
        numbers = {int(line.split()[2]): pages[line.split()[1]] for line in self.section("MAP")}
        self.assertEqual(sorted(numbers), list(range(1, len(numbers) + 1)))
        self.assertEqual(numbers[1], "manydocuments.htm", "what the forms that make many documents ask for")

    def test_the_index_is_in_order(self):
        words = re.findall(r'<OBJECT[^>]*><param name="Name" value="([^"]*)"',
                           (self.FOLDER / "index.hhk").read_text(encoding="utf-8"))
        self.assertEqual(words, sorted(words, key=str.lower))

    def test_each_company_has_the_file_in_its_own_wording(self):
        def words(path):
            return (PROGRAM / path).read_bytes().decode("utf-8", "replace")

        self.assertIn("Zorvo's Brendle Help", words("QBK_HELP.chm"))
        self.assertIn("Disclosure Library", words("OTR/QBK_HELP.chm"))
        self.assertIn("https://assurance.otr.example/contact", words("OTR/QBK_HELP.chm"))
        for path in ("OTR/QBK_HELP.chm", "MRL/QBK_HELP.chm"):
            self.assertNotRegex(words(path), r"Zorvo|\?[A-Z][a-z]+\?")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=1)
