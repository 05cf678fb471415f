// Calendar files from anywhere.

#include "fuzz/fuzz_target.h"
#include "grid/files/file_error.h"
#include "schedule/calendar_import.h"
#include "store/undo_log.h"
#include "support/schedule_builder.h"

#include <algorithm>
#include <optional>

namespace vellora::test {
namespace {

const QDate kFirst(2007, 3, 5);
const QDate kLast(2007, 4, 1);

ScheduleStore& smallSchedule() {
  static ScheduleBuilder builder;
  static std::optional<ScheduleStore> store;
  if (!store) {
    builder.fullDay(4).item(u"001"_qs, u"晨跑"_qs).plan(kFirst, u"002"_qs, u"晨跑"_qs);
    store.emplace(builder.path());
  }
  return *store;
}

void requireOccurrences(const CalendarOccurrences& found) {
  require(found.all.size() <= kMostOccurrences, "there are no more occurrences than are promised");
  QDateTime before;
  for (const CalendarOccurrence& each : found.all) {
    const QDate day = each.start.date();
    require(day >= kFirst && day <= kLast, "an occurrence is one of the range");
    require(each.start <= each.end, "nothing ends before it begins");
    require(!before.isValid() || before <= each.start, "occurrences come in their order");
    require(!each.event->isCancelled, "what is cancelled does not occur");
    before = each.start;
  }
}

bool brings(const CalendarImport& import) {
  const ImportCounts counts = countImport(import, true);
  return counts.plans + counts.memos > 0;
}

void requireImported(const CalendarOccurrences& found) {
  ScheduleStore& store = smallSchedule();
  store.undoLog();
  const CalendarImport import = planImport(store, found);
  require(import.lines.size() == found.all.size(), "every occurrence is shown");
  if (!brings(import)) return;
  saveImport(store, import, true);
  require(!brings(planImport(store, found)), "what was imported is there already");
  store.undoLog().undo();
  require(store.open(u"JH"_qs).count() == 1 && store.open(u"BW"_qs).isEmpty() &&
              store.open(u"HD"_qs).count() == 1,
          "an import is undone in one step");
}

void fuzzCalendar(const QByteArray& input) {
  try {
    const CalendarFile file = readCalendar(input);
    const auto found = occurrencesIn(file, kFirst, kLast, QTimeZone("Asia/Shanghai"));
    requireOccurrences(found);
    const auto [first, last] = proposedDays(file, kFirst);
    require(first <= last, "proposed days are a range");
    if (found.all.size() <= 200) requireImported(found);
  } catch (const FileError& error) {
    require(error.description().endsWith(u'。'), "a refusal is a sentence");
  }
}

// A whole calendar, of one event that begins on the first day.
QByteArray calendarOf(const QByteArray& lines) {
  return "BEGIN:VCALENDAR\r\nBEGIN:VEVENT\r\nUID:a\r\nDTSTART:20070305T080000\r\n" + lines +
         "\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n";
}

}  // namespace

QList<FuzzTarget> calendarTargets() {
  return {
      {"calendar",
       fuzzCalendar,
       {calendarOf("SUMMARY:a\\, b\r\nRRULE:FREQ=WEEKLY;UNTIL=20070330T000000Z;BYDAY=MO,-1WE"),
        calendarOf("DURATION:PT1H30M\r\nRRULE:FREQ=MONTHLY;COUNT=5;BYSETPOS=-1;BYDAY=MO,TU\r\n"
                   "EXDATE;TZID=Europe/Paris:20070306T080000,20070307T080000Z"),
        calendarOf("DTEND;TZID=\"x/US/Eastern\":20070305T093000\r\nRDATE;VALUE=PERIOD:"
                   "20070309T200000/PT1H\r\nRRULE:FREQ=YEARLY;INTERVAL=2;BYWEEKNO=10,20"),
        calendarOf("RRULE:FREQ=HOURLY;INTERVAL=5;BYHOUR=3,8;WKST=SU\r\nEND:VEVENT\r\n"
                   "BEGIN:VEVENT\r\nUID:a\r\nRECURRENCE-ID:20070306T080000\r\nSTATUS:CANCELLED"
                   "\r\nDTSTART:20070306T080000\r\nSEQUENCE:3"),
        calendarOf("DTSTART;TZID=own:20070310T120000\r\nX-VELLORA-LEVEL:3\r\nEND:VEVENT\r\n"
                   "BEGIN:VTIMEZONE\r\nTZID:own\r\nBEGIN:DAYLIGHT\r\nDTSTART:20060301T020000\r\n"
                   "TZOFFSETFROM:+0100\r\nTZOFFSETTO:+0200\r\nRRULE:FREQ=YEARLY;BYMONTH=3;"
                   "BYDAY=2SU\r\nEND:DAYLIGHT\r\nEND:VTIMEZONE\r\nBEGIN:VEVENT"),
        calendarOf("DTSTART;VALUE=DATE:20070303\r\nDTEND;VALUE=DATE:20070307\r\nSUMMARY:\xE5\x81"
                   "\r\n \x87\r\nDESCRIPTION:x\\n\\\\")}}};
}

}  // namespace vellora::test
