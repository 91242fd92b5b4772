#!/usr/bin/python3
"""Puts the program folder together as the installers of the sample products would.

    assembleProgram.py SOURCE TEMPLATES PROGRAM

SOURCE is the source tree, TEMPLATES the output of buildTemplates.py, PROGRAM the folder to fill. Which product years
are installed, and where, is read from PROGRAM/sample.reg; what belongs to each from the catalogues.
"""

import re
import shutil
import sys
import xml.etree.ElementTree as ElementTree
from html import escape
from pathlib import Path

sys.dont_write_bytecode = True

from disclosureSource import examples_of_year, read_edition

OWN_CATALOGUE = "Zorvo Library.xml"
EXAMPLE_EXTENSION = "rtf"


def copy(source, target):
    """Copies where the contents differ, so that an unchanged file keeps its time."""
    if target.exists() and target.read_bytes() == source.read_bytes():
        return
    target.parent.mkdir(parents=True, exist_ok=True)
    shutil.copyfile(source, target)


def copy_tree(source, target):
    for path in sorted(source.rglob("*")):
        if path.is_file():
            copy(path, target / path.relative_to(source))


def installed_years(registry):
    """(product, year, folder) for every folder that an installer has registered."""
    key = None
    for line in registry.read_text(encoding="utf-8").splitlines():
        if line.startswith("["):
            key = line.strip("[]").split("\\")
        match = re.fullmatch(r'"AppPath2"="Z:(.*)"', line)
        if match:
            folder = Path(match[1].replace("\\\\", "/"))
            product, below = key[4], key[5]
            # A product of the year 2002 has its defaults directly below its key.
            yield product, "2002" if below == "InstallDefaults" else below, folder


def products_of(catalogue):
    return {(p.get("Acronym"), p.get("Year")): p for p in ElementTree.parse(catalogue).getroot().iter("Product")}


def install(product, folder, templates, carried):
    for name in {element.text.strip() for element in product.iter("File")}:
        kind = "excel" if name.lower().endswith(".xlt") else "word"
        copy(templates / kind / name, folder / name)
    if carried.is_dir():
        copy_tree(carried, folder)


def install_library(source, year, folder, templates):
    """An edition of the library: the examples, the frame of the result, and the master beside the folder."""
    examples = read_edition(source)
    for example in examples_of_year(examples, year):
        copy(templates / "disclosures" / source.stem / f"{example.title}.rtf", folder / f"{example.title}.rtf")
    newest = max((example.since for example in examples_of_year(examples, year)), default=0)
    copy(templates / "word" / "SWD.dot", folder / "SWD.dot")
    copy(templates / "masters" / source.stem / f"{newest}.dot", Path(f"{folder}All{EXAMPLE_EXTENSION}.dot"))


def report(products, target):
    """The list of all templates that the offerings form opens."""
    rows = []
    for (_, year), product in sorted(products.items()):
        rows.append(f"<h2>{escape(product.findtext('Name').strip())}, {escape(year)}</h2>\n<table>")
        for document in product.iter("Document"):
            name, what = document.findtext("Name", "").strip(), document.findtext("Desc", "").strip()
            rows.append(f"<tr><td>{escape(name)}</td><td>{escape(what)}</td></tr>")
        rows.append("</table>")
    target.write_text(
        '<!DOCTYPE html>\n<html lang="en"><head><meta charset="utf-8"><title>Library Template Report</title>\n'
        "<style>body{font-family:sans-serif;margin:2em;color:#24303d}td{padding:2px 12px 2px 0;vertical-align:top}"
        "td:first-child{white-space:nowrap}h2{color:#17324d}</style></head>\n"
        "<body><h1>Library Template Report</h1>\n" + "\n".join(rows) + "\n</body></html>\n",
        encoding="utf-8",
    )


def main(source, templates, program):
    copy_tree(source / "TreeData", program / "TreeData")
    copy(source / "sample" / "xmlCaptions.xml", program / "xmlCaptions.xml")
    for company in ("OTR", "MRL"):
        copy(source / company / "xmlCaptions.xml", program / company / "xmlCaptions.xml")

    central = products_of(source / "TreeData" / OWN_CATALOGUE)
    for acronym, year, folder in installed_years(program / "sample.reg"):
        carried = source / "sample" / "products" / acronym / year
        own = carried / OWN_CATALOGUE
        product = (products_of(own) if own.exists() else central)[acronym, year]
        install(product, folder, templates, carried)
        edition = source / "sample" / "templates" / "disclosures" / f"{acronym}.txt"
        if edition.exists():
            install_library(edition, year, folder, templates)
        if (folder / "HTML").is_dir():
            for path in (program / "TreeData" / "HTML").glob("*.[cp][sn][sg]"):
                copy(path, folder / "HTML" / path.name)
    report(central, program / "TreeData" / "Zorvo LIBRARY TEMPLATE REPORT.HTM")


if __name__ == "__main__":
    main(*map(Path, sys.argv[1:4]))
