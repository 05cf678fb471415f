#pragma once

#include "grid/sheet/sheet.h"
#include "routine/work_step.h"

namespace vellora {

// What all files that other programs read take from a sheet in the same way.

// A cell's text as other programs take it: lines end with character 10, and a half of a character,
// which no file may hold, is U+FFFD.
QString exportedText(const QString& cellText);

// Whether the heading strip has a text; without one it is not written.
bool hasHeadings(const Sheet& sheet);

// Hidden, or of height 0.
bool isOutOfView(const Sheet& sheet, int row);

// Sizes in pixels at 100 %, also of what is out of view.
int exportedWidth(const Sheet& sheet, int col);
int exportedHeight(const Sheet& sheet, int row);

// Passes on one of many rows only: a row is written in less time than it takes to tell. Throws
// WorkCancelled.
inline void reportRow(const WorkProgress& progress, const QString& what, qint64 row, qint64 rows) {
  constexpr qint64 kRowsPerStep = 256;
  if (row % kRowsPerStep == 0) report(progress, {what, row, rows});
}

}  // namespace vellora
