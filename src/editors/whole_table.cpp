#include "editors/whole_table.h"

#include "routine/calendar_text.h"
#include "store/moment.h"

#include <algorithm>

namespace vellora {
namespace {

constexpr int kRowHeight = 24;

QString place(const Sheet& sheet, int col, int row) {
  return u"第 %1 行的“%2”"_qs.arg(row + 1).arg(sheet.GetCellText(col, kHeadingRow));
}

// Only the beginning of a long text: the message must fit its box.
QString quoted(const QString& text) {
  constexpr qsizetype kShown = 30;
  return u'“' + (text.size() > kShown ? text.first(kShown) + u'…' : text) + u'”';
}

[[noreturn]] void refuse(const Sheet& sheet, int col, int row, const QString& expected) {
  throw CellRefused(StoreFault::NotADateOrTime, col, row,
                    u"%1要填%2，%3不是。"_qs.arg(place(sheet, col, row), expected,
                                                 quoted(sheet.GetCellText(col, row))));
}

QTime timeInCell(const Sheet& sheet, int col, int row) {
  const auto time = readTime(sheet.GetCellText(col, row));
  if (!time) refuse(sheet, col, row, u"时间，例如 08:30"_qs);
  return *time;
}

QString shownText(Recordset& rows, const TableColumn& column) {
  QString shown;
  if (column.content == CellContent::Time) shown = shortTime(rows.time(column.name));
  if (column.content == CellContent::Date) shown = isoDate(rows.date(column.name));
  return shown.isEmpty() ? rows.text(column.name) : shown;
}

QVariant valueToStore(const Sheet& sheet, int col, int row, CellContent content) {
  if (content == CellContent::Time) return timeInCell(sheet, col, row);
  if (content == CellContent::Date) return dateInCell(sheet, col, row);
  return sheet.GetCellText(col, row);
}

bool isComplete(const Sheet& sheet, int row) {
  for (int col = 0; col < sheet.Cols(); ++col) {
    if (sheet.GetCellText(col, row).isEmpty()) return false;
  }
  return true;
}

void fillRow(Sheet& sheet, int row, Recordset& rows, const WholeTable& table) {
  for (int col = 0; col < sheet.Cols(); ++col) {
    sheet.SetCellText(col, row, shownText(rows, table.column(col)));
    sheet.SetCellAlign(col, row, kAlignCentred);
    sheet.SetCellInput(col, row, 1);
  }
}

void setCell(Recordset& rows, const Sheet& sheet, int col, int row, const TableColumn& column) {
  try {
    rows.set(column.name, valueToStore(sheet, col, row, column.content));
  } catch (const CellRefused&) {
    throw;
  } catch (const StoreError& error) {
    throw CellRefused(error.fault(), col, row,
                      place(sheet, col, row) + u"不能保存："_qs + error.description());
  }
}

void addRow(Recordset& rows, const Sheet& sheet, int row, const WholeTable& table) {
  rows.addNew();
  for (int col = 0; col < sheet.Cols(); ++col) {
    setCell(rows, sheet, col, row, table.column(col));
  }
  rows.update();
}

}  // namespace

CellRefused::CellRefused(StoreFault fault, int col, int row, const QString& description)
    : StoreError(fault, description), col_(col), row_(row) {}

void setUpSheet(Sheet& sheet, const WholeTable& table, int rows) {
  sheet.SetCols(static_cast<int>(table.columns.size()));
  sheet.SetRows(rows);
  sheet.SetDefaultFont(8, kFontRegular, u"宋体"_qs);
  sheet.SetDefaultRowHeight(kRowHeight);
  for (int col = 0; col < sheet.Cols(); ++col) {
    const TableColumn& column = table.column(col);
    sheet.SetCellText(col, kHeadingRow, QString::fromUtf16(column.heading));
    sheet.SetCellAlign(col, kHeadingRow, kAlignCentred);
    sheet.SetCellAlign(col, kEveryRow, kAlignCentred);
    sheet.SetColumnWidth(col, column.width);
  }
}

int loadTable(ScheduleStore& store, Sheet& sheet, const WholeTable& table, int leastRows,
              int spareRows) {
  auto rows = store.open(table.rowsInOrder());
  const int count = static_cast<int>(rows.count());
  sheet.SetRows(0);
  sheet.SetRows(std::max(leastRows, count + spareRows));
  for (int row = 0; !rows.atEnd(); ++row, rows.moveNext()) fillRow(sheet, row, rows, table);
  return count;
}

void saveTable(ScheduleStore& store, const Sheet& sheet, const WholeTable& table) {
  ScheduleStore::Transaction all(store);
  store.execute(table.deleteRows());
  auto rows = store.open(table.allRows());
  for (int row = 0; row < sheet.Rows(); ++row) {
    if (isComplete(sheet, row)) addRow(rows, sheet, row, table);
  }
  all.commit();
}

QDate dateInCell(const Sheet& sheet, int col, int row) {
  const auto date = readDate(sheet.GetCellText(col, row));
  if (!date) refuse(sheet, col, row, u"日期，例如 2007-03-05"_qs);
  return *date;
}

}  // namespace vellora
