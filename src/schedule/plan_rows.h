#pragma once

#include "grid/sheet/sheet.h"
#include "schedule/time_blocks.h"
#include "store/schedule_store.h"

#include <QDate>
#include <QStringList>

#include <array>
#include <optional>

// The plan grid: one row per entry of one activity, spare rows below. The block's code is the tag
// of the time column; rules read it there, never from the shown text. A row that a repetition found
// taken shows who holds its block: the tag of its activity is that text, until another is typed.

namespace vellora {

enum PlanColumn : int {
  kPlanDate,
  kPlanTime,
  kPlanActivity,
  kPlanRequirement,
  kPlanLevel,
  kPlanCols,
};
inline constexpr int kSparePlanRows = 20;

// Columns, headings, widths and an empty grid of spare rows.
void setUpPlanRows(Sheet& sheet);

// "2007-03-05", line break, weekday; empty for an invalid date.
QString planDateCell(QDate date);

// What a row's date cell says, blanks before it aside: its first ten characters, or its first line
// where that is how the date was typed ("2007年12月15日"). The weekday behind it is for the eye
// only.
QString planDateText(const Sheet& sheet, int row);
std::optional<QDate> planDate(const Sheet& sheet, int row);

// Whether a row takes part in the save of an activity's plan: it has a block, it names exactly that
// activity, and its date cell is not empty.
bool takesPartInSave(const Sheet& sheet, int row, const QString& activity);

// Fills date, time and activity; requirement and level keep what they held.
void placePlanRow(Sheet& sheet, int row, QDate date, const TimeBlock& block,
                  const QString& activity);

// Adds a spare row when `row` is the last one; returns whether it did.
bool keepSparePlanRow(Sheet& sheet, int row);

// Writes the date into an empty date cell, for a user who begins to edit it.
void proposePlanDate(Sheet& sheet, int col, int row, QDate date);

// A row as it was, to be written into new rows: texts, tags and looks.
class PlanRowCopy {
 public:
  PlanRowCopy(const Sheet& sheet, int row);

  CellSettings& settings(PlanColumn col) { return cells_[static_cast<std::size_t>(col)].settings; }
  void setText(PlanColumn col, const QString& text) {
    cells_[static_cast<std::size_t>(col)].text = text;
  }
  void setTag(PlanColumn col, const QString& tag) {
    cells_[static_cast<std::size_t>(col)].tag = tag;
  }
  // The row must be empty.
  void writeTo(Sheet& sheet, int row) const;

 private:
  struct Cell {
    QString text;
    QString tag;
    CellSettings settings;
  };
  std::array<Cell, kPlanCols> cells_;
};

// A copy of the row directly below it.
void duplicatePlanRow(Sheet& sheet, int row);

// Replaces the plan grid's rows with every saved entry of the activity, by date and block code, and
// spare rows below; an entry whose date or block cannot be read is left out. Returns the code of
// each entry whose block is not among `blocks`; such an entry is listed without a time. Throws
// StoreError and leaves the grid as it was.
QStringList listEntries(ScheduleStore& store, Sheet& sheet, const TimeBlockList& blocks,
                        const QString& activity);

// Says which blocks were not found, a sentence for one of them.
QString missingBlocksText(const QStringList& codes);

}  // namespace vellora
