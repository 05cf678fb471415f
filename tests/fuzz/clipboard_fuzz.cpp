#include "fuzz/fuzz_target.h"
#include "grid/surface/clipboard_text.h"

namespace vellora::test {

void fuzzClipboard(Bytes bytes) {
  const QString text = textOf(bytes);
  const TextTable table = readTabSeparated(text);
  require(readTabSeparated(tabSeparated(table)) == table, "cells come back as they were copied");
  qsizetype cells = 0;
  for (const QStringList& row : table) {
    cells += row.size();
    require(!row.isEmpty(), "every row has a cell");
    for (const QString& cell : row) require(!cell.contains(u'\r'), "lines end with line feeds");
  }
  require(htmlTable(table).count(u"<td>"_qs) == cells, "no text adds a cell to the page");
}

std::vector<QByteArray> clipboardSeeds() {
  return {"a\tb\r\n\"tab\there\"\t\n", "\"line\nline\"\t\"in \"\"side\"\"\"\r\x0A",
          "\"never closed\tx\ny\r", "\"half\"quoted\t\"\"\n\n<td>&amp;", "5\" \xE5\xAE\xBD\t\xFF"};
}

}  // namespace vellora::test
