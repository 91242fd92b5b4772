#!/usr/bin/python3
"""Builds the binary templates of the sample products.

    buildTemplates.py SOURCES OUTPUT

SOURCES holds word/*.txt, excel/*.txt and disclosures/EDITION/*.txt. Each becomes a flat document below OUTPUT/flat,
and LibreOffice turns these, all of one kind in one run, into OUTPUT/word/*.dot, OUTPUT/excel/*.xlt and
OUTPUT/disclosures/EDITION/*.rtf. Only documents that changed are converted again.
"""

import os
import shutil
import subprocess
import sys
from pathlib import Path

sys.dont_write_bytecode = True

from excelTemplate import excel_document
from templateSource import Source, SourceError, read_source
from wordTemplate import word_document

WORD = ("dot", "MS Word 97 Vorlage")
EXCEL = ("xlt", "MS Excel 97 Vorlage/Template")
RTF = ("rtf", "Rich Text Format")
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


def is_whole(path, extension):
    if not path.exists():
        return False
    start = path.read_bytes()[:8]
    return start.startswith(b"{\\rtf") if extension == "rtf" else start == COMPOUND_FILE


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
        if not is_whole(made, extension):
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
        if write_if_changed(flat, text) or not is_whole(made, extension):
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


def master_of(edition, examples):
    """All examples of an edition in one document, each a table of one cell."""
    head = {"title": "All Examples", "reference": "", "purpose": "Every example of this edition.", "kind": "letter"}
    lines = []
    for example in examples:
        text = " ".join(line for _, line in example.lines if line.strip() and not line.startswith("#"))
        lines += [(0, f"| {example.head['title']} |"), (0, f"| {text} |"), (0, "")]
    return Source(edition, head, lines)


def main(sources, output):
    profile = (output / "profile").resolve()
    flat = output / "flat"
    count = 0
    word = [(s.path.stem, word_document(s)) for s in sources_in(sources / "word")]
    count += build(word, flat / "word", output / "word", WORD, profile)
    excel = [(s.path.stem, excel_document(s)) for s in sources_in(sources / "excel")]
    count += build(excel, flat / "excel", output / "excel", EXCEL, profile)
    for edition in sorted((sources / "disclosures").iterdir()):
        examples = sources_in(edition)
        target = output / "disclosures" / edition.name
        texts = [(s.path.stem, word_document(s)) for s in examples]
        count += build(texts, flat / "disclosures" / edition.name, target, RTF, profile)
        master = [("master", word_document(master_of(edition, examples)))]
        count += build(master, flat / "masters" / edition.name, output / "masters" / edition.name, WORD, profile)
    shutil.rmtree(profile, ignore_errors=True)
    print(f"{count} of {len(word) + len(excel)} templates and the examples were converted")


if __name__ == "__main__":
    try:
        main(Path(sys.argv[1]), Path(sys.argv[2]))
    except (SourceError, subprocess.TimeoutExpired) as error:
        sys.exit(f"buildTemplates.py: {error}")
