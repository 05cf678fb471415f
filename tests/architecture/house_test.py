#!/usr/bin/env python3
"""Walks the includes of the planner: folders include each other in one direction, files in no circle, what needs no
windows knows none, and no file is too long.
    house_test.py SOURCES QT_CORE_HEADERS"""

import pathlib
import re
import sys

SHEETS = "routine grid/sheet grid/files"
RULES = SHEETS + " store schedule"
BELOW_WINDOWS = RULES + " grid/print grid/surface shell"
HOUSE = {  # what the files of a folder may include beside their own folder
    "routine": "",
    "store": "routine",
    "grid/sheet": "routine",
    "grid/files": "routine grid/sheet",
    "grid/print": SHEETS,
    "grid/surface": SHEETS + " grid/print",
    "schedule": SHEETS + " store",
    "shell": RULES + " grid/print grid/surface",
    **dict.fromkeys("board editors planning stats backup exchange".split(), BELOW_WINDOWS),
    "app": BELOW_WINDOWS + " board editors planning stats backup exchange",
}
ONLY_QT_CORE = "routine store grid/sheet grid/files schedule".split()
MOST_LINES = 400
INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*([<"])([^">]+)', re.MULTILINE)


def room_of(file):
    return file.rpartition("/")[0]


def is_allowed(file, target, is_own, tree):
    room = room_of(file)
    if is_own:
        return target in tree and room_of(target) in [room, *HOUSE[room].split()]
    if target.startswith("SQLiteCpp/") or target == "sqlite3.h":
        return room == "store"
    is_qt = re.fullmatch(r"Q[A-Zt].*|q.*\.h", target)
    is_core = target.startswith("QtCore/") or (qt_core / target).exists()
    return room not in ONLY_QT_CORE or not is_qt or is_core


def inspect(tree):
    """One sentence for each rule that the sources, by their path, break."""
    broken, visited = [], set()

    def visit(file, path):
        if file in path:
            broken.append(f"{file} includes itself by {path[-1]}")
        if file in visited:
            return
        visited.add(file)
        if room_of(file) not in HOUSE:
            broken.append(f"{file} lies in no folder of the house")
            return
        if tree[file].count("\n") > MOST_LINES:
            broken.append(f"{file} is too long to be read as one thing")
        for mark, target in INCLUDE.findall(tree[file]):
            if not is_allowed(file, target, mark == '"', tree):
                broken.append(f"{file} may not include {target}")
            if mark == '"' and target in tree:
                visit(target, [*path, file])

    for file in sorted(tree):
        visit(file, [])
    return broken


sources, qt_core = map(pathlib.Path, sys.argv[1:])
WRONG = {
    "board/a.h": '#include "planning/a.h"\n#include <QWidget>\n#include "store/a.h"\n',
    "grid/loose.h": '// #include "app/a.h"\n',
    "planning/a.h": '#include"lost.h"  // why\n#include <SQLiteCpp/Database.h>\n',
    "routine/a.h": "#include <QString>\n#include <QtGui/QColor>\n # include <qwidget.h>\n",
    "stats/a.h": "\n" * (MOST_LINES + 1),
    "store/a.h": '#include <sqlite3.h>\n#include "store/b.h"\n',
    "store/b.h": '#include "routine/a.h"\n#include "store/a.h"\n',
}
assert inspect(WRONG) == [
    "board/a.h may not include planning/a.h",
    "planning/a.h may not include lost.h",
    "planning/a.h may not include SQLiteCpp/Database.h",
    "routine/a.h may not include QtGui/QColor",
    "routine/a.h may not include qwidget.h",
    "store/a.h includes itself by store/b.h",
    "grid/loose.h lies in no folder of the house",
    "stats/a.h is too long to be read as one thing",
], inspect(WRONG)
files = {str(file.relative_to(sources)): file.read_text() for file in sources.rglob("*.[hc]*")}
assert "store/schedule_store.h" in files
sys.exit("\n".join(inspect(files)) or None)
