#include "schedule/calendar_export.h"

#include "grid/files/export_file.h"
#include "routine/calendar_text.h"
#include "routine/category.h"
#include "schedule/memos.h"
#include "schedule/plan_entries.h"
#include "schedule/time_blocks.h"
#include "store/statements.h"

#include <QDateTime>
#include <QHash>

#include <array>
#include <libical/ical.h>
#include <memory>

namespace vellora {
namespace {

const QByteArray kUidHost("@vellora");
constexpr int kSecondsInAMinute = 60;

struct FreeComponent {
  void operator()(icalcomponent* component) const { icalcomponent_free(component); }
};
using Component = std::unique_ptr<icalcomponent, FreeComponent>;

// The nearest name that calendar files know for a category's colour.
const char* cssColour(const QString& category) {
  constexpr std::array kNames{"red", "blue", "lime", "green", "magenta", "black"};
  const auto index = categoryIndex(category);
  return index ? kNames.at(static_cast<std::size_t>(*index)) : nullptr;
}

icaltimetype icalDate(QDate date) {
  icaltimetype time = icaltime_null_date();
  time.year = date.year();
  time.month = date.month();
  time.day = date.day();
  return time;
}

icaltimetype icalMoment(QDate date, QTime clock) {
  icaltimetype time = icalDate(date);
  time.is_date = 0;
  time.hour = clock.hour();
  time.minute = clock.minute();
  time.second = clock.second();
  return time;
}

// One calendar file, written as its events come.
class CalendarWriter {
 public:
  CalendarWriter(QIODevice& file, const QDateTime& now) : file_(file) {
    const QDateTime utc = now.toUTC();
    stamp_ = icalMoment(utc.date(), utc.time());
    stamp_.zone = icaltimezone_get_utc_timezone();
    // Grows with every export, so that the later one counts where both are read.
    const QDateTime start(QDate(2000, 1, 1), QTime(0, 0), Qt::UTC);
    sequence_ = static_cast<int>(start.secsTo(utc) / kSecondsInAMinute);
    file_.write(
        "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//Vellora//Schedule 2.8//ZH\r\n"
        "CALSCALE:GREGORIAN\r\n");
  }
  void end() { file_.write("END:VCALENDAR\r\n"); }

  Component event(const QByteArray& uid, const QString& title, const QString& details) const {
    Component event(icalcomponent_new(ICAL_VEVENT_COMPONENT));
    add(event, icalproperty_new_uid(uid.constData()));
    add(event, icalproperty_new_dtstamp(stamp_));
    add(event, icalproperty_new_sequence(sequence_));
    add(event, icalproperty_new_summary(textInCalendar(title).toUtf8().constData()));
    add(event, icalproperty_new_description(textInCalendar(details).toUtf8().constData()));
    return event;
  }
  static void add(const Component& event, icalproperty* property) {
    icalcomponent_add_property(event.get(), property);
  }
  void write(const Component& event) {
    const std::unique_ptr<char, decltype(&free)> text(icalcomponent_as_ical_string_r(event.get()),
                                                      &free);
    file_.write(text.get());
  }

 private:
  QIODevice& file_;
  icaltimetype stamp_;
  int sequence_;
};

void addReminder(const Component& event, const QString& title, int minutes) {
  Component alarm(icalcomponent_new(ICAL_VALARM_COMPONENT));
  CalendarWriter::add(alarm, icalproperty_new_action(ICAL_ACTION_DISPLAY));
  CalendarWriter::add(alarm,
                      icalproperty_new_description(textInCalendar(title).toUtf8().constData()));
  CalendarWriter::add(
      alarm, icalproperty_new_trigger(icaltriggertype_from_int(-minutes * kSecondsInAMinute)));
  icalcomponent_add_component(event.get(), alarm.release());
}

QHash<QString, QString> readCategories(ScheduleStore& store) {
  QHash<QString, QString> categories;
  for (auto items = store.open(statements::allItems()); !items.atEnd(); items.moveNext()) {
    const QString name = items.text(u"HDMC");
    if (!categories.contains(name)) categories[name] = items.text(u"HDLB");
  }
  return categories;
}

class Export {
 public:
  Export(ScheduleStore& store, const CalendarSelection& selection, QIODevice& file,
         const QDateTime& now)
      : store_(store),
        selection_(selection),
        blocks_(store),
        categories_(readCategories(store)),
        writer_(file, now) {}

  CalendarCounts run(const WorkProgress& progress) {
    const bool isOne = !selection_.activity.isEmpty();
    const auto plans = isOne ? statements::plansOfActivity(selection_.activity)
                             : statements::plansBetween(selection_.first, selection_.last);
    WorkStep step{u"正在导出……"_qs};
    for (RowCursor rows = store_.readOnce(plans); rows.next();) {
      report(progress, step);
      ++step.done;
      writePlan(rows);
    }
    if (selection_.withMemos && !isOne) writeMemos(progress);
    writer_.end();
    return counts_;
  }

 private:
  void writePlan(RowCursor& row) {
    const QDate date = row.date(u"RQ");
    const TimeBlock* block = blocks_.find(row.text(u"SJKH"));
    if (!date.isValid() || !block || !block->start.isValid() || !block->end.isValid()) {
      ++counts_.leftOut;
      return;
    }
    const PlanTexts texts = readPlanTexts(row);
    const bool isOverMidnight = block->end <= block->start;
    QByteArray uid = calendarUid(date, block->code).toUtf8();
    const int others = seen_[{date, block->code}]++;
    if (others > 0) uid.prepend(QByteArray::number(others + 1) + '-');
    const Component event = writer_.event(uid, texts.activity, texts.requirement);
    CalendarWriter::add(event, icalproperty_new_dtstart(icalMoment(date, block->start)));
    CalendarWriter::add(event, icalproperty_new_dtend(icalMoment(
                                   isOverMidnight ? date.addDays(1) : date, block->end)));
    CalendarWriter::add(event, icalproperty_new_location(""));
    addCategory(event, categories_.value(texts.activity));
    icalproperty* level = icalproperty_new_x(texts.level.toUtf8().constData());
    icalproperty_set_x_name(level, "X-VELLORA-LEVEL");
    CalendarWriter::add(event, level);
    if (selection_.reminder) addReminder(event, texts.activity, *selection_.reminder);
    writer_.write(event);
    ++counts_.plans;
  }

  static void addCategory(const Component& event, const QString& category) {
    if (category.isEmpty()) return;
    CalendarWriter::add(event, icalproperty_new_categories(category.toUtf8().constData()));
    if (const char* colour = cssColour(category)) {
      CalendarWriter::add(event, icalproperty_new_color(colour));
    }
  }

  void writeMemos(const WorkProgress& progress) {
    for (RowCursor rows = store_.readOnce(statements::allMemos()); rows.next();) {
      report(progress, {u"正在导出……"_qs});
      const QDate date = rows.date(u"RQ");
      const QString text = textInCalendar(rows.text(u"Memo"));
      if (date < selection_.first || date > selection_.last || text.isEmpty()) continue;
      const qsizetype line = text.indexOf(u'\n');
      const Component event =
          writer_.event(QByteArray(isoDate(date).toUtf8() + "-memo" + kUidHost),
                        line < 0 ? text : text.first(line), line < 0 ? QString() : text);
      CalendarWriter::add(event, icalproperty_new_dtstart(icalDate(date)));
      CalendarWriter::add(event, icalproperty_new_dtend(icalDate(date.addDays(1))));
      CalendarWriter::add(event, icalproperty_new_transp(ICAL_TRANSP_TRANSPARENT));
      writer_.write(event);
      ++counts_.memos;
    }
  }

  ScheduleStore& store_;
  const CalendarSelection& selection_;
  TimeBlockList blocks_;
  QHash<QString, QString> categories_;
  CalendarWriter writer_;
  QHash<SavedEntries::Place, int> seen_;
  CalendarCounts counts_;
};

}  // namespace

CalendarCounts exportCalendar(ScheduleStore& store, const CalendarSelection& selection,
                              const QString& path, const QDateTime& now,
                              const WorkProgress& progress) {
  CalendarCounts counts;
  exportFile(path,
             [&](SafeFile& file) { counts = Export(store, selection, file, now).run(progress); });
  return counts;
}

QString textInCalendar(QString text) {
  text.replace(u"\r\n"_qs, u"\n"_qs).replace(u'\r', u'\n');
  text.removeIf([](QChar unit) {
    return (unit < u' ' && unit != u'\n' && unit != u'\t') || unit == u'\x7F';
  });
  return QString::fromUtf8(text.toUtf8()).trimmed();
}

QString calendarUid(QDate date, const QString& code) {
  return isoDate(date) + u"-block-" + QString::fromLatin1(code.toUtf8().toPercentEncoding()) +
         QString::fromLatin1(kUidHost);
}

QString blockInUid(const QString& uid) {
  const qsizetype mark = uid.indexOf(u"-block-"_qs);
  if (mark < 0 || !uid.endsWith(QString::fromLatin1(kUidHost))) return {};
  const QString code = uid.sliced(mark + 7).chopped(kUidHost.size());
  return QString::fromUtf8(QByteArray::fromPercentEncoding(code.toLatin1()));
}

}  // namespace vellora
