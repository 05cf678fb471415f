#include "schedule/week_names.h"

#include "routine/calendar_text.h"
#include "store/statements.h"

#include <algorithm>

namespace vellora {
namespace {

constexpr TableColumn kNameColumns[]{
    {u"KSRQ", u"开始时间", 90, CellContent::Date},
    {u"JSRQ", u"结束时间", 90, CellContent::Date},
    {u"MM", u"本周命名", 180, CellContent::Text},
};

constexpr WholeTable kNameTable{kNameColumns, statements::weekNamesByStart,
                                statements::allWeekNames, statements::deleteWeekNames};

void writeWeek(Sheet& sheet, int row, QDate first) {
  sheet.SetCellText(kWeekStartCol, row, isoDate(first));
  sheet.SetCellText(kWeekEndCol, row, isoDate(first.addDays(kDaysInAWeek - 1)));
}

void keepRowBelow(Sheet& sheet, int row) {
  sheet.SetRows(std::max(sheet.Rows(), row + 2));
}

void requireRoomInCalendar(QDate first, int row) {
  if (first.addDays(kDaysInAWeek * (kWeeksInARow + 1) - 1) <= kLastDay) return;
  throw CellRefused(StoreFault::NotADateOrTime, kWeekStartCol, row,
                    u"第 %1 行之后的十周超出了日历，最晚到 9999-12-31。"_qs.arg(row + 1));
}

}  // namespace

void setUpWeekNames(Sheet& sheet) {
  setUpSheet(sheet, kNameTable, kEmptyWeekRows);
  sheet.SetCellWrap(kWeekStartCol, kEveryRow, true);
  sheet.SetCellWrap(kWeekEndCol, kEveryRow, true);
  sheet.SetCellWrap(kWeekNameCol, kEveryRow, false);
}

TableRows LoadWeekNames(ScheduleStore& store, Sheet& sheet) {
  TableRows rows = loadTable(store, sheet, kNameTable, 0, 1);
  if (rows.empty()) sheet.SetRows(kEmptyWeekRows);
  return rows;
}

TableRows SaveWeekNames(ScheduleStore& store, const Sheet& sheet, const TableRows* asRead) {
  return saveTable(store, sheet, kNameTable, asRead);
}

// A name that was only carried down, into a row without days, is nothing that anyone typed.
Changes weekNameChanges(const Sheet& sheet, const TableRows& stored) {
  return tableChanges(sheet, kNameTable, stored, [&](int row) {
    return sheet.GetCellText(kWeekStartCol, row).isEmpty() &&
           sheet.GetCellText(kWeekEndCol, row).isEmpty() &&
           sheet.GetCellText(kWeekNameCol, row) == sheet.GetCellText(kWeekNameCol, row - 1);
  });
}

int addWeek(Sheet& sheet, int fromRow, QDate first) {
  int row = std::max(fromRow, 0);
  while (row < sheet.Rows() && !sheet.GetCellText(kWeekStartCol, row).isEmpty()) ++row;
  keepRowBelow(sheet, row);
  writeWeek(sheet, row, first);
  return row;
}

int addFollowingWeeks(Sheet& sheet, int row) {
  if (row < 0 || sheet.GetCellText(kWeekStartCol, row).isEmpty()) return row;
  const QDate first = dateInCell(sheet, kWeekStartCol, row);
  requireRoomInCalendar(first, row);
  keepRowBelow(sheet, row + kWeeksInARow);
  for (int week = 1; week <= kWeeksInARow; ++week) {
    writeWeek(sheet, row + week, first.addDays(kDaysInAWeek * week));
  }
  return row + kWeeksInARow;
}

void carryNameDown(Sheet& sheet, int leftRow, int enteredRow) {
  keepRowBelow(sheet, enteredRow);
  if (leftRow < 0 || !sheet.GetCellText(kWeekNameCol, enteredRow).isEmpty()) return;
  sheet.SetCellText(kWeekNameCol, enteredRow, sheet.GetCellText(kWeekNameCol, leftRow));
}

}  // namespace vellora
