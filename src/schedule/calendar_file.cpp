#include "schedule/calendar_file.h"

#include "grid/files/file_error.h"
#include "routine/category.h"

#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>

#include <cerrno>
#include <libical/ical.h>

namespace vellora {
namespace {

constexpr qint64 kMegabyte = 1024 * 1024;
constexpr qint64 kMostMegabytes = 32;
constexpr qsizetype kMostDepth = 16;
constexpr qsizetype kMostComponents = 100'000;
constexpr qsizetype kMostTimes = 300'000;            // of EXDATE and RDATE
constexpr qint64 kLongest = qint64{3'660} * 86'400;  // seconds of an event

// Without the line breaks that only keep lines short. They may stand within a character.
QByteArray unfolded(const QByteArray& content) {
  QByteArray text;
  text.reserve(content.size());
  for (qsizetype at = 0; at < content.size(); ++at) {
    if (content[at] != '\r' && content[at] != '\n') {
      text += content[at];
      continue;
    }
    if (content[at] == '\r' && at + 1 < content.size() && content[at + 1] == '\n') ++at;
    const char next = at + 1 < content.size() ? content[at + 1] : '\n';
    if (next == ' ' || next == '\t') {
      ++at;
    } else {
      text += '\n';
    }
  }
  return text;
}

QByteArray inUtf8(const QByteArray& content, const char* encoding) {
  QStringDecoder decode(encoding);
  const QString text = decode(content);
  if (!decode.isValid() || decode.hasError()) {
    throw FileError(u"看不懂文件的文字编码，请把它另存为 UTF-8。"_qs);
  }
  return text.toUtf8();
}

QByteArray readableText(const QByteArray& content) {
  if (content.startsWith("\xFF\xFE")) return unfolded(inUtf8(content, "UTF-16LE"));
  if (content.startsWith("\xFE\xFF")) return unfolded(inUtf8(content, "UTF-16BE"));
  QByteArray text = unfolded(content);
  if (text.startsWith("\xEF\xBB\xBF")) text.remove(0, 3);
  return text.isValidUtf8() ? text : inUtf8(text, "GB18030");
}

// NAME;PARAMETER="VALUE":value
struct ContentLine {
  QByteArray name;
  QByteArray zone;
  QByteArray value;
};

void takeParameter(ContentLine& line, const QByteArray& parameter) {
  const qsizetype sign = parameter.indexOf('=');
  QByteArray value = parameter.sliced(sign + 1).trimmed();
  if (value.size() > 1 && value.startsWith('"')) value = value.sliced(1).chopped(1);
  if (parameter.first(std::max<qsizetype>(sign, 0)).trimmed().toUpper() == "TZID") {
    line.zone = value;
  }
}

ContentLine readLine(QByteArrayView text) {
  ContentLine line;
  bool isQuoted = false;
  qsizetype begin = 0;
  for (qsizetype at = 0; at < text.size(); ++at) {
    if (text[at] == '"') isQuoted = !isQuoted;
    if (isQuoted || (text[at] != ';' && text[at] != ':')) continue;
    const QByteArray part = text.sliced(begin, at - begin).toByteArray();
    begin = at + 1;
    if (line.name.isEmpty()) {
      line.name = part.trimmed().toUpper();
    } else {
      takeParameter(line, part);
    }
    if (text[at] != ':') continue;
    line.value = text.sliced(begin).toByteArray();
    break;
  }
  return line;
}

QString textOf(const QByteArray& value) {
  const QString escaped = QString::fromUtf8(value);
  QString text;
  text.reserve(escaped.size());
  for (qsizetype at = 0; at < escaped.size(); ++at) {
    if (escaped[at] != u'\\' || at + 1 == escaped.size()) {
      text += escaped[at];
      continue;
    }
    const QChar meant = escaped[++at];
    text += meant == u'n' || meant == u'N' ? QChar(u'\n') : meant;
  }
  return text;
}

std::optional<CalendarTime> timeOf(const QByteArray& value, const QByteArray& zone) {
  const icaltimetype time = icaltime_from_string(value.trimmed().constData());
  const QDate date(time.year, time.month, time.day);
  const QTime clock(time.hour, time.minute, std::min(time.second, 59));
  if (icaltime_is_null_time(time) || !date.isValid() || date.year() > 9'999) return {};
  if (time.is_date) return CalendarTime{QDateTime(date, QTime(0, 0), Qt::UTC), true, {}};
  if (!clock.isValid()) return {};
  return CalendarTime{QDateTime(date, clock, Qt::UTC), false,
                      icaltime_is_utc(time) ? u"UTC"_qs : QString::fromUtf8(zone)};
}

// +0800, -033000
int offsetOf(const QByteArray& value) {
  const int number = value.trimmed().toInt();
  const bool hasSeconds = value.trimmed().size() > 5;
  const int minutes = std::abs(hasSeconds ? number / 100 : number);
  const int seconds = minutes / 100 * 3'600 + minutes % 100 * 60;
  return std::min(seconds, 86'400) * (number < 0 ? -1 : 1);
}

class CalendarReader {
 public:
  CalendarFile read(const QByteArray& text, const WorkProgress& progress) {
    constexpr int kLinesAtOnce = 1'000;
    WorkStep step{u"正在读取日历……"_qs, 0, text.size()};
    for (qsizetype at = 0; at < text.size();) {
      if (line_ % kLinesAtOnce == 0) report(progress, step);
      ++line_;
      qsizetype end = text.indexOf('\n', at);
      if (end < 0) end = text.size();
      visit(QByteArrayView(text).sliced(at, end - at));
      at = end + 1;
      step.done = end;
    }
    if (!wasCalendar_) fail(u"这不是日历文件（.ics）。"_qs);
    if (!open_.isEmpty()) fail(u"日历文件不完整：没有结尾，可能没有下载完。"_qs);
    return std::move(file_);
  }

 private:
  [[noreturn]] static void fail(const QString& reason) { throw FileError(reason); }

  void visit(QByteArrayView text) {
    if (text.trimmed().isEmpty()) return;
    const ContentLine line = readLine(text);
    if (line.name == "BEGIN") {
      begin(line.value.trimmed().toUpper());
    } else if (open_.isEmpty()) {
      if (!wasCalendar_) fail(u"这不是日历文件（.ics）。"_qs);
    } else if (line.name == "END") {
      end(line.value.trimmed().toUpper());
    } else {
      takeProperty(line);
    }
  }

  void begin(const QByteArray& component) {
    if (open_.isEmpty() && component != "VCALENDAR") fail(u"这不是日历文件（.ics）。"_qs);
    wasCalendar_ = true;
    open_ << component;
    if (open_.size() > kMostDepth) fail(u"日历文件有误：第 %1 行嵌套得太深。"_qs.arg(line_));
    if (++components_ > kMostComponents) {
      fail(u"日历文件里的项目太多，最多 %1 个。"_qs.arg(kMostComponents));
    }
    if (open_.size() == 1) isCancelling_ = false;
    if (open_.size() == 2) {
      event_ = {};
      hasStart_ = false;
      zone_.clear();
      changes_.clear();
    }
    if (isIn("VTIMEZONE", 3)) changes_.emplace_back();
  }

  void end(const QByteArray& component) {
    if (open_.last() != component) {
      fail(u"日历文件有误：第 %1 行的 END 和 BEGIN 不对应。"_qs.arg(line_));
    }
    if (isIn("VEVENT", 2)) {
      event_.isCancelled |= isCancelling_;
      if (hasStart_) {
        file_.events.push_back(std::move(event_));
      } else {
        ++file_.unreadable;
      }
    }
    if (isIn("VTIMEZONE", 2)) file_.zones[zone_] = std::move(changes_);
    open_.removeLast();
  }

  // Whether the second component is of that kind, and so many are open.
  bool isIn(const char* component, qsizetype depth) const {
    return open_.size() == depth && open_[1] == component;
  }

  void takeProperty(const ContentLine& line) {
    if (open_.size() == 1 && line.name == "METHOD") {
      isCancelling_ = line.value.trimmed().toUpper() == "CANCEL";
    }
    if (isIn("VTIMEZONE", 2) && line.name == "TZID") zone_ = QString::fromUtf8(line.value);
    if (isIn("VTIMEZONE", 3)) takeZoneProperty(line, changes_.back());
    if (!isIn("VEVENT", 2)) return;
    takeTime(line);
    takeText(line);
  }

  void takeZoneProperty(const ContentLine& line, ZoneChange& change) {
    if (line.name == "TZOFFSETFROM") change.before = offsetOf(line.value);
    if (line.name == "TZOFFSETTO") change.after = offsetOf(line.value);
    if (line.name == "RRULE") change.rules.push_back(line.value);
    if (line.name == "RDATE") addTimes(line, change.extras);
    if (line.name == "DTSTART") {
      if (const auto time = timeOf(line.value, {})) change.start = *time;
    }
  }

  void takeTime(const ContentLine& line) {
    if (line.name == "DTSTART") {
      const auto time = timeOf(line.value, line.zone);
      hasStart_ = time.has_value();
      if (time) event_.start = *time;
    } else if (line.name == "DTEND") {
      event_.end = timeOf(line.value, line.zone);
    } else if (line.name == "DURATION") {
      const auto length = icaldurationtype_from_string(line.value.trimmed().constData());
      event_.duration = std::clamp<qint64>(icaldurationtype_as_int(length), 0, kLongest);
    } else if (line.name == "RRULE") {
      event_.rules.push_back(line.value);
    } else if (line.name == "RDATE") {
      addTimes(line, event_.extras);
    } else if (line.name == "EXDATE") {
      addTimes(line, event_.gaps);
    } else if (line.name == "RECURRENCE-ID") {
      event_.replaced = timeOf(line.value, line.zone);
    }
  }

  // Of a period the start.
  void addTimes(const ContentLine& line, std::vector<CalendarTime>& times) {
    for (qsizetype at = 0, end = 0; end >= 0; at = end + 1) {
      if (++times_ > kMostTimes) fail(u"日历文件里的重复日期太多。"_qs);
      end = line.value.indexOf(',', at);
      const QByteArray value = line.value.mid(at, end < 0 ? -1 : end - at);
      if (const auto time = timeOf(value.split('/').first(), line.zone)) {
        times.push_back(*time);
      }
    }
  }

  void takeText(const ContentLine& line) {
    const auto text = [&line] { return textOf(line.value).trimmed(); };
    if (line.name == "UID") event_.uid = text();
    if (line.name == "SUMMARY") event_.title = text();
    if (line.name == "DESCRIPTION") event_.details = text();
    if (line.name == "LOCATION") event_.location = text();
    if (line.name == "X-VELLORA-LEVEL") event_.level = text();
    if (line.name == "SEQUENCE") event_.sequence = line.value.trimmed().toLongLong();
    if (line.name == "STATUS") event_.isCancelled = text().toUpper() == u"CANCELLED";
    if (line.name != "CATEGORIES") return;
    const QString listed = text().left(1'000);
    for (const QStringView part : QStringView(listed).tokenize(u',')) {
      for (const Category& known : categories()) {
        if (part.trimmed() == known.label) event_.category = known.label;
      }
    }
  }

  CalendarFile file_;
  qsizetype line_ = 0;
  qsizetype components_ = 0;
  qsizetype times_ = 0;
  QByteArrayList open_;  // components, from the outermost on
  bool wasCalendar_ = false;
  bool isCancelling_ = false;
  CalendarEvent event_;
  bool hasStart_ = false;
  QString zone_;
  std::vector<ZoneChange> changes_;
};

}  // namespace

CalendarFile readCalendar(const QByteArray& content, const WorkProgress& progress) {
  icalerror_set_errors_are_fatal(0);  // built otherwise, the library would end the program
  return CalendarReader().read(readableText(content), progress);
}

CalendarFile readCalendarFile(const QString& path, const WorkProgress& progress) {
  QFile file(path);
  if (!QFileInfo(path).isFile()) throw cannotRead(path, QFileInfo::exists(path) ? EISDIR : ENOENT);
  if (!file.open(QIODevice::ReadOnly)) throw cannotRead(path, EACCES);
  const QByteArray content = file.read(kMostMegabytes * kMegabyte + 1);
  if (file.error() != QFileDevice::NoError) throw cannotRead(path, EIO);
  if (content.size() > kMostMegabytes * kMegabyte) {
    throw FileError(u"文件“%1”太大：日历文件最多 %2 MB。"_qs.arg(path).arg(kMostMegabytes));
  }
  return readCalendar(content, progress);
}

}  // namespace vellora
