#include "schedule/plan_saving.h"

#include "schedule/plan_entries.h"
#include "schedule/plan_rows.h"
#include "store/statements.h"
#include "store/store_error.h"

#include <QHash>
#include <QSet>

#include <algorithm>
#include <utility>
#include <vector>

namespace vellora {
namespace {

QDate requiredDate(const Sheet& sheet, int row) {
  const auto date = planDate(sheet, row);
  if (date) return *date;
  throw StoreError(StoreFault::NotADateOrTime,
                   u"“%1”不是日期，请写成 2007-03-05 的样子。"_qs.arg(planDateText(sheet, row)));
}

QString inRow(int row, const StoreError& error) {
  return u"第 %1 行：%2"_qs.arg(QString::number(row + 1), error.description());
}

// Brings the saved entries of one activity in line with rows, one row after the other.
class PlanSaver {
 public:
  PlanSaver(ScheduleStore& store, const QString& activity);

  void saveRow(const Sheet& sheet, int row, QList<TakenBlock>& taken);
  void deleteUnwritten();

 private:
  bool isWritten(const SavedEntries::Place& place) const;
  std::optional<QString> otherHolder(const SavedEntries::Place& place);
  void write(const SavedEntries::Place& place, const PlanTexts& texts);

  static constexpr qsizetype kAdded = -1;

  ScheduleStore& store_;
  QString activity_;
  Recordset old_;
  Recordset all_;                                   // never read: only added to
  std::vector<bool> kept_;                          // by position in old_
  QHash<SavedEntries::Place, qsizetype> position_;  // in old_, or kAdded
};

PlanSaver::PlanSaver(ScheduleStore& store, const QString& activity)
    : store_(store),
      activity_(activity),
      old_(store.open(statements::plansOfActivity(activity))),
      all_(store.open(statements::allPlans())),
      kept_(static_cast<std::size_t>(old_.count()), false) {
  for (; !old_.atEnd(); old_.moveNext()) {
    if (!isReadable(old_)) {
      kept_[static_cast<std::size_t>(old_.position())] = true;
      continue;
    }
    const SavedEntries::Place place{old_.date(u"RQ"), old_.text(u"SJKH")};
    if (!position_.contains(place)) position_[place] = old_.position();
  }
}

void PlanSaver::saveRow(const Sheet& sheet, int row, QList<TakenBlock>& taken) {
  const SavedEntries::Place place{requiredDate(sheet, row), sheet.CellTag(kPlanTime, row)};
  if (!isWritten(place)) {
    if (const auto holder = otherHolder(place)) {
      taken.append({planDateText(sheet, row), *holder, place});
      return;
    }
  }
  write(place,
        {activity_, sheet.GetCellText(kPlanRequirement, row), sheet.GetCellText(kPlanLevel, row)});
}

// By this save.
bool PlanSaver::isWritten(const SavedEntries::Place& place) const {
  const auto position = position_.constFind(place);
  if (position == position_.cend()) return false;
  return *position == kAdded || kept_[static_cast<std::size_t>(*position)];
}

std::optional<QString> PlanSaver::otherHolder(const SavedEntries::Place& place) {
  auto entries = store_.readOnce(statements::planOfBlock(place.first, place.second));
  while (entries.next()) {
    if (const QString holder = entries.text(u"HDMC"); holder != activity_) return holder;
  }
  return {};
}

void PlanSaver::write(const SavedEntries::Place& place, const PlanTexts& texts) {
  const auto position = position_.constFind(place);
  if (position == position_.cend()) {
    addPlan(all_, place.first, place.second, texts);
    position_[place] = kAdded;
  } else if (*position == kAdded) {
    auto earlier =
        store_.open(statements::planOfActivityInBlock(activity_, place.first, place.second));
    editPlan(earlier, texts);
  } else {
    old_.moveTo(*position);
    editPlan(old_, texts);
    kept_[static_cast<std::size_t>(*position)] = true;
  }
}

// From the last entry on, so that the positions before it stay.
void PlanSaver::deleteUnwritten() {
  for (qsizetype position = old_.count() - 1; position >= 0; --position) {
    if (kept_[static_cast<std::size_t>(position)]) continue;
    old_.moveTo(position);
    old_.remove();
  }
}

void saveRows(PlanSaver& saver, const Sheet& sheet, const QString& activity,
              PlanSaveOutcome& outcome, const WorkProgress& progress) {
  int row = 0;
  try {
    for (; row < sheet.Rows(); row = sheet.NextWrittenRow(row + 1)) {
      report(progress, {u"正在保存…"_qs, row, sheet.Rows()});
      if (takesPartInSave(sheet, row, activity)) saver.saveRow(sheet, row, outcome.taken);
    }
  } catch (const StoreError& error) {
    outcome.failure = inRow(row, error);
    return;
  }
  saver.deleteUnwritten();
}

PlanTexts planTextsInRow(const Sheet& sheet, int row) {
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

PlanSaveOutcome writePlan(ScheduleStore& store, const Sheet& sheet, const QString& activity,
                          const SavedEntries* asRead, const WorkProgress& progress) {
  PlanSaveOutcome outcome;
  try {
    ScheduleStore::Transaction transaction(store);
    if (asRead && SavedEntries(store, activity) != *asRead) {
      throw StoreError(StoreFault::RowChanged, u"另一个程序已经改动了这个项目的计划。"_qs);
    }
    PlanSaver saver(store, activity);
    saveRows(saver, sheet, activity, outcome, progress);
    const SavedEntries saved(store, activity);
    transaction.commit();
    outcome.saved = saved;
  } catch (const StoreError& error) {
    if (error.fault() == StoreFault::RowChanged) throw;
    if (error.fault() == StoreFault::SavedDespiteError) throw;
    outcome.failure = nothingSaved(outcome.failure, error);
  }
  return outcome;
}

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
    if (entry && areStoredAlike(*entry, planTextsInRow(sheet, row))) continue;
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
