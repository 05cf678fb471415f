#include "schedule/whole_table.h"

#include "routine/calendar_text.h"
#include "routine/text.h"
#include "schedule/list_columns.h"
#include "store/moment.h"

#include <algorithm>
#include <map>

namespace vellora {
namespace {

constexpr int kTableRowHeight = 24;

QString place(const Sheet& sheet, int col, int row) {
  return u"第 %1 行的“%2”"_qs.arg(row + 1).arg(sheet.GetCellText(col, kHeadingRow));
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

// A typed text as it is shown once it has been stored and read.
QString normalText(const QString& typed, CellContent content) {
  QString shown;
  if (content == CellContent::Time) shown = shortTime(readTime(typed).value_or(QTime()));
  if (content == CellContent::Date) shown = isoDate(readDate(typed).value_or(QDate()));
  return shown.isEmpty() ? typed : shown;
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

TableRows readRows(ScheduleStore& store, const WholeTable& table) {
  TableRows all;
  auto rows = store.open(table.rowsInOrder());
  for (; !rows.atEnd(); rows.moveNext()) {
    QStringList& row = all.emplace_back();
    for (const TableColumn& column : table.columns) {
      row << normalText(rows.text(column.name), column.content);
    }
  }
  return all;
}

void fillRow(Sheet& sheet, int row, const QStringList& texts) {
  for (int col = 0; col < sheet.Cols(); ++col) {
    sheet.SetCellText(col, row, texts[col]);
    sheet.SetCellAlign(col, row, kAlignCentred);
    sheet.SetCellInput(col, row, 1);
  }
}

// The row's texts as they would be read back.
QStringList typedRow(const Sheet& sheet, int row, const WholeTable& table) {
  QStringList texts;
  for (int col = 0; col < sheet.Cols(); ++col) {
    texts << normalText(sheet.GetCellText(col, row), table.column(col).content);
  }
  return texts;
}

// What an incomplete row lacks.
QString missingCell(const Sheet& sheet, const QStringList& row) {
  const int col = static_cast<int>(row.indexOf(QString()));
  return col < 0 ? QString() : u"没有“%1”"_qs.arg(sheet.GetCellText(col, kHeadingRow));
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
  std::vector<ListColumn> columns;
  for (const TableColumn& column : table.columns) columns.push_back({column.heading, column.width});
  setUpList(sheet, columns, kTableRowHeight);
  sheet.SetRows(rows);
}

TableRows loadTable(ScheduleStore& store, Sheet& sheet, const WholeTable& table, int leastRows,
                    int spareRows) {
  TableRows rows = readRows(store, table);
  const int count = static_cast<int>(rows.size());
  sheet.SetRows(0);
  sheet.SetRows(std::max(leastRows, count + spareRows));
  for (int row = 0; row < count; ++row) fillRow(sheet, row, rows[static_cast<std::size_t>(row)]);
  return rows;
}

TableRows saveTable(ScheduleStore& store, const Sheet& sheet, const WholeTable& table,
                    const TableRows* asRead, const std::function<void()>& also) {
  ScheduleStore::Transaction all(store);
  if (asRead && readRows(store, table) != *asRead) {
    throw StoreError(StoreFault::RowChanged, u"另一个程序已经改动了这张表。"_qs);
  }
  store.execute(table.deleteRows());
  auto rows = store.open(table.allRows());
  for (int row = 0; row < sheet.Rows(); ++row) {
    if (isComplete(sheet, row)) addRow(rows, sheet, row, table);
  }
  if (also) also();
  TableRows stored = readRows(store, table);
  all.commit();
  return stored;
}

Changes tableChanges(const Sheet& sheet, const WholeTable& table, const TableRows& stored,
                     const std::function<bool(int row)>& isNothing) {
  std::map<QStringList, int> unseen;
  for (const QStringList& row : stored) ++unseen[row];
  int altered = 0;
  Changes changes;
  for (int row = sheet.NextWrittenRow(0); row < sheet.Rows(); row = sheet.NextWrittenRow(row + 1)) {
    const QStringList texts = typedRow(sheet, row, table);
    if (texts.count(QString()) == texts.size() || (isNothing && isNothing(row))) continue;
    const auto same = unseen.find(texts);
    const bool isStored = same != unseen.end() && same->second-- > 0;
    const QString lacks = missingCell(sheet, texts);
    if (isStored && lacks.isEmpty()) continue;
    changes.rows.push_back({row, lacks, !isStored});
    altered += !isStored;
  }
  int gone = 0;
  for (const auto& [row, count] : unseen) gone += std::max(count, 0);
  changes.missing = std::max(gone - altered, 0);
  return changes;
}

QDate dateInCell(const Sheet& sheet, int col, int row) {
  const auto date = readDate(sheet.GetCellText(col, row));
  if (!date) refuse(sheet, col, row, u"日期，例如 2007-03-05"_qs);
  return *date;
}

}  // namespace vellora
