#pragma once

#include "grid/sheet/sheet.h"
#include "routine/changes.h"
#include "schedule/items.h"
#include "schedule/plan_entries.h"
#include "schedule/time_blocks.h"
#include "store/schedule_store.h"

#include <QDate>
#include <QString>

#include <optional>

// The daily grid: one row per time block in the order of their start; the block's code is the tag
// of the block column and the row's key.

namespace vellora {

enum DayColumn : int { kDayBlock, kDayActivity, kDayRequirement, kDayLevel, kDayCols };

// Columns, headings, widths and looks.
void setUpDayRows(Sheet& sheet);

// A row for each block, nothing planned in it.
void layOutBlockRows(Sheet& sheet, const TimeBlockList& blocks);

// Shows the first entry of each row's block on the date, in its activity's colour. An activity that
// is not among the items leaves the row's colours as they were.
void showDayPlan(Sheet& sheet, QDate date, const SavedEntries& saved, const QList<OpenItem>& items);

// Shows what the date holds now in the rows that still say what was read before; true when that
// changed any.
bool refreshDayPlan(Sheet& sheet, QDate date, const SavedEntries& before, const SavedEntries& now,
                    const QList<OpenItem>& items);

// What a save of the rows would do.
Changes dayChanges(const Sheet& sheet, QDate date, const SavedEntries& saved);

// Plans an activity in a row; requirement and level keep what they held.
void placeDayActivity(Sheet& sheet, int row, const OpenItem& item);

struct DaySaveOutcome {
  QString failure;  // what went wrong, and in which block; empty when all was saved
  std::optional<SavedEntries> saved;  // what the date holds now; none when nothing was saved
};

// Makes the date's entries what the grid's changed rows say: the first entry of a block is changed,
// one is added where there is none, and all are deleted where the row has no activity. A row that
// says what was read is left alone. A row that cannot be saved ends the save; the rows above it
// stay saved. Everything else that fails saves nothing. Unless told to overwrite it throws
// StoreFault::RowChanged, and saves nothing, when a changed row's entry is not what was read.
DaySaveOutcome writeDayPlan(ScheduleStore& store, const Sheet& sheet, QDate date,
                            const SavedEntries& asRead, bool overwrite);

// "每日活动计划  2007年3月5日 星期一"
QString dayPlanCaption(QDate date);

// Everything planned on a date as plain text: the date and its weekday, an empty line, then for
// each entry a line with its block's hours and name (the bare code when there is no such block) and
// a line with the activity, indented. Lines end in CR LF. Throws StoreError.
QString daySummary(ScheduleStore& store, QDate date);

}  // namespace vellora
