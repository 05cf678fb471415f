#include "planning/plan_saving.h"

#include "planning/plan_entry.h"
#include "planning/plan_rows.h"
#include "store/statements.h"
#include "store/store_error.h"

#include <QHash>

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

}  // namespace

PlanSaveOutcome savePlan(ScheduleStore& store, const Sheet& sheet, const QString& activity,
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

}  // namespace vellora
