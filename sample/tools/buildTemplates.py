#!/usr/bin/python3
"""Builds the binary templates of the sample products.

    buildTemplates.py SOURCES OUTPUT

SOURCES holds word/*.txt, excel/*.txt and disclosures/EDITION.txt. Each of the first two becomes a flat document below
OUTPUT/flat, and LibreOffice turns these, all of one kind in one run, into OUTPUT/word/*.dot and OUTPUT/excel/*.xlt.
An edition's examples become OUTPUT/disclosures/EDITION/*.rtf, and its masters, which hold all examples, become
OUTPUT/masters/EDITION/YEAR.dot, where YEAR is the first that has just these; "0" is the oldest.
Only documents that changed are converted again.
"""

import os
import shutil
import subprocess
import sys
from pathlib import Path

sys.dont_write_bytecode = True

from disclosureSource import examples_of_year, read_edition
from excelTemplate import excel_document
from richText import rich_text
from templateSource import Source, SourceError, read_source
from wordTemplate import word_document

WORD = ("dot", "MS Word 97 Vorlage")
EXCEL = ("xlt", "MS Excel 97 Vorlage/Template")
COMPOUND_FILE = bytes.fromhex("D0CF11E0A1B11AE1")
SECONDS_PER_RUN = 300


def write_if_changed(path, text):
    """True when the file was written anew."""
    if path.exists() and path.read_text(encoding="utf-8") == text:
        return False
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_text(text, encoding="utf-8")
    return True


def remove_strangers(folder, names):
    for path in folder.glob("*"):
        if path.is_file() and path.name not in names:
            path.unlink()


def is_whole(path):
    if not path.exists():
        return False
    return path.read_bytes()[:8] == COMPOUND_FILE


def convert(flat_files, target, kind, profile):
    """One run of LibreOffice over all the files."""
    extension, office_filter = kind
    target.mkdir(parents=True, exist_ok=True)
    command = ["soffice", f"-env:UserInstallation={profile.as_uri()}", "--headless", "--norestore", "--convert-to",
               f"{extension}:{office_filter}", "--outdir", str(target), *map(str, flat_files)]
    environment = {**os.environ, "SAL_USE_VCLPLUGIN": "svp", "LC_ALL": "C.UTF-8"}
    result = subprocess.run(command, capture_output=True, text=True, timeout=SECONDS_PER_RUN, env=environment)
    for flat in flat_files:
        made = target / f"{flat.stem}.{extension}"
        if not is_whole(made):
            made.unlink(missing_ok=True)
            raise SourceError(f"{flat}: LibreOffice made no {extension} of it\n{result.stdout}{result.stderr}")


def build(documents, flat_folder, target, kind, profile):
    """`documents` are (stem, flat text); converts those that changed or that have no result."""
    extension = kind[0]
    flat_extension = "fods" if kind is EXCEL else "fodt"
    pending = []
    for stem, text in documents:
        flat = flat_folder / f"{stem}.{flat_extension}"
        made = target / f"{stem}.{extension}"
        if write_if_changed(flat, text) or not is_whole(made):
            made.unlink(missing_ok=True)
            pending.append(flat)
    stems = [stem for stem, _ in documents]
    remove_strangers(flat_folder, {f"{stem}.{flat_extension}" for stem in stems})
    remove_strangers(target, {f"{stem}.{extension}" for stem in stems})
    if pending:
        convert(pending, target, kind, profile)
    return len(pending)


def sources_in(folder):
    return [read_source(path) for path in sorted(folder.glob("*.txt"))]


def row_text(cells):
    return ": ".join(filter(None, [cells[0], ", ".join(filter(None, cells[1:]))]))


def master_of(edition, examples):
    """All examples of an edition in one document, each a table of one column."""
    head = {"title": "All Examples", "reference": "", "purpose": "Every example of this edition.", "kind": "letter"}
    lines = []
    for example in examples:
        texts = [example.title]
        for block in example.blocks:
            texts += [row_text(cells) for cells in block] if isinstance(block, list) else [block]
        lines += [(0, f"| {text} |") for text in filter(None, texts)] + [(0, "")]
    return Source(edition, head, lines)


def build_edition(path, output, profile):
    examples = read_edition(path)
    folder = output / "disclosures" / path.stem
    for example in examples:
        write_if_changed(folder / f"{example.title}.rtf", rich_text(example))
    remove_strangers(folder, {f"{example.title}.rtf" for example in examples})
    years = sorted({example.since for example in examples} | {0})
    masters = [
        (str(year), word_document(master_of(path, examples_of_year(examples, f"{year:04}")))) for year in years
    ]
    return build(masters, output / "flat" / "masters" / path.stem, output / "masters" / path.stem, WORD, profile)


def main(sources, output):
    profile = (output / "profile").resolve()
    flat = output / "flat"
    count = 0
    word = [(s.path.stem, word_document(s)) for s in sources_in(sources / "word")]
    count += build(word, flat / "word", output / "word", WORD, profile)
    excel = [(s.path.stem, excel_document(s)) for s in sources_in(sources / "excel")]
    count += build(excel, flat / "excel", output / "excel", EXCEL, profile)
    for edition in sorted((sources / "disclosures").glob("*.txt")):
        count += build_edition(edition, output, profile)
    shutil.rmtree(profile, ignore_errors=True)
    print(f"{count} templates and masters were converted")


if __name__ == "__main__":
    try:
        main(Path(sys.argv[1]), Path(sys.argv[2]))
    except (SourceError, subprocess.TimeoutExpired) as error:
        sys.exit(f"buildTemplates.py: {error}")
