#pragma once

#include "schedule/calendar_file.h"

#include <QStringList>
#include <QTimeZone>

#include <utility>

namespace vellora {

inline constexpr qsizetype kMostOccurrences = 20'000;

// One time at which something happens, by the clocks of the place where it is read.
struct CalendarOccurrence {
  QDateTime start;  // with Qt::UTC, as in CalendarTime
  QDateTime end;    // not before the start
  bool isDay = false;
  const CalendarEvent* event = nullptr;  // of the file
};

struct CalendarOccurrences {
  std::vector<CalendarOccurrence> all;  // by their start
  int cancelled = 0;                    // events, or single ones of a repetition
  int unreadable = 0;                   // events or rules of repetition
  QStringList unknownZones;             // whose times are taken for local ones
};

// What begins on the days from first to last; of whole days one for each. A cancelled or moved one
// of a repetition is left out where it was. Throws FileError when there are more than
// kMostOccurrences, WorkCancelled.
CalendarOccurrences occurrencesIn(const CalendarFile& file, QDate first, QDate last,
                                  const QTimeZone& here = QTimeZone::systemTimeZone(),
                                  const WorkProgress& progress = {});

// The days worth looking at: all of a short calendar, of a long one half a year from this
// week on.
std::pair<QDate, QDate> proposedDays(const CalendarFile& file, QDate today);

}  // namespace vellora
