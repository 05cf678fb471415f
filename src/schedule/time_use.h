#pragma once

#include "grid/sheet/sheet.h"
#include "routine/planner_error.h"
#include "store/schedule_store.h"

#include <QDate>
#include <QString>

#include <vector>

namespace vellora {

// Where the planned time of a range of days goes. Every plan entry whose time block and activity
// exist counts the full length of its block; all times are whole minutes. A block whose end lies
// before its start counts negative.

// Shares of nothing: every counted block is of zero length.
class NoPlannedTime : public PlannerError {
 public:
  NoPlannedTime();
};

struct CategoryUse {
  QString label;  // as stored with the activities; not always one of the six
  qint64 minutes;
};

// Both days belong to the range; empty when it holds no entry. Throws StoreError.
std::vector<CategoryUse> useByCategory(ScheduleStore& store, QDate first, QDate last);
qint64 totalMinutes(const std::vector<CategoryUse>& uses);

QString durationText(qint64 minutes);  // 3小时20分钟
QString totalText(QDate first, QDate last, qint64 total);
QString shareText(qint64 minutes, qint64 total);  // 共3小时20分钟 占12.5%

// Per cent with at most two decimals, a half to the even neighbour. Throws NoPlannedTime.
QString percentText(qint64 minutes, qint64 total);

inline constexpr int kFullBar = 3'600;  // twips, 1/1440 inch
// Twips, rounded down; out of 0 to kFullBar where blocks of negative length are counted. Throws
// NoPlannedTime.
qint64 barWidth(qint64 minutes, qint64 total);

// Headings and looks, no rows.
void setUpTimeUse(Sheet& sheet);
// One row for each activity of the range, by category and name. Throws StoreError, NoPlannedTime;
// the rows before the failure stay.
void listActivities(Sheet& sheet, ScheduleStore& store, QDate first, QDate last, qint64 total);

}  // namespace vellora
