"""Writes an example of the library as rich text."""

TEXT_WIDTH_TWIPS = 9400
HEAD = (
    "{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1{\\fonttbl{\\f0\\fswiss\\fcharset0 Arial;}}\n"
    "{\\colortbl;\\red23\\green50\\blue77;}\n"
    "{\\stylesheet{\\s0\\f0\\fs20 Normal;}{\\s1\\sbasedon0\\f0\\b\\fs24\\cf1 heading 1;}}\n"
)
TITLE = "\\pard\\plain\\s1\\sb240\\sa80\\keepn\\f0\\b\\fs24\\cf1 "
PARAGRAPH = "\\pard\\plain\\s0\\sa120\\f0\\fs20 "
CELL = "\\pard\\plain\\s0\\intbl\\f0\\fs18 "


def escaped(text):
    out = []
    for character in text:
        if character in "\\{}":
            out.append("\\" + character)
        elif character < "\x80":
            out.append(character)
        else:
            try:
                out.append("\\'%02x" % character.encode("cp1252")[0])
            except UnicodeEncodeError:
                out.append("\\u%d?" % ord(character))
    return "".join(out)


def table(rows):
    columns = len(rows[0])
    first = TEXT_WIDTH_TWIPS // 2 if columns > 1 else TEXT_WIDTH_TWIPS
    edges = [first + (TEXT_WIDTH_TWIPS - first) * i // max(columns - 1, 1) for i in range(columns)]
    frame = "\\clbrdrb\\brdrs\\brdrw10\\cellx"
    head = "\\trowd\\trgaph80" + "".join(f"{frame}{edge}" for edge in edges) + "\n"
    return "".join(head + "".join(f"{CELL}{escaped(cell)}\\cell\n" for cell in row) + "\\row\n" for row in rows)


def rich_text(example):
    blocks = [table(block) if isinstance(block, list) else f"{PARAGRAPH}{escaped(block)}\\par\n"
              for block in example.blocks]
    if isinstance(example.blocks[-1], list):
        blocks.append("\\pard\\plain\\s0\\f0\\fs20\\par\n")  # no text ends with a table
    return f"{HEAD}{TITLE}{escaped(example.title)}\\par\n{''.join(blocks)}}}\n"
