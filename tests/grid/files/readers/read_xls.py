"""Prints what is in Excel files, one thing a line, as python3-xlrd reads them."""

import decimal
import functools
import sys

import xlrd

ACROSS = ["general", "left", "centre", "right"]
DOWN = ["top", "middle", "bottom"]
LINES = {0: 0, 1: 1, 2: 2, 5: 3}


def shown(text):
    return text.replace("\\", "\\\\").replace("\n", "\\n").replace("\t", "\\t")


def colour(book, index, none):
    rgb = book.colour_map[index] if 8 <= index < 64 else None
    return "#%02x%02x%02x" % rgb if rgb else none


@functools.cache
def look(book, xf_index):
    form = book.xf_list[xf_index]
    font = book.font_list[form.font_index]
    border = form.border
    lines = {border.left_line_style, border.right_line_style,
             border.top_line_style, border.bottom_line_style}
    assert len(lines) == 1, lines
    line = LINES[lines.pop()]
    filled = form.background.fill_pattern == 1
    return "/".join(str(part) for part in (
        font.name, font.height // 20, "bold" if font.weight == 700 else "regular",
        colour(book, font.colour_index, "auto"),
        colour(book, form.background.pattern_colour_index, "?") if filled else "none",
        ACROSS[form.alignment.hor_align], DOWN[form.alignment.vert_align],
        "wrap" if form.alignment.text_wrapped else "line",
        book.format_map[form.format_key].format_str,
        str(line) + colour(book, border.top_colour_index, "?") if line else "none"))


def value(cell):
    if cell.ctype == xlrd.XL_CELL_TEXT:
        return "text\t" + shown(cell.value)
    if cell.ctype == xlrd.XL_CELL_NUMBER:
        return "number\t" + format(decimal.Decimal(repr(cell.value)).normalize(), "f")
    assert cell.ctype == xlrd.XL_CELL_BLANK, cell
    return "blank\t"


def print_sheet(book, sheet):
    print("sheet\t%s" % shown(sheet.name))
    for col, info in sorted(sheet.colinfo_map.items()):
        print("column\t%d\t%d\t%d" % (col, info.width, info.hidden))
    for row, info in sorted(sheet.rowinfo_map.items()):
        print("row\t%d\t%d\t%d" % (row, info.height, info.hidden))
    for row in range(sheet.nrows):
        for col in range(sheet.ncols):
            cell = sheet.cell(row, col)
            if cell.ctype != xlrd.XL_CELL_EMPTY:
                print("cell\t%d\t%d\t%s\t%s" % (row, col, value(cell), look(book, cell.xf_index)))


sys.stdout.reconfigure(encoding="utf-8", newline="\n")
for path in sys.argv[1:]:
    workbook = xlrd.open_workbook(path, formatting_info=True)
    for page in workbook.sheets():
        print_sheet(workbook, page)
