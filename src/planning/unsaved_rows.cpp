#include "planning/unsaved_rows.h"

#include "planning/day_plan.h"
#include "planning/plan_rows.h"
#include "store/statements.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace vellora {
namespace {

bool hasText(const Sheet& sheet, int row, int cols) {
  for (int col = 0; col < cols; ++col) {
    if (!sheet.GetCellText(col, row).isEmpty()) return true;
  }
  return false;
}

}  // namespace

SavedEntries::SavedEntries(ScheduleStore& store, const QString& activity) {
  read(store.open(statements::plansOfActivity(activity)));
}

SavedEntries::SavedEntries(ScheduleStore& store, QDate date) {
  read(store.open(statements::plansOn(date)));
}

void SavedEntries::read(Recordset entries) {
  for (; !entries.atEnd(); entries.moveNext()) {
    const std::pair place(entries.date(u"RQ"), entries.text(u"SJKH"));
    if (!entries_.contains(place)) entries_.insert(place, planTexts(entries));
  }
}

const PlanTexts* SavedEntries::find(QDate date, const QString& code) const {
  const auto entry = entries_.constFind({date, code});
  return entry == entries_.cend() ? nullptr : &*entry;
}

bool isUnsavedPlanRow(const Sheet& sheet, int row, const QString& activity,
                      const SavedEntries& saved) {
  if (!hasText(sheet, row, kPlanCols)) return false;
  const PlanTexts texts{sheet.GetCellText(kPlanActivity, row),
                        sheet.GetCellText(kPlanRequirement, row),
                        sheet.GetCellText(kPlanLevel, row)};
  if (!texts.activity.isEmpty() && texts.activity != activity) return false;
  const auto date = planDate(sheet, row);
  const PlanTexts* entry = date ? saved.find(*date, sheet.CellTag(kPlanTime, row)) : nullptr;
  return !entry || !areStoredAlike(*entry, texts);
}

bool isUnsavedDayRow(const Sheet& sheet, int row, QDate date, const SavedEntries& saved) {
  const PlanTexts texts{sheet.GetCellText(kDayActivity, row),
                        sheet.GetCellText(kDayRequirement, row), sheet.GetCellText(kDayLevel, row)};
  const PlanTexts* entry = saved.find(date, sheet.CellTag(kDayBlock, row));
  if (entry) return !areStoredAlike(*entry, texts);
  return !areStoredAlike(texts, {}) || !texts.level.isEmpty();
}

void findUnsavedRows(const Sheet& sheet, const std::function<bool(int row)>& isUnsaved,
                     UnsavedRows& found) {
  const std::vector<int> before = std::exchange(found.rows, {});
  for (int row = 0; row < sheet.Rows(); ++row) {
    const int changed = sheet.NextChangedRow(row, found.seen);
    std::copy(std::lower_bound(before.begin(), before.end(), row),
              std::lower_bound(before.begin(), before.end(), changed),
              std::back_inserter(found.rows));
    row = sheet.NextWrittenRow(changed);
    if (row < sheet.Rows() && isUnsaved(row)) found.rows.push_back(row);
  }
  found.seen = sheet;
}

}  // namespace vellora
