"""Makes a flat Writer document from the source of a Word template.

A body line beginning with     becomes
    # or ##                    a heading
    -                          a bulleted paragraph
    1.                         a numbered paragraph
    |                          a table row, cells parted by |; the first row is the heading
    |%                         the widths of the next table's columns in per cent
    ?                          a question of a checklist with Yes, No, N/A and a reference
    >                          a step of a programme with initials, date and a reference
    !                          guidance for the writer, to be deleted from the finished paper
    _                          a line to sign on, with what stands below it
    ===                        a page break
Other lines are text: adjacent lines join to a paragraph, a backslash at the end breaks the line. Inside a text
{ClientName} shows a document property, **text** is bold and *text* is italic.
"""

import re
from xml.sax.saxutils import escape

from templateSource import LABELS, document

TEXT_WIDTH_CM = 16.6
CHECK_WIDTHS = [6, 54, 7, 7, 7, 19]
CHECK_HEADING = ["No.", "Question", "Yes", "No", "N/A", "Reference or comment"]
STEP_WIDTHS = [6, 58, 11, 11, 14]
STEP_HEADING = ["No.", "Procedure", "Done by", "Date", "Reference"]

STYLES = """
<office:styles>
<style:default-style style:family="paragraph"><style:paragraph-properties style:tab-stop-distance="1.25cm"/>
<style:text-properties style:font-name="Arial" fo:font-family="Arial" fo:font-size="10pt" fo:language="en"
 fo:country="US"/></style:default-style>
<style:style style:name="Standard" style:family="paragraph"/>
<style:style style:name="Text_20_body" style:display-name="Text body" style:family="paragraph"
 style:parent-style-name="Standard"><style:paragraph-properties fo:margin-bottom="0.22cm" fo:line-height="115%"/>
</style:style>
<style:style style:name="Title" style:family="paragraph" style:parent-style-name="Standard">
<style:paragraph-properties fo:margin-top="0.2cm" fo:margin-bottom="0.25cm" fo:keep-with-next="always"/>
<style:text-properties fo:font-size="17pt" fo:font-weight="bold" fo:color="#17324d"/></style:style>
<style:style style:name="Heading_20_1" style:display-name="Heading 1" style:family="paragraph"
 style:parent-style-name="Standard" style:default-outline-level="1">
<style:paragraph-properties fo:margin-top="0.45cm" fo:margin-bottom="0.15cm" fo:keep-with-next="always"/>
<style:text-properties fo:font-size="12pt" fo:font-weight="bold" fo:color="#17324d"/></style:style>
<style:style style:name="Heading_20_2" style:display-name="Heading 2" style:family="paragraph"
 style:parent-style-name="Standard" style:default-outline-level="2">
<style:paragraph-properties fo:margin-top="0.3cm" fo:margin-bottom="0.1cm" fo:keep-with-next="always"/>
<style:text-properties fo:font-size="10.5pt" fo:font-weight="bold"/></style:style>
<style:style style:name="Guidance" style:family="paragraph" style:parent-style-name="Text_20_body">
<style:paragraph-properties fo:border-left="0.08cm solid #1f8a78" fo:padding-left="0.25cm"/>
<style:text-properties fo:font-style="italic" fo:color="#45596b" fo:font-size="9pt"/></style:style>
<style:style style:name="Cell" style:family="paragraph" style:parent-style-name="Standard">
<style:text-properties fo:font-size="9pt"/></style:style>
<style:style style:name="Cell_20_heading" style:display-name="Cell heading" style:family="paragraph"
 style:parent-style-name="Cell"><style:text-properties fo:font-weight="bold" fo:color="#17324d"/></style:style>
<style:style style:name="Signature" style:family="paragraph" style:parent-style-name="Standard">
<style:paragraph-properties fo:margin-top="1.2cm" fo:margin-bottom="0.2cm" fo:margin-right="8cm"
 fo:border-top="0.02cm solid #24303d" fo:padding-top="0.08cm"/></style:style>
<style:style style:name="Header" style:family="paragraph" style:parent-style-name="Standard">
<style:paragraph-properties fo:border-bottom="0.02cm solid #9aa7b5" fo:padding-bottom="0.1cm"><style:tab-stops>
<style:tab-stop style:position="16.6cm" style:type="right"/></style:tab-stops></style:paragraph-properties>
<style:text-properties fo:font-size="8.5pt" fo:color="#45596b"/></style:style>
<style:style style:name="Footer" style:family="paragraph" style:parent-style-name="Standard">
<style:paragraph-properties fo:border-top="0.02cm solid #9aa7b5" fo:padding-top="0.1cm"><style:tab-stops>
<style:tab-stop style:position="16.6cm" style:type="right"/></style:tab-stops></style:paragraph-properties>
<style:text-properties fo:font-size="8.5pt" fo:color="#45596b"/></style:style>
<text:list-style style:name="Bullets"><text:list-level-style-bullet text:level="1" text:bullet-char="\u2022">
<style:list-level-properties text:list-level-position-and-space-mode="label-alignment">
<style:list-level-label-alignment text:label-followed-by="listtab" fo:text-indent="-0.5cm" fo:margin-left="0.8cm"/>
</style:list-level-properties></text:list-level-style-bullet></text:list-style>
<text:list-style style:name="Numbers"><text:list-level-style-number text:level="1" style:num-format="1"
 style:num-suffix="."><style:list-level-properties text:list-level-position-and-space-mode="label-alignment">
<style:list-level-label-alignment text:label-followed-by="listtab" fo:text-indent="-0.7cm" fo:margin-left="1cm"/>
</style:list-level-properties></text:list-level-style-number></text:list-style>
</office:styles>
"""

AUTOMATIC = """
<office:automatic-styles>
<style:page-layout style:name="page"><style:page-layout-properties fo:page-width="21.59cm" fo:page-height="27.94cm"
 fo:margin-top="1.8cm" fo:margin-bottom="1.6cm" fo:margin-left="2.5cm" fo:margin-right="2.5cm"/>
<style:header-style><style:header-footer-properties fo:min-height="1cm" fo:margin-bottom="0.5cm"/></style:header-style>
<style:footer-style><style:header-footer-properties fo:min-height="0.9cm" fo:margin-top="0.4cm"/></style:footer-style>
</style:page-layout>
<style:style style:name="bold" style:family="text"><style:text-properties fo:font-weight="bold"/></style:style>
<style:style style:name="italic" style:family="text"><style:text-properties fo:font-style="italic"/></style:style>
<style:style style:name="break" style:family="paragraph" style:parent-style-name="Text_20_body">
<style:paragraph-properties fo:break-before="page"/></style:style>
<style:style style:name="cell" style:family="table-cell"><style:table-cell-properties fo:padding="0.12cm"
 fo:border="0.02cm solid #9aa7b5"/></style:style>
<style:style style:name="headcell" style:family="table-cell"><style:table-cell-properties fo:padding="0.12cm"
 fo:border="0.02cm solid #9aa7b5" fo:background-color="#e6edf3"/></style:style>
%s
</office:automatic-styles>
"""

MASTER = """
<office:master-styles><style:master-page style:name="Standard" style:page-layout-name="page">
<style:header><text:p text:style-name="Header">%s<text:tab/>%s</text:p></style:header>
<style:footer><text:p text:style-name="Footer">%s<text:tab/>Page <text:page-number/> of <text:page-count/></text:p>
</style:footer></style:master-page></office:master-styles>
"""

INLINE = re.compile(r"\{(\w+)\}|\*\*(.+?)\*\*|\*(.+?)\*")


class Writer:
    def __init__(self, source):
        self.source = source
        self.properties = source.properties()
        self.table_styles = []
        self.out = []

    def inline(self, text, number=0):
        parts, end = [], 0
        for match in INLINE.finditer(text):
            parts.append(escape(text[end:match.start()]))
            end = match.end()
            field, bold, italic = match.groups()
            if field:
                parts.append(self.field(field, number))
            elif bold:
                parts.append(f'<text:span text:style-name="bold">{self.inline(bold, number)}</text:span>')
            else:
                parts.append(f'<text:span text:style-name="italic">{self.inline(italic, number)}</text:span>')
        parts.append(escape(text[end:]))
        return "".join(parts).replace("\\\n", "<text:line-break/>")

    def field(self, name, number):
        if name not in self.properties:
            self.source.fail(number, f"no document property {name}")
        return f'<text:user-defined text:name="{name}">{escape(self.properties[name])}</text:user-defined>'

    def paragraph(self, style, text, number=0):
        self.out.append(f'<text:p text:style-name="{style}">{self.inline(text, number)}</text:p>')

    def heading(self, level, text, number):
        self.out.append(
            f'<text:h text:style-name="Heading_20_{level}" text:outline-level="{level}">'
            f"{self.inline(text, number)}</text:h>"
        )

    def items(self, style, texts):
        rows = "".join(
            f'<text:list-item><text:p text:style-name="Text_20_body">{self.inline(text, number)}</text:p>'
            "</text:list-item>"
            for number, text in texts
        )
        self.out.append(f'<text:list text:style-name="{style}">{rows}</text:list>')

    def table(self, widths, rows, heading_row=True, heading_column=False):
        name = f"table{len(self.table_styles) + 1}"
        columns = "".join(
            f'<style:style style:name="{name}.{i}" style:family="table-column"><style:table-column-properties '
            f'style:column-width="{TEXT_WIDTH_CM * width / sum(widths):.2f}cm"/></style:style>'
            for i, width in enumerate(widths)
        )
        self.table_styles.append(
            f'<style:style style:name="{name}" style:family="table"><style:table-properties '
            f'style:width="{TEXT_WIDTH_CM}cm" table:align="left" fo:margin-bottom="0.3cm"/></style:style>{columns}'
        )
        self.out.append(f'<table:table table:name="{name}" table:style-name="{name}">')
        self.out += [f'<table:table-column table:style-name="{name}.{i}"/>' for i in range(len(widths))]
        for index, (number, cells) in enumerate(rows):
            if len(cells) != len(widths):
                self.source.fail(number, f"{len(cells)} cells in a table of {len(widths)} columns")
            row = "".join(
                self.cell(cell, (heading_row and index == 0) or (heading_column and column % 2 == 0), number)
                for column, cell in enumerate(cells)
            )
            row = f"<table:table-row>{row}</table:table-row>"
            if heading_row and index == 0:
                row = f"<table:table-header-rows>{row}</table:table-header-rows>"
            self.out.append(row)
        self.out.append('</table:table><text:p text:style-name="Cell"/>')

    def cell(self, text, is_heading, number):
        style, paragraph = ("headcell", "Cell_20_heading") if is_heading else ("cell", "Cell")
        return (
            f'<table:table-cell table:style-name="{style}" office:value-type="string">'
            f'<text:p text:style-name="{paragraph}">{self.inline(text, number)}</text:p></table:table-cell>'
        )

    def first_page_block(self):
        pairs = [(LABELS[name], f"{{{name}}}") for name in self.properties] + [("Reference", self.source.head["reference"])]
        rows = [(0, [*pairs[i], *pairs[i + 1]]) for i in range(0, len(pairs), 2)]
        self.table([16, 34, 16, 34], rows, heading_row=False, heading_column=True)


def grouped(lines):
    """Runs of lines of one kind: (kind, [(number, text), ...])."""
    kinds = {"# ": "h1", "## ": "h2", "- ": "bullet", "1. ": "number", "|% ": "widths", "| ": "row",
             "? ": "check", "> ": "step", "! ": "guidance", "_ ": "signature"}
    run, run_kind = [], None
    for number, line in lines:
        kind, text = ("blank", "") if not line.strip() else ("text", line)
        if line == "===":
            kind, text = "break", ""
        for mark, name in kinds.items():
            if line.startswith(mark):
                kind, text = name, line[len(mark):].strip()
        joins = kind == run_kind and kind not in ("h1", "h2", "blank", "break", "guidance", "signature")
        if run and not joins:
            yield run_kind, run
            run = []
        run_kind = kind
        run.append((number, text))
    if run:
        yield run_kind, run


def cells_of(line):
    return [cell.strip() for cell in line.strip().rstrip("|").split("|")]


def numbered(texts, columns):
    return [(number, [str(i + 1), text] + [""] * columns) for i, (number, text) in enumerate(texts)]


def write_body(writer, lines):
    widths = None
    counts = {"check": 0, "step": 0}
    for kind, texts in grouped(lines):
        number, text = texts[0]
        if kind == "text":
            writer.paragraph("Text_20_body", join_lines(texts), number)
        elif kind in ("h1", "h2"):
            writer.heading(1 if kind == "h1" else 2, text, number)
        elif kind in ("bullet", "number"):
            writer.items("Bullets" if kind == "bullet" else "Numbers", texts)
        elif kind == "guidance":
            writer.paragraph("Guidance", text, number)
        elif kind == "signature":
            writer.paragraph("Signature", text, number)
        elif kind == "break":
            writer.paragraph("break", "")
        elif kind == "widths":
            widths = [int(width) for width in text.split()]
        elif kind == "row":
            rows = [(n, cells_of(row)) for n, row in texts]
            writer.table(widths or [1] * len(rows[0][1]), rows)
            widths = None
        elif kind == "check":
            write_questions(writer, texts, counts, "check", CHECK_WIDTHS, CHECK_HEADING)
        elif kind == "step":
            write_questions(writer, texts, counts, "step", STEP_WIDTHS, STEP_HEADING)


def write_questions(writer, texts, counts, kind, widths, heading):
    rows = [(0, heading)]
    for number, text in texts:
        counts[kind] += 1
        rows.append((number, [str(counts[kind]), text] + [""] * (len(widths) - 2)))
    writer.table(widths, rows)


def join_lines(texts):
    joined = ""
    for _, text in texts:
        joined += ("" if not joined else "\n" if joined.endswith("\\") else " ") + text.strip()
    return joined


def word_document(source):
    writer = Writer(source)
    if source.head.get("kind") != "letter":
        writer.paragraph("Title", source.head["title"])
        writer.first_page_block()
    write_body(writer, source.lines)
    header = MASTER % (
        writer.inline("{ClientName}, {PeriodEnd}, {EngagementType}"),
        escape(f"{source.head['title']}  {source.head['reference']}"),
        writer.inline("Prepared by {PreparedBy}, reviewed by {ReviewedBy}"),
    )
    styles = STYLES + AUTOMATIC % "".join(writer.table_styles) + header
    body = "<office:text>\n" + "\n".join(writer.out) + "\n</office:text>"
    return document(source, "text", styles, body)
