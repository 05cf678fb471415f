#include "schedule/calendar_repetition.h"

#include "grid/files/file_error.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <libical/ical.h>

namespace vellora {
namespace {

constexpr qint64 kMostSteps = 1'000'000;  // of one rule; the library cannot be stopped within

icaltimetype icalTimeOf(const CalendarTime& time) {
  const QDate date = time.wall.date();
  const QTime clock = time.wall.time();
  icaltimetype result = icaltime_null_time();
  result.year = date.year();
  result.month = date.month();
  result.day = date.day();
  result.is_date = time.isDay ? 1 : 0;
  if (time.isDay) return result;
  result.hour = clock.hour();
  result.minute = clock.minute();
  result.second = clock.second();
  return result;
}

QDateTime wallOf(const icaltimetype& time) {
  return {QDate(time.year, time.month, time.day), QTime(time.hour, time.minute, time.second),
          Qt::UTC};
}

// The rule's own end as the start's clock shows it; a day ends at its last second.
QDateTime endOf(const icaltimetype& until, const CalendarZone* zone) {
  if (until.is_date) return wallOf(until).addSecs(86'399);
  if (!icaltime_is_utc(until) || !zone) return wallOf(until);
  return zone->wallAt(wallOf(until).toSecsSinceEpoch());
}

// 0 for those of a day or longer.
qint64 shortPeriod(const icalrecurrencetype& rule) {
  switch (rule.freq) {
    case ICAL_SECONDLY_RECURRENCE:
      return rule.interval;
    case ICAL_MINUTELY_RECURRENCE:
      return qint64{60} * rule.interval;
    case ICAL_HOURLY_RECURRENCE:
      return qint64{3'600} * rule.interval;
    default:
      return 0;
  }
}

class Rule {
 public:
  explicit Rule(const QByteArray& text)
      : rule(icalrecurrencetype_from_string(text.trimmed().constData())) {}
  ~Rule() { free(rule.rscale); }
  Rule(const Rule&) = delete;
  Rule& operator=(const Rule&) = delete;

  // Not of another calendar than the usual one, nor what the library takes for something else:
  // every some hours, but only at certain ones.
  bool isReadable() const {
    const auto isSet = [](const short* parts) { return parts[0] != ICAL_RECURRENCE_ARRAY_MAX; };
    const bool isAtCertain = isSet(rule.by_hour) || isSet(rule.by_minute) || isSet(rule.by_second);
    return rule.freq != ICAL_NO_RECURRENCE && rule.interval > 0 && rule.count >= 0 &&
           !rule.rscale && (shortPeriod(rule) == 0 || rule.interval == 1 || !isAtCertain);
  }

  icalrecurrencetype rule;
};

struct FreeIterator {
  void operator()(icalrecur_iterator* iterator) const { icalrecur_iterator_free(iterator); }
};

// A name that only looks like a zone's would be taken for UTC, and an older name is in no list.
bool isKnownZone(const QByteArray& id) {
  static const QRegularExpression kName(u"^[A-Za-z][A-Za-z0-9_+/-]*$"_qs);
  const QString name = QString::fromUtf8(id);
  return kName.match(name).hasMatch() && QTimeZone(id).isValid() &&
         (QTimeZone::isTimeZoneIdAvailable(id) ||
          QFileInfo(u"/usr/share/zoneinfo/"_qs + name).isFile());
}

[[noreturn]] void failAsTooMuch() {
  throw FileError(u"日历里的重复太密或太长，没有展开。请选短一些的日期范围再试。"_qs);
}

}  // namespace

CalendarZone::CalendarZone(std::vector<ZoneOffset> offsets) {
  std::sort(offsets.begin(), offsets.end(),
            [](const ZoneOffset& one, const ZoneOffset& other) { return one.from < other.from; });
  zone_ = std::move(offsets);
}

qint64 CalendarZone::secondsAt(const QDateTime& wall) const {
  if (const auto* zone = std::get_if<QTimeZone>(&zone_)) {
    return QDateTime(wall.date(), wall.time(), *zone).toSecsSinceEpoch();
  }
  const auto& offsets = std::get<std::vector<ZoneOffset>>(zone_);
  const auto later =
      std::upper_bound(offsets.begin(), offsets.end(), wall,
                       [](const QDateTime& time, const ZoneOffset& o) { return time < o.from; });
  return wall.toSecsSinceEpoch() -
         (later == offsets.begin() ? offsets.front().before : std::prev(later)->after);
}

QDateTime CalendarZone::wallAt(qint64 seconds) const {
  if (const auto* zone = std::get_if<QTimeZone>(&zone_)) {
    const QDateTime time = QDateTime::fromSecsSinceEpoch(seconds, *zone);
    return {time.date(), time.time(), Qt::UTC};
  }
  const auto& offsets = std::get<std::vector<ZoneOffset>>(zone_);
  int ahead = offsets.front().before;
  for (const ZoneOffset& offset : offsets) {
    if (offset.from.toSecsSinceEpoch() - offset.before <= seconds) ahead = offset.after;
  }
  return QDateTime::fromSecsSinceEpoch(seconds + ahead, Qt::UTC);
}

std::optional<CalendarZone> zoneNamed(const QString& name) {
  const QByteArray id = name.toUtf8();
  for (qsizetype at = 0; at >= 0;) {
    const QByteArray part = id.sliced(at);
    if (isKnownZone(part)) return CalendarZone(QTimeZone(part));
    const qsizetype slash = id.indexOf('/', at);
    at = slash < 0 ? -1 : slash + 1;
  }
  const QByteArray known = QTimeZone::windowsIdToDefaultIanaId(id);
  return known.isEmpty() ? std::nullopt : std::optional(CalendarZone(QTimeZone(known)));
}

void Repetitions::count(qsizetype dates) {
  constexpr int kBetweenLooks = 256;
  dates_ += dates;
  if (dates_ > most_) {
    throw FileError(u"这段日期里有超过 %1 次安排，太多了。请选短一些的日期范围。"_qs.arg(most_));
  }
  if (++counted_ % kBetweenLooks == 0) look();
}

void Repetitions::look() const {
  report(progress_, {u"正在展开重复……"_qs, dates_});
  if (deadline_.hasExpired()) failAsTooMuch();
}

std::optional<std::vector<QDateTime>> Repetitions::times(const QByteArray& rule,
                                                         const CalendarTime& start,
                                                         const CalendarZone* zone,
                                                         const QDateTime& first,
                                                         const QDateTime& last) {
  look();  // a rule without dates may take long
  Rule read(rule);
  if (!read.isReadable()) return {};
  icalrecurrencetype& parts = read.rule;
  QDateTime end = last;
  if (!icaltime_is_null_time(parts.until)) end = std::min(end, endOf(parts.until, zone));
  if (!end.isValid()) return {};
  if (end < start.wall) return std::vector<QDateTime>();
  const qint64 period = shortPeriod(parts);
  // The library loses count of hours, minutes and seconds when it begins in their midst.
  const bool skips = parts.count == 0 && (period == 0 || parts.interval == 1) && start.wall < first;
  if (period > 0 && (skips ? first : start.wall).secsTo(end) / period > kMostSteps) failAsTooMuch();
  // The library looks no further than that, whether or not a date fits the rule.
  parts.until = icalTimeOf({end});
  icalerror_clear_errno();
  const std::unique_ptr<icalrecur_iterator, FreeIterator> dates(
      icalrecur_iterator_new(parts, icalTimeOf(start)));
  if (!dates) return {};
  if (skips) {
    // Of an hour or a minute that begins with the start's own.
    const QDateTime from(first.date(), start.wall.time(), Qt::UTC);
    icalrecur_iterator_set_start(dates.get(), icalTimeOf({from, start.isDay}));
  }
  std::vector<QDateTime> times;
  for (icaltimetype time = icalrecur_iterator_next(dates.get()); !icaltime_is_null_time(time);
       time = icalrecur_iterator_next(dates.get())) {
    const QDateTime wall = wallOf(time);
    const bool isWanted = wall >= first && wall <= end;
    count(isWanted ? 1 : 0);
    if (isWanted) times.push_back(wall);
  }
  return times;
}

}  // namespace vellora
