"""Sources of the example library: one text file per edition, disclosures/EDITION.txt.

A line "== Title" begins an example; its title is also the name of its file. Below it stand paragraphs, one a line, and
rows of tables, "| cell | cell |"; adjacent rows make one table. "(since YEAR)" at the end of the last paragraph leaves
the example out of older years. Empty lines, and lines that begin with "#", are for the reader of the source.
"""

import re
from dataclasses import dataclass, field

from templateSource import SourceError

SINCE = re.compile(r" \(since (\d{4})\)$")
NOT_IN_A_NAME = set('\\/:*?"<>|')


@dataclass
class Example:
    title: str
    since: int = 0
    blocks: list = field(default_factory=list)  # a paragraph's text, or a table's rows of cells


def read_edition(path):
    examples, names = [], set()
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        if not line.strip() or line.startswith("#"):
            continue
        if line.startswith("== "):
            title = line[3:].strip()
            if title.upper() in names or NOT_IN_A_NAME & set(title):
                raise SourceError(f"{path}:{number}: '{title}' can't be the name of another file")
            names.add(title.upper())
            examples.append(Example(title))
        elif not examples:
            raise SourceError(f"{path}:{number}: text before the first '== Title'")
        elif line.startswith("|"):
            add_row(examples[-1], [cell.strip() for cell in line.strip().strip("|").split("|")], path, number)
        else:
            add_paragraph(examples[-1], line)
    for example in examples:
        if not example.blocks:
            raise SourceError(f"{path}: '{example.title}' has no text")
    return examples


def add_row(example, cells, path, number):
    if example.blocks and isinstance(example.blocks[-1], list):
        if len(cells) != len(example.blocks[-1][0]):
            raise SourceError(f"{path}:{number}: {len(cells)} cells in a table of {len(example.blocks[-1][0])} columns")
        example.blocks[-1].append(cells)
    else:
        example.blocks.append([cells])


def add_paragraph(example, line):
    since = SINCE.search(line)
    if since:
        example.since = int(since[1])
        line = line[:since.start()]
    example.blocks.append(line)


def examples_of_year(examples, year):
    """`year` as the registry has it: 2007, or 20070601."""
    return [example for example in examples if example.since <= int(year[:4])]
