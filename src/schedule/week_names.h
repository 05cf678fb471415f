#pragma once

#include "schedule/whole_table.h"

namespace vellora {

// Names of date ranges: first day, last day and name, one row each. Ranges may overlap or leave
// gaps. A row of −1 stands for no current row.
inline constexpr int kWeekStartCol = 0;
inline constexpr int kWeekEndCol = 1;
inline constexpr int kWeekNameCol = 2;
inline constexpr int kEmptyWeekRows = 60;
inline constexpr int kWeeksInARow = 10;

void setUpWeekNames(Sheet& sheet);
Changes weekNameChanges(const Sheet& sheet, const TableRows& stored);

// Fills the sheet with the stored ranges by first day and one empty row; without any range,
// kEmptyWeekRows empty rows.
TableRows LoadWeekNames(ScheduleStore& store, Sheet& sheet);

// Makes the sheet's complete rows the stored ranges; see saveTable.
TableRows SaveWeekNames(ScheduleStore& store, const Sheet& sheet,
                        const TableRows* asRead = nullptr);

// Writes the seven days from `first` into the first row at or below `fromRow` that has no first
// day; a row is appended when there is none. Returns the row.
int addWeek(Sheet& sheet, int fromRow, QDate first);

// Continues the week of a row through the kWeeksInARow rows below it, overwriting their days and
// appending rows that are missing. Returns the last row written; `row` itself when it has no first
// day. Throws CellRefused, having written nothing, when the first day is no date or the weeks would
// go past the year 9999.
int addFollowingWeeks(Sheet& sheet, int row);

// Names a row that was entered like the row that was left, if it has no name yet, and keeps an
// empty row below the list.
void carryNameDown(Sheet& sheet, int leftRow, int enteredRow);

}  // namespace vellora
