#pragma once

#include "routine/work_step.h"

#include <QDateTime>
#include <QHash>
#include <QString>

#include <optional>
#include <vector>

// What a calendar file (RFC 5545) says, before repetitions are expanded.
namespace vellora {

// Times of a clock on the wall carry Qt::UTC, whatever their zone, so that every one exists.
struct CalendarTime {
  QDateTime wall;
  bool isDay = false;  // a whole day, from midnight on
  QString zone = {};   // as the file names it; "UTC", or empty for wherever it is read
};

struct CalendarEvent {
  QString uid;
  QString title;
  QString details;
  QString location;
  QString category;  // one of the planner's, if any
  QString level;
  CalendarTime start;
  std::optional<CalendarTime> end;
  qint64 duration = 0;                   // seconds, where there is no end
  std::vector<QByteArray> rules;         // of repetition
  std::vector<CalendarTime> extras;      // further starts
  std::vector<CalendarTime> gaps;        // starts that are left out
  std::optional<CalendarTime> replaced;  // the start whose occurrence this event stands for
  qint64 sequence = 0;
  bool isCancelled = false;
};

// From when on a zone's clocks go differently.
struct ZoneChange {
  CalendarTime start;
  int before = 0;  // seconds ahead of UTC
  int after = 0;
  std::vector<QByteArray> rules;
  std::vector<CalendarTime> extras;
};

struct CalendarFile {
  std::vector<CalendarEvent> events;
  QHash<QString, std::vector<ZoneChange>> zones;
  int unreadable = 0;  // events without a time that can be read
};

// Reads UTF-8, UTF-16 with its mark, or GB18030. Throws FileError for a file that is too large, no
// calendar, cut off or nested beyond reason, WorkCancelled.
CalendarFile readCalendarFile(const QString& path, const WorkProgress& progress = {});
CalendarFile readCalendar(const QByteArray& content, const WorkProgress& progress = {});

}  // namespace vellora
