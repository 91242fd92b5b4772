"""Sources of the sample templates: a head of "key: value" lines, a line "---", and the body.

Keys: `title`, `reference` (of the working paper), `purpose` (one sentence for the person who opens it),
`engagement` (first value of the engagement type) and, for Word, `kind` (letter or paper).
"""

from dataclasses import dataclass
from pathlib import Path
from xml.sax.saxutils import escape

# Document properties that a new document's first page shows, with the text that stands until they are filled.
PROPERTIES = {
    "ClientName": "[Client name]",
    "PeriodEnd": "[Period end]",
    "EngagementType": "[Engagement type]",
    "PreparedBy": "[Preparer]",
    "ReviewedBy": "[Reviewer]",
}

LABELS = {
    "ClientName": "Client",
    "PeriodEnd": "Period end",
    "EngagementType": "Engagement",
    "PreparedBy": "Prepared by",
    "ReviewedBy": "Reviewed by",
}

NAMESPACES = " ".join(
    f'xmlns:{prefix}="urn:oasis:names:tc:opendocument:xmlns:{name}:1.0"'
    for prefix, name in {
        "office": "office",
        "style": "style",
        "text": "text",
        "table": "table",
        "fo": "xsl-fo-compatible",
        "meta": "meta",
        "number": "datastyle",
        "svg": "svg-compatible",
    }.items()
) + ' xmlns:of="urn:oasis:names:tc:opendocument:xmlns:of:1.2" xmlns:dc="http://purl.org/dc/elements/1.1/"'


class SourceError(Exception):
    """A template source that can't be read; the text names file and line."""


@dataclass
class Source:
    path: Path
    head: dict
    lines: list  # (line number, text) of the body

    def properties(self):
        values = dict(PROPERTIES)
        values["EngagementType"] = self.head.get("engagement", values["EngagementType"])
        return values

    def fail(self, number, what):
        raise SourceError(f"{self.path}:{number}: {what}")


def read_source(path):
    head = {}
    lines = path.read_text(encoding="utf-8").splitlines()
    for index, line in enumerate(lines):
        if line == "---":
            break
        key, separator, value = line.partition(": ")
        if not separator:
            raise SourceError(f"{path}:{index + 1}: expected 'key: value' or '---'")
        head[key] = value.strip()
    else:
        raise SourceError(f"{path}: no line '---' after the head")
    for key in ("title", "reference", "purpose"):
        if key not in head:
            raise SourceError(f"{path}: the head lacks '{key}'")
    body = [(number + 1, line) for number, line in enumerate(lines)][index + 1:]
    return Source(path, head, body)


def meta(source):
    """The document properties, the program's own among them."""
    own = "".join(
        f'<meta:user-defined meta:name="{name}">{escape(value)}</meta:user-defined>'
        for name, value in source.properties().items()
    )
    return (
        f"<office:meta><dc:title>{escape(source.head['title'])}</dc:title>"
        f"<dc:description>{escape(source.head['purpose'])}</dc:description>{own}</office:meta>"
    )


def document(source, mimetype, styles, body):
    return (
        f'<?xml version="1.0" encoding="UTF-8"?>\n<office:document {NAMESPACES} office:version="1.3" '
        f'office:mimetype="application/vnd.oasis.opendocument.{mimetype}">\n'
        f"{meta(source)}\n{styles}\n<office:body>\n{body}\n</office:body>\n</office:document>\n"
    )
