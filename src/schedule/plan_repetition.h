#pragma once

#include "grid/sheet/sheet.h"
#include "routine/work_step.h"
#include "store/schedule_store.h"

#include <QString>

#include <optional>

namespace vellora {

inline constexpr int kFewestWeeks = 1;
inline constexpr int kMostWeeks = 60;

struct Repetition {
  int count;     // 0 or more
  int stepDays;  // 1 or more
};

// The count that a text stands for: its numeric value rounded, a half to the even neighbour.
int repetitionCount(const QString& text);

// The week count after the arrow keys: `change` added to the text's numeric value, kept between
// kFewestWeeks and kMostWeeks. The text itself when nothing has to be changed.
QString boundedWeeks(const QString& text, int change);

// Copies a row of the plan grid `count` times directly below itself, each `stepDays` later. A copy
// whose block is taken on its date shows that entry's activity in red, its requirement and level.
// Returns the row below the last copy; nothing, and nothing happens, when the row has no activity
// or no date. Copies end with the year 9999. Throws StoreError, or WorkCancelled, and leaves the
// grid as it was.
std::optional<int> repeatPlanRow(ScheduleStore& store, Sheet& sheet, int row,
                                 const Repetition& repetition, const WorkProgress& progress = {});

}  // namespace vellora
