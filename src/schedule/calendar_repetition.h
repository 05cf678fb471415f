#pragma once

#include "routine/work_step.h"
#include "schedule/calendar_file.h"

#include <QDeadlineTimer>
#include <QTimeZone>

#include <memory>
#include <variant>

namespace vellora {

// Ahead of UTC, and when.
struct ZoneOffset {
  QDateTime from;  // as the clocks before it show
  int before;      // seconds
  int after;
};

// Where the times of a calendar file are told.
class CalendarZone {
 public:
  explicit CalendarZone(const QTimeZone& zone) : zone_(zone) {}
  explicit CalendarZone(std::vector<ZoneOffset> offsets);

  // Seconds since 1970 in UTC. An hour that comes twice is its first.
  qint64 secondsAt(const QDateTime& wall) const;
  QDateTime wallAt(qint64 seconds) const;

 private:
  std::variant<QTimeZone, std::vector<ZoneOffset>> zone_;
};

// By the name that it has there: Asia/Shanghai, also behind a maker's prefix, or a name as Windows
// has it.
std::optional<CalendarZone> zoneNamed(const QString& name);

// Expands rules of repetition for one file, as much of it as a planner can show: throws FileError
// when that is more than `most` dates or takes too long, WorkCancelled.
class Repetitions {
 public:
  Repetitions(qsizetype most, const WorkProgress& progress)
      : most_(most), progress_(progress), deadline_(kPatience) {}

  // The rule's times from `first` to `last`, which include the start itself, as the start's clock
  // shows them. `zone` is the start's, null for local time. None when the rule cannot be read.
  std::optional<std::vector<QDateTime>> times(const QByteArray& rule, const CalendarTime& start,
                                              const CalendarZone* zone, const QDateTime& first,
                                              const QDateTime& last);
  // To be told for every date that is made of the file in another way.
  void count(qsizetype dates = 1);

 private:
  void look() const;

  static constexpr int kPatience = 10'000;  // milliseconds

  qsizetype most_;
  const WorkProgress& progress_;
  QDeadlineTimer deadline_;
  qsizetype dates_ = 0;
  qint64 counted_ = 0;
};

}  // namespace vellora
