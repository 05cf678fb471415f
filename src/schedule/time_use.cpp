#include "schedule/time_use.h"

#include "routine/calendar_text.h"
#include "routine/number_text.h"
#include "schedule/list_columns.h"
#include "store/statements.h"

#include <cstdlib>

namespace vellora {
namespace {

constexpr ListColumn kUseColumns[]{
    {u"类别", 90}, {u"活动", 180}, {u"总时间", 140}, {u"次数", 90}, {u"百分比％", 100}};
constexpr int kUseCols = static_cast<int>(std::size(kUseColumns));
constexpr int kUseRowHeight = 29;

struct Quotient {
  qint64 whole;
  qint64 rest;  // never negative
};

Quotient dividedDown(qint64 number, qint64 positive) {
  const qint64 rest = (number % positive + positive) % positive;
  return {(number - rest) / positive, rest};
}

// The share in units of 1/scale of the total, in whole numbers: a tie is a tie.
Quotient share(qint64 minutes, qint64 total, qint64 scale) {
  if (total == 0) throw NoPlannedTime();
  return dividedDown((total < 0 ? -minutes : minutes) * scale, std::abs(total));
}

// A share that cannot be told is met last: the rest of its row stands.
void addActivity(Sheet& sheet, RowCursor& rows, qint64 total) {
  const qint64 minutes = rows.number(u"SJ");
  const int row = sheet.Rows();
  sheet.SetRows(row + 1);
  const QString texts[] = {rows.text(u"HDLB"), rows.text(u"HDMC"), durationText(minutes),
                           QString::number(rows.number(u"CS"))};
  sheet.SetRowTexts(row, texts);
  sheet.SetCellText(kUseCols - 1, row, percentText(minutes, total));
  for (int col = 0; col < kUseCols; ++col) {
    sheet.SetCellAlign(col, row, col < 2 ? kAlignLeftMiddle : kAlignCentred);
  }
}

}  // namespace

NoPlannedTime::NoPlannedTime()
    : PlannerError(0, u"所选日期内的作息总时间为零，无法计算百分比。"_qs) {}

std::vector<CategoryUse> useByCategory(ScheduleStore& store, QDate first, QDate last) {
  std::vector<CategoryUse> uses;
  RowCursor rows = store.readOnce(statements::minutesByCategory(first, last));
  while (rows.next()) uses.push_back({rows.text(u"HDLB"), rows.number(u"SJ")});
  return uses;
}

qint64 totalMinutes(const std::vector<CategoryUse>& uses) {
  qint64 total = 0;
  for (const CategoryUse& use : uses) total += use.minutes;
  return total;
}

QString durationText(qint64 minutes) {
  const Quotient hours = dividedDown(minutes, 60);
  return u"%1小时%2分钟"_qs.arg(hours.whole).arg(hours.rest);
}

QString totalText(QDate first, QDate last, qint64 total) {
  return u"从%1到%2作息总时间为:%3"_qs.arg(isoDate(first), isoDate(last), durationText(total));
}

QString shareText(qint64 minutes, qint64 total) {
  return u"共%1 占%2%"_qs.arg(durationText(minutes), percentText(minutes, total));
}

QString percentText(qint64 minutes, qint64 total) {
  const Quotient hundredths = share(minutes, total, 10'000);
  const qint64 twice = 2 * hundredths.rest;
  const qint64 divisor = std::abs(total);
  const bool up = twice > divisor || (twice == divisor && hundredths.whole % 2 != 0);
  return numberText(static_cast<double>(hundredths.whole + (up ? 1 : 0)) / 100);
}

qint64 barWidth(qint64 minutes, qint64 total) {
  return share(minutes, total, kFullBar).whole;
}

void setUpTimeUse(Sheet& sheet) {
  setUpList(sheet, kUseColumns, kUseRowHeight);
  sheet.SetRows(0);
}

void listActivities(Sheet& sheet, ScheduleStore& store, QDate first, QDate last, qint64 total) {
  RowCursor rows = store.readOnce(statements::minutesByActivity(first, last));
  while (rows.next()) addActivity(sheet, rows, total);
  if (sheet.Rows() == 0) return;
  sheet.SetRangeBorder(0, 0, kUseCols - 1, sheet.Rows() - 1, 0, 1, kBlack);
}

}  // namespace vellora
