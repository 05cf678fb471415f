#include "schedule/week_use.h"

#include "routine/calendar_text.h"
#include "schedule/list_columns.h"
#include "schedule/time_use.h"
#include "store/statements.h"

#include <algorithm>
#include <numeric>

namespace vellora {
namespace {

constexpr ListColumn kPeriodColumns[]{
    {u"日期", 190},  {u"1-工作", 80}, {u"2-学习", 80}, {u"3-运动", 80}, {u"4-社交", 80},
    {u"5-娱乐", 80}, {u"6-休息", 80}, {u"其他", 80},   {u"已计划", 90}, {u"空闲", 90}};
constexpr int kPeriodRowHeight = 29;

qint64 dayMinutes(ScheduleStore& store) {
  qint64 minutes = 0;
  RowCursor blocks = store.readOnce(statements::allBlocks());
  while (blocks.next()) {
    minutes += std::max(blockMinutes(blocks.time(u"SJ0"), blocks.time(u"SJ1")), 0);
  }
  return minutes;
}

std::vector<PeriodUse> periodsOf(QDate first, QDate last, qint64 minutesADay) {
  const bool isByDay = first.daysTo(last) < kMostSingleDays;
  std::vector<PeriodUse> periods;
  for (QDate day = first; day <= last; day = periods.back().last.addDays(1)) {
    const QDate sunday = day.addDays(kDaysInAWeek - day.dayOfWeek());
    PeriodUse period{day, isByDay ? day : std::min(sunday, last)};
    period.free = minutesADay * (day.daysTo(period.last) + 1);
    periods.push_back(period);
  }
  return periods;
}

}  // namespace

qint64 PeriodUse::plannedInAll() const {
  return std::accumulate(planned.begin(), planned.end(), other);
}

std::vector<PeriodUse> useByPeriod(ScheduleStore& store, QDate first, QDate last) {
  RowCursor rows = store.readOnce(statements::minutesByDay(first, last));
  if (!rows.next()) return {};
  std::vector<PeriodUse> periods = periodsOf(first, last, dayMinutes(store));
  do {
    const auto period =
        std::lower_bound(periods.begin(), periods.end(), rows.date(u"RQ"),
                         [](const PeriodUse& use, QDate day) { return use.last < day; });
    const auto category = categoryIndex(rows.text(u"HDLB"));
    (category ? period->planned[static_cast<std::size_t>(*category)] : period->other) +=
        rows.number(u"SJ");
  } while (rows.next());
  for (PeriodUse& period : periods) {
    period.free = std::max<qint64>(period.free - period.plannedInAll(), 0);
  }
  return periods;
}

QString periodText(const PeriodUse& use) {
  const QString first = use.first.toString(u"M月d日");
  if (use.first == use.last) return first + u' ' + weekdayName(use.first);
  return u"%1 – %2 第%3周"_qs.arg(first, use.last.toString(u"M月d日"),
                                  QString::number(use.first.weekNumber()));
}

void setUpPeriods(Sheet& sheet) {
  setUpList(sheet, kPeriodColumns, kPeriodRowHeight);
  sheet.SetRows(0);
}

void listPeriods(Sheet& sheet, const std::vector<PeriodUse>& uses) {
  setUpPeriods(sheet);
  sheet.SetRows(static_cast<int>(uses.size()));
  int row = 0;
  for (const PeriodUse& use : uses) {
    QStringList texts{periodText(use)};
    for (const qint64 minutes : use.planned) texts << durationText(minutes);
    texts << durationText(use.other) << durationText(use.plannedInAll()) << durationText(use.free);
    for (int col = 0; col < texts.size(); ++col) sheet.SetCellText(col, row, texts[col]);
    ++row;
  }
}

}  // namespace vellora
