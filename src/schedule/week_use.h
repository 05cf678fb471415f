#pragma once

#include "grid/sheet/sheet.h"
#include "routine/category.h"
#include "store/schedule_store.h"

#include <QDate>

#include <array>
#include <vector>

namespace vellora {

// How the planned time of a few days, up to a week, divides, in minutes; counted as in time_use.h.
struct PeriodUse {
  QDate first;
  QDate last;
  std::array<qint64, kCategoryCount> planned{};  // by category
  qint64 other = 0;                              // planned, of no category
  qint64 free = 0;  // what the time blocks of these days have room for besides; never negative

  qint64 plannedInAll() const;
};

// A range of up to so many days is divided by days, a longer one by weeks from Monday on.
inline constexpr qint64 kMostSingleDays = 35;

// Every period from the first day to the last, planned or not; empty when the range holds no plan.
// Throws StoreError.
std::vector<PeriodUse> useByPeriod(ScheduleStore& store, QDate first, QDate last);

// "11月23日" or "11月23日 – 11月29日 第48周".
QString periodText(const PeriodUse& use);

// A row for each period: its days, each category, and what is planned and free in all.
void setUpPeriods(Sheet& sheet);
void listPeriods(Sheet& sheet, const std::vector<PeriodUse>& uses);

}  // namespace vellora
