#include "schedule/calendar_occurrences.h"

#include "grid/files/file_error.h"
#include "routine/calendar_text.h"
#include "schedule/calendar_repetition.h"

#include <algorithm>
#include <map>
#include <set>

namespace vellora {
namespace {

constexpr int kDaysAtOnce = 366;  // of a calendar that is shown whole
constexpr int kHalfAYear = 26 * kDaysInAWeek;
constexpr qsizetype kMostZoneChanges = 5'000;
constexpr qint64 kLongestEvent = qint64{3'660} * 86'400;  // seconds

// Starts of one event's repetition, as moments or, where the file gives no more, as days.
class Starts {
 public:
  void add(const CalendarTime& time, qint64 moment, bool areDays) {
    if (time.isDay || areDays) days_.insert(time.wall.date());
    if (!time.isDay) moments_.insert(moment);
  }
  bool contains(const QDateTime& wall, qint64 moment) const {
    return moments_.contains(moment) || days_.contains(wall.date());
  }

 private:
  std::set<qint64> moments_;
  std::set<QDate> days_;
};

class Expansion {
 public:
  Expansion(const CalendarFile& file, QDate first, QDate last, const QTimeZone& here,
            const WorkProgress& progress)
      : file_(file),
        first_(first),
        last_(last),
        here_(here),
        progress_(progress),
        repetitions_(kMostOccurrences, progress) {}

  CalendarOccurrences run() {
    found_.unreadable = file_.unreadable;
    std::vector<std::vector<const CalendarEvent*>> events;  // of one UID each, in their order
    QHash<QString, std::size_t> places;
    for (const CalendarEvent& event : file_.events) {
      const std::size_t place =
          event.uid.isEmpty() ? events.size() : places.value(event.uid, events.size());
      if (place == events.size()) events.emplace_back();
      if (!event.uid.isEmpty()) places[event.uid] = place;
      events[place].push_back(&event);
    }
    for (const auto& versions : events) expand(versions);
    std::stable_sort(found_.all.begin(), found_.all.end(),
                     [](const auto& one, const auto& other) { return one.start < other.start; });
    return std::move(found_);
  }

 private:
  // The events of one UID: a newer version replaces an older one, and some stand for one occurrence
  // of another.
  void expand(const std::vector<const CalendarEvent*>& versions) {
    qint64 newest = std::numeric_limits<qint64>::min();
    std::map<qint64, const CalendarEvent*> single;
    for (const CalendarEvent* event : versions) {
      if (!event->replaced) {
        newest = std::max(newest, event->sequence);
        continue;
      }
      const CalendarEvent*& known = single[secondsOf(*event->replaced)];
      if (!known || known->sequence <= event->sequence) known = event;
    }
    std::set<std::pair<QDateTime, QString>> seen;  // some files give all events the same UID
    for (const CalendarEvent* event : versions) {
      if (event->replaced || event->sequence < newest) continue;
      if (seen.emplace(event->start.wall, event->title).second) expandMain(*event, single);
    }
    for (const auto& [moment, event] : single) add(*event, event->start.wall);
  }

  void expandMain(const CalendarEvent& event,
                  const std::map<qint64, const CalendarEvent*>& single) {
    if (event.isCancelled) {
      ++found_.cancelled;
      return;
    }
    Starts without;
    for (const CalendarTime& gap : event.gaps) {
      without.add(gap, secondsOf(gap), event.start.isDay);
    }
    for (const auto& [moment, other] : single) {
      without.add(*other->replaced, moment, event.start.isDay);
    }
    for (const QDateTime& wall : startsOf(event)) {
      if (!without.contains(wall, secondsOf({wall, event.start.isDay, event.start.zone}))) {
        add(event, wall);
      }
    }
  }

  // By the clocks of the event's zone, which may be more than a day ahead or behind.
  std::set<QDateTime> startsOf(const CalendarEvent& event) {
    const QDateTime first(first_.addDays(-2), QTime(0, 0), Qt::UTC);
    const QDateTime last(last_.addDays(2), QTime(23, 59, 59), Qt::UTC);
    std::set<QDateTime> starts;
    bool isRepeated = false;
    for (const QByteArray& rule : event.rules) {
      const auto times =
          repetitions_.times(rule, event.start, zoneOf(event.start.zone), first, last);
      if (!times) {
        ++found_.unreadable;
        continue;
      }
      isRepeated = true;
      starts.insert(times->begin(), times->end());
    }
    if (!isRepeated) starts.insert(event.start.wall);
    for (const CalendarTime& extra : event.extras) {
      const CalendarZone* zone = zoneOf(event.start.zone);
      const bool isSame = extra.isDay || extra.zone == event.start.zone;
      starts.insert(isSame ? extra.wall : (zone ? *zone : here_).wallAt(secondsOf(extra)));
    }
    return starts;
  }

  void add(const CalendarEvent& event, const QDateTime& wall) {
    repetitions_.count(0);
    if (event.isCancelled) {
      ++found_.cancelled;
      return;
    }
    const QDateTime start = hereOf({wall, event.start.isDay, event.start.zone});
    const QDateTime end =
        hereOf({wall.addSecs(lengthOf(event)), event.start.isDay, event.start.zone});
    if (event.start.isDay) return addDays(event, start.date(), end.date());
    if (!isIn(start.date())) return;
    repetitions_.count();
    found_.all.push_back({start, std::max(start, end), false, &event});
  }

  void addDays(const CalendarEvent& event, QDate first, QDate end) {
    const QDate last = std::min(std::max(first, end.addDays(-1)), last_);
    for (QDate day = std::max(first, first_); day <= last; day = day.addDays(1)) {
      repetitions_.count();
      const QDateTime midnight(day, QTime(0, 0), Qt::UTC);
      found_.all.push_back({midnight, midnight.addDays(1), true, &event});
    }
  }

  // Seconds by the clocks of the event's zone, at most some years.
  qint64 lengthOf(const CalendarEvent& event) {
    if (!event.end) return event.duration;
    const bool isSame = event.start.isDay || event.end->zone == event.start.zone;
    const qint64 length = isSame ? event.start.wall.secsTo(event.end->wall)
                                 : secondsOf(*event.end) - secondsOf(event.start);
    return std::clamp<qint64>(length, 0, kLongestEvent);
  }

  qint64 secondsOf(const CalendarTime& time) {
    const CalendarZone* zone = zoneOf(time.zone);
    return (zone ? *zone : here_).secondsAt(time.wall);
  }

  QDateTime hereOf(const CalendarTime& time) {
    const CalendarZone* zone = time.isDay ? nullptr : zoneOf(time.zone);
    return zone ? here_.wallAt(zone->secondsAt(time.wall)) : time.wall;
  }

  // Null for local times, for which those of an unknown zone are taken.
  const CalendarZone* zoneOf(const QString& name) {
    if (name.isEmpty()) return nullptr;
    const auto known = zones_.find(name);
    if (known != zones_.end()) return known->second ? &*known->second : nullptr;
    auto zone = zoneNamed(name);
    if (!zone && file_.zones.contains(name)) zone = zoneOfFile(file_.zones[name]);
    if (!zone) found_.unknownZones << name;
    const auto& stored = zones_[name] = std::move(zone);
    return stored ? &*stored : nullptr;
  }

  std::optional<CalendarZone> zoneOfFile(const std::vector<ZoneChange>& changes) const {
    const QDateTime last(last_.addDays(kDaysAtOnce), QTime(0, 0), Qt::UTC);
    std::vector<ZoneOffset> offsets;
    Repetitions repetitions(kMostZoneChanges, progress_);
    try {
      for (const ZoneChange& change : changes) {
        if (!change.start.wall.isValid()) continue;
        const auto add = [&](const QDateTime& wall) {
          offsets.push_back({wall, change.before, change.after});
        };
        add(change.start.wall);
        for (const CalendarTime& extra : change.extras) add(extra.wall);
        const CalendarZone before({{change.start.wall, change.before, change.before}});
        for (const QByteArray& rule : change.rules) {
          const auto times =
              repetitions.times(rule, change.start, &before, change.start.wall, last);
          if (times) std::for_each(times->begin(), times->end(), add);
        }
      }
    } catch (const FileError&) {
      return {};  // no real zone
    }
    if (offsets.empty()) return {};
    return CalendarZone(std::move(offsets));
  }

  bool isIn(QDate day) const { return day >= first_ && day <= last_; }

  const CalendarFile& file_;
  QDate first_;
  QDate last_;
  CalendarZone here_;
  const WorkProgress& progress_;
  Repetitions repetitions_;
  std::map<QString, std::optional<CalendarZone>> zones_;
  CalendarOccurrences found_;
};

}  // namespace

CalendarOccurrences occurrencesIn(const CalendarFile& file, QDate first, QDate last,
                                  const QTimeZone& here, const WorkProgress& progress) {
  return Expansion(file, first, last, here, progress).run();
}

std::pair<QDate, QDate> proposedDays(const CalendarFile& file, QDate today) {
  QDate first = kLastDay;
  QDate last = kFirstDay;
  for (const CalendarEvent& event : file.events) {
    first = std::min(first, event.start.wall.date());
    last = std::max(last, event.rules.empty() ? event.start.wall.date() : kLastDay);
  }
  if (first > last) return {today, today.addDays(kHalfAYear)};
  if (first.daysTo(last) < kDaysAtOnce) return {first, last};
  if (last < today) return {last.addDays(-kHalfAYear), last};
  const QDate begin = std::max(first, today.addDays(1 - today.dayOfWeek()));
  return {begin, std::min(last, begin.addDays(kHalfAYear))};
}

}  // namespace vellora
