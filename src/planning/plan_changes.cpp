#include "planning/plan_changes.h"

#include "planning/plan_rows.h"

#include <QSet>

#include <algorithm>

namespace vellora {
namespace {

PlanTexts textsInRow(const Sheet& sheet, int row) {
  return {sheet.GetCellText(kPlanActivity, row), sheet.GetCellText(kPlanRequirement, row),
          sheet.GetCellText(kPlanLevel, row)};
}

bool isBlank(const Sheet& sheet, int row) {
  for (int col = 0; col < kPlanCols; ++col) {
    if (!sheet.GetCellText(col, row).isEmpty()) return false;
  }
  return true;
}

// What keeps a save from storing a row that is not blank; empty when one stores it.
QString whyNotStored(const Sheet& sheet, int row, const QString& activity) {
  const QString named = sheet.GetCellText(kPlanActivity, row);
  if (planDateText(sheet, row).isEmpty()) return u"没有日期"_qs;
  if (!planDate(sheet, row)) return u"的日期读不出来"_qs;
  if (sheet.CellTag(kPlanTime, row).isEmpty()) return u"没有时间块"_qs;
  if (named.isEmpty()) return u"没有内容"_qs;
  return named == activity ? QString() : u"的内容是“%1”"_qs.arg(named);
}

// A row that only tells who holds a block.
bool tellsHolder(const Sheet& sheet, int row) {
  const QString holder = sheet.CellTag(kPlanActivity, row);
  return !holder.isEmpty() && holder == sheet.GetCellText(kPlanActivity, row);
}

QString takenText(const QList<TakenBlock>& taken, const SavedEntries::Place& place) {
  const auto found = std::find_if(taken.begin(), taken.end(),
                                  [&](const TakenBlock& each) { return each.place == place; });
  return found == taken.end() ? QString() : u"的时间已经排为“%1”"_qs.arg(found->holder);
}

}  // namespace

Changes planChanges(const Sheet& sheet, const QString& activity, const SavedEntries& saved,
                    const QList<TakenBlock>& taken) {
  Changes changes;
  QSet<SavedEntries::Place> shown;
  for (int row = sheet.NextWrittenRow(0); row < sheet.Rows(); row = sheet.NextWrittenRow(row + 1)) {
    if (isBlank(sheet, row)) continue;
    const QString why = whyNotStored(sheet, row, activity);
    if (!why.isEmpty()) {
      const bool isHolder = tellsHolder(sheet, row) && !why.startsWith(u"没有");
      changes.rows.push_back({row, why, !isHolder});
      continue;
    }
    const SavedEntries::Place place(*planDate(sheet, row), sheet.CellTag(kPlanTime, row));
    const PlanTexts* entry = saved.find(place.first, place.second);
    if (entry) shown.insert(place);
    if (entry && areStoredAlike(*entry, textsInRow(sheet, row))) continue;
    changes.rows.push_back({row, entry ? QString() : takenText(taken, place)});
  }
  changes.missing = static_cast<int>(saved.count() - shown.size());
  if (saved.unreadable() > 0) {
    changes.note =
        u"有 %1 条计划的日期或时间块读不出来，没有列出，保存时保持原样"_qs.arg(saved.unreadable());
  }
  return changes;
}

}  // namespace vellora
