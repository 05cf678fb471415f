"""Prints how many seconds LibreOffice takes to store the cells of a CSV file as an Excel file and
as an HTML file. Its start, taking the cells over and their look are not counted."""

import csv
import subprocess
import sys
import time
from pathlib import Path

import uno
from com.sun.star.beans import PropertyValue
from com.sun.star.connection import NoConnectException
from com.sun.star.table.CellHoriJustify import CENTER

PATIENCE = 60  # seconds for the office to start


def setting(name, value):
    return PropertyValue(Name=name, Value=value)


def connected(pipe):
    local = uno.getComponentContext()
    resolver = local.ServiceManager.createInstanceWithContext(
        "com.sun.star.bridge.UnoUrlResolver", local)
    end = time.monotonic() + PATIENCE
    while True:
        try:
            context = resolver.resolve(
                f"uno:pipe,name={pipe};urp;StarOffice.ComponentContext")
            return context.ServiceManager.createInstanceWithContext(
                "com.sun.star.frame.Desktop", context)
        except NoConnectException:
            if time.monotonic() > end:
                raise
            time.sleep(0.1)


def filled(desktop, rows):
    document = desktop.loadComponentFromURL(
        "private:factory/scalc", "_blank", 0, (setting("Hidden", True),))
    sheet = document.Sheets.getByIndex(0)
    cells = sheet.getCellRangeByPosition(0, 0, len(rows[0]) - 1, len(rows) - 1)
    cells.setDataArray(tuple(tuple(row) for row in rows))
    cells.HoriJustify = CENTER
    cells.IsTextWrapped = True
    return document


def seconds_to_store(document, path, filter_name):
    start = time.perf_counter()
    document.storeToURL(path.as_uri(), (setting("FilterName", filter_name),))
    return time.perf_counter() - start


source, folder = Path(sys.argv[1]), Path(sys.argv[2])
with open(source, encoding="utf-8", newline="") as file:
    table = list(csv.reader(file, quoting=csv.QUOTE_NONNUMERIC))
office = subprocess.Popen([
    "soffice", "--headless", "--norestore", f"--accept=pipe,name={folder.name};urp",
    f"-env:UserInstallation={(folder / 'profile').as_uri()}"], stderr=subprocess.DEVNULL)
try:
    desktop = connected(folder.name)
    document = filled(desktop, table)
    print(seconds_to_store(document, folder / "office.xls", "MS Excel 97"))
    print(seconds_to_store(document, folder / "office.html", "HTML (StarCalc)"))
    document.close(True)
    desktop.terminate()
finally:
    office.wait(PATIENCE)
