"""Prints what is in a file, one thing a line, as LibreOffice reads it: read_office.py FILE [FILTER].

Each line is "sheet", "column", "row" or "cell" as in read_xls.py, with sizes in pixels.
"""

import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ET
from pathlib import Path

NAMES = {prefix: f"urn:oasis:names:tc:opendocument:xmlns:{rest}:1.0" for prefix, rest in (
    ("office", "office"), ("table", "table"), ("text", "text"), ("style", "style"),
    ("fo", "xsl-fo-compatible"), ("number", "datastyle"))}
PIXELS = {"in": 96, "pt": 96 / 72, "mm": 96 / 25.4, "cm": 96 / 2.54}
ACROSS = {None: "left", "start": "left", "center": "centre", "end": "right"}

DOWN = {"top": "top", "middle": "middle", "bottom": "bottom", "automatic": "bottom"}
LINES = {"0": "0", "0.74pt": "1", "1.76pt": "2", "2.49pt": "3"}


def name(tag):
    prefix, rest = tag.split(":")
    return f"{{{NAMES[prefix]}}}{rest}"


def pixels(length):
    return round(float(length[:-2]) * PIXELS[length[-2:]])


def opened(path, filter_name):
    with tempfile.TemporaryDirectory() as folder:
        command = ["soffice", f"-env:UserInstallation={(Path(folder) / 'profile').as_uri()}",
                   "--headless", "--convert-to", "fods", "--outdir", folder]
        if filter_name:
            command.insert(3, f"--infilter={filter_name}")
        subprocess.run(command + [path], check=True, stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL)
        return ET.parse(Path(folder) / (Path(path).stem + ".fods")).getroot()


class Styles:
    def __init__(self, root):
        self.styles = {}
        self.defaults = {}
        for style in root.iter(name("style:style")):
            self.styles[style.get(name("style:family")), style.get(name("style:name"))] = style
        for style in root.iter(name("style:default-style")):
            self.defaults[style.get(name("style:family"))] = style
        self.numbers = {style.get(name("style:name")): style.tag for group in (
            "office:styles", "office:automatic-styles") for style in root.find(name(group))}

    def value(self, family, style_name, attribute):
        style = self.styles.get((family, style_name))
        while style is not None:
            for element in [style, *style]:
                if name(attribute) in element.attrib:
                    return element.get(name(attribute))
            parent = style.get(name("style:parent-style-name"))
            style = self.styles.get((family, parent))
        for element in self.defaults.get(family, ()):
            if name(attribute) in element.attrib:
                return element.get(name(attribute))
        return None

    def look(self, cell):
        def get(attribute):
            return self.value("table-cell", cell, attribute)
        colour = get("fo:color")
        back = get("fo:background-color")
        border = get("fo:border") or "none"
        width, _, line = ("0", "", "#none") if border == "none" else border.split(" ")
        format_tag = self.numbers.get(get("style:data-style-name"))
        return "/".join((
            get("style:font-name"), str(round(float(get("fo:font-size")[:-2]))),
            "bold" if get("fo:font-weight") == "bold" else "regular",
            colour[1:] if colour and colour != "#000000" else "auto",
            back[1:] if back and back != "transparent" else "none",
            ACROSS[get("fo:text-align")], DOWN.get(get("style:vertical-align"), "?"),
            "wrap" if get("fo:wrap-option") == "wrap" else "line",
            "@" if format_tag == name("number:text-style") else "General",
            LINES[width], line[1:]))


def shown(cell):
    lines = ["".join(piece(part) for part in walk(line)) for line in cell.findall(name("text:p"))]
    return "\n".join(lines).replace("\\", "\\\\").replace("\n", "\\n").replace("\t", "\\t")


def walk(element):
    yield element, element.text
    for child in element:
        yield from walk(child)
        yield None, child.tail


def piece(part):
    element, text = part
    if element is not None and element.tag == name("text:s"):
        return " " * int(element.get(name("text:c"), 1))
    if element is not None and element.tag == name("text:tab"):
        return "\t"
    return text or ""


def repeated(element, what):
    return int(element.get(name(f"table:number-{what}-repeated"), 1))


def cell_lines(row, styles, defaults):
    """What follows "cell" and the row's number: texts, numbers, and looks that show without them."""
    col = 0
    for cell in row:
        kind = cell.get(name("office:value-type"))
        style = cell.get(name("table:style-name")) or defaults.get(col)
        assert name("table:formula") not in cell.attrib, cell.attrib
        value = (f"number\t{cell.get(name('office:value'))}" if kind == "float"
                 else f"{'text' if kind == 'string' else kind or 'blank'}\t{shown(cell)}")
        look = styles.look(style) if style else ""
        if kind or look.split("/")[9:] not in ([], ["0", "none"]):
            for further in range(repeated(cell, "columns")):
                yield f"{col + further}\t{value}\t{look}"
        col += repeated(cell, "columns")


def print_columns(table, styles):
    defaults = {}
    for column in table.iter(name("table:table-column")):
        width = styles.value("table-column", column.get(name("table:style-name")),
                             "style:column-width")
        hidden = column.get(name("table:visibility")) == "collapse"
        for _ in range(min(repeated(column, "columns"), 256 - len(defaults))):
            print(f"column\t{len(defaults)}\t{pixels(width)}\t{hidden:d}")
            defaults[len(defaults)] = column.get(name("table:default-cell-style-name"))
    return defaults


def print_sheet(table, styles):
    print("sheet\t" + table.get(name("table:name")))
    defaults = print_columns(table, styles)
    place = 0
    for row in table.iter(name("table:table-row")):
        height = styles.value("table-row", row.get(name("table:style-name")), "style:row-height")
        hidden = row.get(name("table:visibility")) == "collapse"
        cells = list(cell_lines(row, styles, defaults))
        for further in range(min(repeated(row, "rows"), 256)):
            print(f"row\t{place + further}\t{pixels(height)}\t{hidden:d}")
            for line in cells:
                print(f"cell\t{place + further}\t{line}")
        place += repeated(row, "rows")


sys.stdout.reconfigure(encoding="utf-8", newline="\n")
document = opened(sys.argv[1], sys.argv[2] if len(sys.argv) > 2 else None)
for sheet in document.iter(name("table:table")):
    print_sheet(sheet, Styles(document))
