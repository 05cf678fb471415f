#pragma once

#include "editors/whole_table.h"

namespace vellora {

// The day's division into time blocks: start, end, code and name, one row each.
inline constexpr int kTimeBlockRows = 50;

void setUpTimeBlocks(Sheet& sheet);
Changes timeBlockChanges(const Sheet& sheet, const TableRows& stored);

// Fills the sheet with the stored blocks by start time. It has kTimeBlockRows rows, or as many as
// there are blocks when those are more.
TableRows LoadTimeBlocks(ScheduleStore& store, Sheet& sheet);

// Makes the sheet's complete rows the stored blocks; see saveTable. Codes may repeat, hours may
// overlap or be reversed.
TableRows SaveTimeBlocks(ScheduleStore& store, const Sheet& sheet,
                         const TableRows* asRead = nullptr);

}  // namespace vellora
