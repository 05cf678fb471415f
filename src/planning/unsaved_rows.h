#pragma once

#include "grid/sheet/sheet.h"
#include "planning/plan_entry.h"
#include "store/schedule_store.h"

#include <QDate>
#include <QHash>
#include <QString>

#include <functional>
#include <utility>
#include <vector>

namespace vellora {

// What the schedule held when it was last read or saved, to tell which rows of a grid are not in it
// yet.
class SavedEntries {
 public:
  SavedEntries() = default;
  // All of one activity, or all of one date. Throw StoreError.
  SavedEntries(ScheduleStore& store, const QString& activity);
  SavedEntries(ScheduleStore& store, QDate date);

  // The first entry of a block on a date; null when there is none.
  const PlanTexts* find(QDate date, const QString& code) const;

 private:
  void read(Recordset entries);

  QHash<std::pair<QDate, QString>, PlanTexts> entries_;
};

// A row of the plan grid that says something which is not saved. A row that shows another activity
// is not a row of this plan.
bool isUnsavedPlanRow(const Sheet& sheet, int row, const QString& activity,
                      const SavedEntries& saved);

// A row of the daily grid that differs from the entry of its block.
bool isUnsavedDayRow(const Sheet& sheet, int row, QDate date, const SavedEntries& saved);

// The unsaved rows of a sheet as they were found last, in ascending order.
struct UnsavedRows {
  Sheet seen;  // when they were found
  std::vector<int> rows;
};

// Brings them up to date, asking only about rows that may have changed since they were found.
void findUnsavedRows(const Sheet& sheet, const std::function<bool(int row)>& isUnsaved,
                     UnsavedRows& found);

}  // namespace vellora
