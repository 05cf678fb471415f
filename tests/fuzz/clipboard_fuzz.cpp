#include "fuzz/fuzz_target.h"
#include "grid/surface/clipboard_text.h"

namespace vellora::test {
namespace {

Sheet sheetOf(const TextTable& table) {
  Sheet sheet;
  sheet.SetRows(static_cast<int>(table.size()));
  for (int row = 0; row < sheet.Rows(); ++row) {
    const QStringList& texts = table[static_cast<std::size_t>(row)];
    sheet.SetCols(std::max(sheet.Cols(), static_cast<int>(texts.size())));
    for (int col = 0; col < texts.size(); ++col) {
      sheet.SetCellText(col, row, QString(texts[col]).replace(u'\n', u'\r'));
    }
  }
  return sheet;
}

}  // namespace

void fuzzClipboard(Bytes bytes) {
  const TextTable table = readTabSeparated(textOf(bytes));
  for (const QStringList& row : table) {
    require(!row.isEmpty(), "every row has a cell");
    for (const QString& cell : row) require(!cell.contains(u'\r'), "lines end with line feeds");
  }
  const Sheet sheet = sheetOf(table);
  if (qint64{sheet.Rows()} * sheet.Cols() > 100'000) return;  // ragged rows
  const CellRange all{0, 0, sheet.Cols() - 1, sheet.Rows() - 1};
  const QString copied = tabSeparated(sheet, all);
  require(tabSeparated(sheetOf(readTabSeparated(copied)), all) == copied,
          "cells come back as they were copied");
  readHtmlTable(textOf(bytes));
  const qsizetype cells = qsizetype{sheet.Rows()} * sheet.Cols();
  require(htmlTable(sheet, all).count(u"<td"_qs) == cells, "no text adds a cell to the page");
}

std::vector<QByteArray> clipboardSeeds() {
  return {"a\tb\r\n\"tab\there\"\t\n",
          "\"line\nline\"\t\"in \"\"side\"\"\"\r\x0A",
          "\"never closed\tx\ny\r",
          "\"half\"quoted\t\"\"\n\n<td>&amp;",
          "<table><tr><td rowspan=3>a<br>b<td colspan=99>c<tr><td>d</table>",
          "5\" \xE5\xAE\xBD\t\xFF"};
}

}  // namespace vellora::test
