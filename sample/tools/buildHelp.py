#!/usr/bin/python3
"""buildHelp.py PROJECT CAPTIONS COMPANY OUTPUT: makes a compiled help file of a help project.

PROJECT is an .hhp file as help compilers take it; the files that it names lie beside it. CAPTIONS is the caption document
of the company whose wording the pages get, COMPANY its short name. The pages stand in the container as they are, without
compression, so the same sources give the same bytes.

Words in the sources: ?Program? is the program's name; ?Contact?, ?Questions?, ?Support?, ?Tour? and ?Account? are the
company's web addresses; ?Product?, ?Folder? and ?Document? what it calls the three kinds of entries. For another company
than the house its own replacements are made and the house's name is exchanged, as the program does on its screen."""

import re
import struct
import sys
import uuid
import xml.etree.ElementTree as ElementTree
from html import escape
from pathlib import Path

HOUSE = "Zorvo"
ENGLISH = 0x0409
DIRECTORY_BLOCK = 0x1000
SYSTEM_GUID = uuid.UUID("7C01FD10-7BAA-11D0-9E0C-00A0C922E6EC").bytes_le
SECOND_GUID = uuid.UUID("7C01FD11-7BAA-11D0-9E0C-00A0C922E6EC").bytes_le
DIRECTORY_GUID = uuid.UUID("5D02926A-212E-11D0-9DF9-00A0C922E6EC").bytes_le
NONE = 0xFFFFFFFF


class Wording:
    """What a company's caption document makes of the house's words."""

    ADDRESSES = {"Contact": "ContactUs", "Questions": "OnTheWeb1", "Support": "OnTheWeb3", "Tour": "QuickTour",
                 "Account": "MyAccount"}
    KINDS = {"Product": "CategoryDescrProduct", "Folder": "CategoryDescrCategeory", "Document": "CategoryDescrDocument"}
    DISPLAY = {"OTR": "OT&R"}

    def __init__(self, captions, company):
        root = ElementTree.parse(captions).getroot()
        self.company = company
        self.words = {"Program": root.findtext("TemplateTreeCaptions/DialogTitle")}
        self.words.update((word, root.findtext("Web/" + tag)) for word, tag in self.ADDRESSES.items())
        self.words.update((word, root.findtext("TemplateTreeCaptions/" + tag)) for word, tag in self.KINDS.items())
        self.pairs = []
        rebrand = root.find("Rebrand")
        while rebrand is not None and rebrand.find("Find%d" % (len(self.pairs) + 1)) is not None:
            number = len(self.pairs) + 1
            self.pairs.append((rebrand.findtext("Find%d" % number), rebrand.findtext("Replace%d" % number, "")))

    def plain(self, text):
        """Text that isn't markup."""
        return self._replaced(text, lambda word: word)

    def page(self, text):
        return self._replaced(text, lambda word: escape(word, quote=True).replace("&#x27;", "'"))

    def _replaced(self, text, written):
        if self.company != HOUSE:
            for find, replace in self.pairs:
                text = text.replace(written(find), written(replace))
            # The house's name stays where it leads into a longer word.
            text = re.sub(HOUSE + r"(?![0-9A-Za-z_])", written(self.DISPLAY.get(self.company, self.company)), text)
        for word, meaning in self.words.items():
            text = text.replace("?%s?" % word, written(meaning))
        return text


class Project:
    """An .hhp file: its options, the window, the files and the numbered topics."""

    def __init__(self, path):
        self.folder = path.parent
        sections = {}
        for line in path.read_text(encoding="utf-8").splitlines():
            line = line.strip()
            if line.startswith("["):
                section = sections.setdefault(line.strip("[]").upper(), [])
            elif line and not line.startswith(";"):
                section.append(line)
        self.options = dict(line.split("=", 1) for line in sections["OPTIONS"])
        self.files = sections["FILES"]
        self.window, settings = sections["WINDOWS"][0].split("=", 1)
        self.title, self.contents, self.index, self.start = re.findall(r'"([^"]*)"', settings)[:4]
        pages = dict(line.split("=", 1) for line in sections["ALIAS"])
        self.topics = {}
        for line in sections["MAP"]:
            _, name, number = line.split()
            self.topics[int(number)] = pages.pop(name)
        if pages:
            raise SystemExit("%s: no number for %s" % (path, ", ".join(pages)))


class Strings:
    """A run of texts, each ended by a zero; the first byte is one too, so that no text stands at 0."""

    def __init__(self):
        self.bytes = b"\0"

    def add(self, text):
        at = len(self.bytes)
        self.bytes += text.encode("cp1252") + b"\0"
        return at


def system_record(project, title):
    def entry(code, data):
        return struct.pack("<HH", code, len(data)) + data

    def text(value):
        return value.encode("cp1252") + b"\0"

    return (struct.pack("<I", 3) + entry(0, text(project.contents)) + entry(1, text(project.index))
            + entry(2, text(project.start)) + entry(3, text(title)) + entry(4, struct.pack("<I", ENGLISH) + bytes(32))
            + entry(5, text(project.window)))


def window_record(project, title, strings):
    window = bytearray(0xC4)

    def put(place, value):
        struct.pack_into("<I", window, place, value)

    put(0x00, len(window))
    put(0x08, strings.add(project.window))
    put(0x14, strings.add(title))
    put(0x60, strings.add(project.contents))
    put(0x64, strings.add(project.index))
    put(0x68, strings.add(project.start))
    put(0x6C, strings.add(project.start))
    return struct.pack("<II", 1, len(window)) + bytes(window)


def number_record(project, strings):
    pairs = b"".join(struct.pack("<II", number, strings.add(page)) for number, page in sorted(project.topics.items()))
    return struct.pack("<I", len(pairs)) + pairs


def book_files(project, wording):
    """(path, bytes) of all that lies in the book."""
    title = wording.plain(project.title)
    strings = Strings()
    files = [("/#SYSTEM", system_record(project, title)), ("/#WINDOWS", window_record(project, title, strings)),
             ("/#IVB", number_record(project, strings))]
    files.append(("/#STRINGS", strings.bytes))
    for name in [project.contents, project.index, *project.files]:
        source = project.folder / name
        data = source.read_bytes()
        if source.suffix in (".htm", ".hhc", ".hhk"):
            data = wording.page(data.decode("utf-8")).encode("utf-8")
        files.append(("/" + name, data))
    return files


# --- The container


def number(value):
    """A number of the directory: seven bits a byte, the highest first."""
    parts = [value & 0x7F]
    while value > 0x7F:
        value >>= 7
        parts.append(value & 0x7F | 0x80)
    return bytes(reversed(parts))


def directory_entry(path, offset, length):
    name = path.encode("utf-8")
    return number(len(name)) + name + number(0) + number(offset) + number(length)


def block(magic, header, entries):
    """One block of the directory: entries from the front, from the back how many and where every fifth begins."""
    used = len(header) + 8 + sum(map(len, entries))
    quick = b""
    at = 0
    for i, entry in enumerate(entries):
        if i and i % 5 == 0:
            quick = struct.pack("<H", at) + quick
        at += len(entry)
    quick += struct.pack("<H", len(entries))
    free = DIRECTORY_BLOCK - used
    if free < len(quick):
        raise SystemExit("a block of the directory is too full")
    return magic + struct.pack("<I", free) + header + b"".join(entries) + bytes(free - len(quick)) + quick


def directory(entries):
    """The directory of sorted (path, offset, length)."""
    room = DIRECTORY_BLOCK - 64
    leaves = [[]]
    for entry in entries:
        packed = (entry[0], directory_entry(*entry))
        if sum(len(e) + 1 for _, e in leaves[-1]) + len(packed[1]) + 1 > room:
            leaves.append([])
        leaves[-1].append(packed)
    blocks = []
    for i, leaf in enumerate(leaves):
        following = i + 1 if i + 1 < len(leaves) else NONE
        header = struct.pack("<III", 0, i - 1 if i else NONE, following)
        blocks.append(block(b"PMGL", header, [packed for _, packed in leaf]))
    root = NONE
    if len(leaves) > 1:
        root = len(blocks)
        heads = [number(len(leaf[0][0].encode())) + leaf[0][0].encode() + number(i) for i, leaf in enumerate(leaves)]
        blocks.append(block(b"PMGI", b"", heads))
    header = b"ITSP" + struct.pack("<IIIIIIIIIIII", 1, 0x54, 10, DIRECTORY_BLOCK, 2, 1 if root == NONE else 2, root, 0,
                                   len(leaves) - 1, NONE, len(blocks), ENGLISH)
    header += DIRECTORY_GUID + struct.pack("<IIII", 0x54, NONE, NONE, NONE)
    return header + b"".join(blocks)


def container(files):
    content = b""
    entries = [("/", 0, 0)]
    for path, data in files:
        entries.append((path, len(content), len(data)))
        content += data
    entries.sort(key=lambda entry: entry[0].lower())
    listing = directory(entries)
    listing_at = 0x60 + 0x18
    content_at = listing_at + len(listing)
    header = b"ITSF" + struct.pack("<IIIII", 3, 0x60, 1, 0, ENGLISH) + SYSTEM_GUID + SECOND_GUID
    header += struct.pack("<QQQQQ", 0x60, 0x18, listing_at, len(listing), content_at)
    first = struct.pack("<IIQII", 0x1FE, 0, content_at + len(content), 0, 0)
    return header + first + listing + content


def main(project, captions, company, output):
    project = Project(Path(project))
    data = container(book_files(project, Wording(captions, company)))
    output = Path(output)
    output.parent.mkdir(parents=True, exist_ok=True)
    output.write_bytes(data)


if __name__ == "__main__":
    if len(sys.argv) != 5:
        raise SystemExit(__doc__)
    main(*sys.argv[1:])
