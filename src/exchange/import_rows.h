#pragma once

#include "grid/sheet/sheet.h"
#include "schedule/calendar_import.h"
#include "schedule/time_blocks.h"

#include <QString>

namespace vellora {

// The rows in which an import is shown before it is saved, one for each of its lines.

enum ImportColumn : int {
  kImportDate,
  kImportHours,
  kImportBlock,
  kImportActivity,
  kImportRequirement,
  kImportFate,
  kImportCols,
};

void setUpImportRows(Sheet& sheet);
void showImport(Sheet& sheet, const CalendarImport& import, const TimeBlockList& blocks,
                bool withMemos);
// What becomes of one line, anew.
void showFate(Sheet& sheet, int row, const ImportLine& line, bool withMemos);

// How many lines there are of each kind, and what was left out, in a few sentences.
QString importSummary(const CalendarImport& import, const CalendarOccurrences& occurrences);

}  // namespace vellora
