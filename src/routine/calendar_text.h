#pragma once

#include <QDate>
#include <QString>
#include <QTime>

namespace vellora {

// Of the calendar that the planner knows.
inline const QDate kFirstDay(1752, 9, 14);
inline const QDate kLastDay(9999, 12, 31);
inline constexpr int kDaysInAWeek = 7;

// Separates the lines of one cell's text.
inline constexpr QChar kLineBreak{u'\r'};

// Texts of dates and times of day, Chinese whatever the system's language. An invalid date or time
// gives an empty text.

QString isoDate(QDate date);      // 2007-03-05
QString longDate(QDate date);     // 2007年3月5日
QString monthAndDay(QDate date);  // 03月05日
QString weekdayName(QDate date);  // 星期一
QString shortTime(QTime time);    // 08:30

// "08:00-09:30", the hours of a time block.
QString blockHours(QTime start, QTime end);

// Length of a time block in minutes, from hours and minutes alone; negative when reversed.
int blockMinutes(QTime start, QTime end);

}  // namespace vellora
