#include "schedule/plan_repetition.h"

#include "routine/number_text.h"
#include "schedule/plan_entries.h"
#include "schedule/plan_rows.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace vellora {
namespace {

using Holder = std::optional<PlanTexts>;

std::vector<QDate> copyDates(QDate source, const Repetition& repetition) {
  const qint64 room = source.daysTo(kLastDay) / repetition.stepDays;
  std::vector<QDate> dates;
  for (qint64 k = 1; k <= std::min<qint64>(repetition.count, room); ++k) {
    dates.push_back(source.addDays(k * repetition.stepDays));
  }
  return dates;
}

// Who holds the block on each of the dates.
std::vector<Holder> holdersOn(ScheduleStore& store, const QString& code,
                              const std::vector<QDate>& dates, const WorkProgress& progress) {
  const ScheduleStore::ReadTransaction oneView(store);
  std::vector<Holder> holders;
  for (const QDate date : dates) {
    report(progress, {u"正在追加计划…"_qs, std::ssize(holders), std::ssize(dates)});
    holders.push_back(entryOfBlock(store, date, code));
  }
  return holders;
}

// A copy says the same on its date; where another entry holds the block it shows that one.
void writeCopy(Sheet& sheet, int row, PlanRowCopy copy, const Holder& holder) {
  auto& colours = copy.settings(kPlanActivity).colours;
  colours.reset();  // black on white where the skin has nothing else
  if (holder) colours = CellColours{kRed, kWhite};
  copy.setTag(kPlanActivity, holder ? holder->activity : QString());
  if (holder) {
    copy.setText(kPlanActivity, holder->activity);
    copy.setText(kPlanRequirement, holder->requirement);
    copy.setText(kPlanLevel, holder->level);
  }
  copy.writeTo(sheet, row);
}

}  // namespace

int repetitionCount(const QString& text) {
  constexpr double kMost = std::numeric_limits<int>::max();
  return static_cast<int>(std::min(roundHalfEven(numericValue(text)), kMost));
}

QString boundedWeeks(const QString& text, int change) {
  const double weeks = numericValue(text) + change;
  if (weeks < kFewestWeeks) return QString::number(kFewestWeeks);
  if (weeks > kMostWeeks) return QString::number(kMostWeeks);
  return change == 0 ? text : numberText(weeks);
}

std::optional<int> repeatPlanRow(ScheduleStore& store, Sheet& sheet, int row,
                                 const Repetition& repetition, const WorkProgress& progress) {
  const auto source = planDate(sheet, row);
  if (sheet.GetCellText(kPlanActivity, row).isEmpty() || !source) return {};
  const std::vector<QDate> dates = copyDates(*source, repetition);
  const auto holders = holdersOn(store, sheet.CellTag(kPlanTime, row), dates, progress);
  PlanRowCopy copy(sheet, row);
  sheet.InsertRows(row + 1, static_cast<int>(dates.size()));
  for (std::size_t k = 0; k < dates.size(); ++k) {
    copy.setText(kPlanDate, planDateCell(dates[k]));
    writeCopy(sheet, ++row, copy, holders[k]);
  }
  keepSparePlanRow(sheet, row);
  return row + 1;
}

}  // namespace vellora
