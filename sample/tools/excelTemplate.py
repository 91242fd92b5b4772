"""Makes a flat Calc document from the source of an Excel template.

A body line beginning with     becomes
    sheet NAME                 a new sheet
    widths 40 14 14            the widths of its columns in millimetres
    #                          a section heading
    !                          guidance
    =                          a heading row, cells parted by |
    +                          a total row
    @name                      (in front of a row) a name for the row
Other lines are rows. A cell is a text, a number, a formula beginning with =, or, in square brackets, an input cell
with its first value. In front of a formula or an input cell % asks for per cent and ~ for two decimals. In a formula
{name} is the number of a named row of the same sheet, {r} that of the row itself; {r-1} and {name+1} count from there.
Arguments are parted by semicolons. The first sheet begins with the title and the properties of the document.
"""

import re
from xml.sax.saxutils import escape, quoteattr

from templateSource import LABELS, document

FORMATS = {"": "whole", "%": "percent", "~": "decimal"}
REFERENCE = re.compile(
    r'"[^"]*"|(?:(\'[^\']+\'|[A-Za-z]\w*)!)?(\$?[A-Z]{1,2}\$?\d+)(?::(\$?[A-Z]{1,2}\$?\d+))?(?![\w(])'
)
ROW = re.compile(r"\{(\w+)([+-]\d+)?\}")

CELL_LOOKS = {
    "title": ('fo:font-size="15pt" fo:font-weight="bold" fo:color="#17324d"', ""),
    "guidance": ('fo:font-style="italic" fo:color="#45596b" fo:font-size="9pt"', ""),
    "section": ('fo:font-weight="bold" fo:color="#17324d" fo:font-size="11pt"', ""),
    "heading": ('fo:font-weight="bold" fo:color="#17324d"',
                'fo:background-color="#e6edf3" fo:border="0.02cm solid #9aa7b5" fo:wrap-option="wrap"'),
    "cell": ("", 'fo:border="0.02cm solid #c9d2db"'),
    "input": ("", 'fo:border="0.02cm solid #c9d2db" fo:background-color="#fff8e1"'),
    "total": ('fo:font-weight="bold"',
              'fo:border-top="0.03cm solid #24303d" fo:border-bottom="0.06cm double #24303d"'),
    "label": ('fo:font-weight="bold" fo:color="#17324d"', 'fo:background-color="#e6edf3"'),
}

NUMBER_STYLES = """
<number:number-style style:name="whole"><number:number number:decimal-places="0" number:min-decimal-places="0"
 number:min-integer-digits="1" number:grouping="true"/></number:number-style>
<number:number-style style:name="decimal"><number:number number:decimal-places="2" number:min-decimal-places="2"
 number:min-integer-digits="1" number:grouping="true"/></number:number-style>
<number:percentage-style style:name="percent"><number:number number:decimal-places="1" number:min-decimal-places="1"
 number:min-integer-digits="1"/><number:text>%</number:text></number:percentage-style>
"""

PAGE = """
<style:page-layout style:name="page"><style:page-layout-properties fo:page-width="27.94cm" fo:page-height="21.59cm"
 style:print-orientation="landscape" fo:margin="1.5cm" style:scale-to-X="1" style:scale-to-Y="0"/>
<style:header-style><style:header-footer-properties fo:min-height="0.75cm" fo:margin-bottom="0.25cm"/></style:header-style>
<style:footer-style><style:header-footer-properties fo:min-height="0.75cm" fo:margin-top="0.25cm"/></style:footer-style>
</style:page-layout>
"""

MASTER = """
<office:master-styles><style:master-page style:name="Default" style:page-layout-name="page">
<style:header><text:p>%s</text:p></style:header>
<style:footer><text:p><text:sheet-name/>, page <text:page-number/> of <text:page-count/></text:p></style:footer>
</style:master-page></office:master-styles>
"""


class Sheet:
    def __init__(self, name):
        self.name = name
        self.widths = []
        self.rows = []  # (line number, look, cells)
        self.names = {}

    def add(self, number, look, cells):
        self.rows.append((number, look, cells))


def first_rows(source, sheet):
    head = source.head
    sheet.add(0, "title", [head["title"]])
    sheet.add(0, "guidance", [f"{head['reference']}: {head['purpose']}"])
    for name, value in source.properties().items():
        sheet.names[name] = len(sheet.rows) + 1
        sheet.add(0, "property", [LABELS[name], f"[{value}]"])
    sheet.add(0, "cell", [])


def read_sheets(source):
    sheets = []
    for number, line in source.lines:
        if line.startswith("sheet "):
            sheets.append(Sheet(line[6:].strip()))
            if len(sheets) == 1:
                first_rows(source, sheets[0])
        elif not sheets:
            if line.strip():
                source.fail(number, "a row before the first sheet")
        elif line.startswith("widths "):
            sheets[-1].widths = [int(width) for width in line[7:].split()]
        else:
            read_row(source, sheets[-1], number, line)
    if not sheets:
        source.fail(0, "no sheet")
    return sheets


def read_row(source, sheet, number, line):
    if line.startswith("@"):
        name, _, line = line[1:].partition(" ")
        if name in sheet.names:
            source.fail(number, f"the row name {name} is taken")
        sheet.names[name] = len(sheet.rows) + 1
    look = "cell"
    for mark, meaning in {"# ": "section", "! ": "guidance", "= ": "heading", "+ ": "total"}.items():
        if line.startswith(mark):
            look, line = meaning, line[2:]
    cells = [line.strip()] if look in ("section", "guidance") else [cell.strip() for cell in line.split("|")]
    sheet.add(number, look, cells if line.strip() else [])


class Calc:
    def __init__(self, source):
        self.source = source
        self.styles = {}

    def style(self, look, format_mark, is_text=False):
        number_style = "" if is_text else FORMATS[format_mark]
        name = f"{look}-{number_style or 'text'}"
        if name not in self.styles:
            text, cell = CELL_LOOKS[look]
            data = f' style:data-style-name="{number_style}"' if number_style else ""
            self.styles[name] = (
                f'<style:style style:name="{name}" style:family="table-cell" style:parent-style-name="Default"{data}>'
                f"<style:table-cell-properties style:vertical-align=\"middle\" {cell}/><style:text-properties {text}/></style:style>"
            )
        return name

    def formula(self, sheet, row, number, text):
        def row_number(match):
            base = row if match[1] == "r" else sheet.names.get(match[1])
            if base is None:
                self.source.fail(number, f"no row named {match[1]}")
            return str(base + int(match[2] or 0))

        def reference(match):
            if match[2] is None:
                return match[0]
            prefix = f"${match[1]}" if match[1] else ""
            end = f":.{match[3]}" if match[3] else ""
            return f"[{prefix}.{match[2]}{end}]"

        return "of:" + REFERENCE.sub(reference, ROW.sub(row_number, text))

    def cell(self, sheet, row, number, look, text):
        mark = text[0] if text[:2] in ("%=", "%[", "~=", "~[") else ""
        text = text[len(mark):]
        if look == "property":
            look = "input" if text.startswith("[") else "label"
        if text.startswith("=") and len(text) > 1:
            formula = quoteattr(self.formula(sheet, row, number, text))
            return f'<table:table-cell table:style-name="{self.style(look, mark)}" table:formula={formula}/>'
        if text.startswith("[") and text.endswith("]"):
            look = "input"
            # The properties keep their square brackets: they are what the page shows until they are filled.
            text = text[1:-1]
        value = re.fullmatch(r"-?[\d.]+(%?)", text)
        if value:
            mark = value[1] or mark
            amount = float(text.rstrip("%")) / (100 if value[1] else 1)
            kind = "percentage" if mark == "%" else "float"
            return (
                f'<table:table-cell table:style-name="{self.style(look, mark)}" office:value-type="{kind}" '
                f'office:value="{amount:g}"/>'
            )
        style = self.style(look, mark, is_text=bool(text))
        if not text:
            return f'<table:table-cell table:style-name="{style}"/>'
        return (
            f'<table:table-cell table:style-name="{style}" office:value-type="string">'
            f"<text:p>{escape(text)}</text:p></table:table-cell>"
        )

    def sheet(self, sheet):
        columns = "".join(f'<table:table-column table:style-name="col{width}"/>' for width in sheet.widths)
        rows = []
        for index, (number, look, cells) in enumerate(sheet.rows):
            row = "".join(self.cell(sheet, index + 1, number, look, text) for text in cells)
            row = row or "<table:table-cell/>"
            rows.append(f'<table:table-row table:style-name="row">{row}</table:table-row>')
        return (
            f"<table:table table:name={quoteattr(sheet.name)} table:style-name=\"sheet\">{columns}\n"
            + "\n".join(rows) + "</table:table>"
        )


def named_cells(source, sheet):
    # Without a base cell the office drops the name.
    place = f"$'{escape(sheet.name)}'"
    ranges = "".join(
        f'<table:named-range table:name="{name}" table:base-cell-address="{place}.$A$1" '
        f'table:cell-range-address="{place}.$B${sheet.names[name]}"/>'
        for name in source.properties()
    )
    return f"<table:named-expressions>{ranges}</table:named-expressions>"


def excel_document(source):
    calc = Calc(source)
    sheets = read_sheets(source)
    tables = "\n".join(calc.sheet(sheet) for sheet in sheets)
    widths = sorted({width for sheet in sheets for width in sheet.widths})
    columns = "".join(
        f'<style:style style:name="col{width}" style:family="table-column"><style:table-column-properties '
        f'style:column-width="{width / 10:.1f}cm"/></style:style>'
        for width in widths
    )
    styles = (
        '<office:styles><style:default-style style:family="table-cell"><style:text-properties fo:font-family="Arial" '
        'fo:font-size="10pt"/></style:default-style><style:style style:name="Default" style:family="table-cell"/>'
        f"</office:styles>\n<office:automatic-styles>{NUMBER_STYLES}{columns}"
        '<style:style style:name="row" style:family="table-row"><style:table-row-properties '
        'style:row-height="0.52cm" style:use-optimal-row-height="true"/></style:style>'
        '<style:style style:name="sheet" style:family="table" style:master-page-name="Default">'
        f'<style:table-properties table:display="true"/></style:style>{"".join(calc.styles.values())}{PAGE}'
        f"</office:automatic-styles>\n{MASTER % escape(source.head['title'])}"
    )
    body = f"<office:spreadsheet>\n{tables}\n{named_cells(source, sheets[0])}\n</office:spreadsheet>"
    return document(source, "spreadsheet", styles, body)
