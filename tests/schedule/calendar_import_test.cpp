#include "schedule/calendar_import.h"

#include "grid/files/file_error.h"
#include "schedule/calendar_export.h"
#include "schedule_fixture.h"
#include "store/undo_log.h"
#include "support/temporary_folder.h"

namespace vellora {
namespace {

using test::kMonday;

const QTimeZone kHere("Asia/Shanghai");

QByteArray calendar(const QByteArray& lines) {
  return "BEGIN:VCALENDAR\r\n" + QByteArray(lines).replace('\n', "\r\n") + "END:VCALENDAR\r\n";
}

QByteArray event(const QByteArray& lines) {
  return "BEGIN:VEVENT\n" + lines + "\nEND:VEVENT\n";
}

// Two weeks from Monday on: "5 08:00-09:30 标题", the day of March and a dash for whole days.
QString seen(const CalendarFile& file, CalendarOccurrences* found = nullptr) {
  const auto occurrences = occurrencesIn(file, kMonday, kMonday.addDays(13), kHere);
  QStringList lines;
  for (const CalendarOccurrence& each : occurrences.all) {
    const QString hours = each.start.toString(u"HH:mm-"_qs) + each.end.toString(u"HH:mm"_qs);
    lines << QString::number(each.start.date().day()) + u' ' + (each.isDay ? u"-"_qs : hours) +
                 each.event->title;
  }
  if (found) *found = occurrences;
  return lines.join(u", "_qs);
}

QString refusal(const QByteArray& content, qint64 days = 13) {
  try {
    const CalendarFile file = readCalendar(content);
    occurrencesIn(file, kMonday, kMonday.addDays(days), kHere);
  } catch (const FileError& error) {
    return error.description();
  }
  return {};
}

class CalendarImportTest : public test::ScheduleTest {
 protected:
  CalendarImportTest() {
    builder_.block(u"1"_qs, u"08:00:00"_qs, u"09:30:00"_qs)
        .block(u"2"_qs, u"09:30:00"_qs, u"12:00:00"_qs)
        .block(u"3"_qs, u"22:00:00"_qs, u"06:00:00"_qs)
        .item(u"007"_qs, u"读书"_qs, u"2-学习"_qs)
        .plan(kMonday, u"1"_qs, u"读书"_qs, u"第一章"_qs, 2)
        .plan(kMonday.addDays(1), u"1"_qs, u"开会"_qs, u"带,;\\n本\r第二行"_qs);
  }
  // Day of March of the block, block, activity and state.
  QString planned(const QByteArray& content) {
    file_ = readCalendar(content.startsWith("BEGIN:VCALENDAR") ? content : calendar(content));
    import_ = planImport(store_, occurrencesIn(file_, kMonday, kMonday.addDays(13), kHere));
    QStringList lines;
    for (const ImportLine& line : import_.lines) {
      const QDate day = line.place.first.isValid() ? line.place.first : line.when.start.date();
      lines << QString::number(day.day()) + u'/' + line.place.second + line.texts.activity +
                   QString::number(static_cast<int>(line.state));
    }
    return lines.join(u' ');
  }

  CalendarFile file_;
  CalendarImport import_;
};

}  // namespace

TEST(CalendarOccurrences, AreWhatRepetitionsZonesAndExceptionsSay) {
  const QByteArray zone =
      "BEGIN:VTIMEZONE\nTZID:自己\nBEGIN:STANDARD\nDTSTART:20061029T030000\nTZOFFSETFROM:-0230\n"
      "TZOFFSETTO:-0330\nRRULE:FREQ=YEARLY;BYMONTH=10;BYDAY=-1SU\nEND:STANDARD\nBEGIN:DAYLIGHT\n"
      "DTSTART:20060301T020000\nTZOFFSETFROM:-0330\nTZOFFSETTO:-0230\n"
      "RRULE:FREQ=YEARLY;UNTIL=20070311T053000Z;BYMONTH=3;BYDAY=2SU\nEND:DAYLIGHT\nEND:VTIMEZONE\n";
  const auto at8 = [](const QByteArray& more) {
    return event("UID:a\nDTSTART:20070305T080000\nDTEND:20070305T093000\nSUMMARY:甲\n" + more);
  };
  const struct {
    const char* what;
    QByteArray content;
    const char16_t* expected;
  } cases[]{
      {"local", at8("X:"), u"5 08:00-09:30甲"},
      {"folded within a character, line feeds alone",
       event("DTSTART:20070305T0\n\t80000\nSUMMARY:\xE7\n \x94\xB2"), u"5 08:00-08:00甲"},
      {"UTC and duration", event("DTSTART:20070306T233000Z\nDURATION:PT1H30M\nSUMMARY:甲"),
       u"7 07:30-09:00甲"},
      {"named zones",
       event("DTSTART;TZID=America/New_York:20070304T190000\nRRULE:FREQ=WEEKLY\nSUMMARY:冬") +
           event("DTSTART;TZID=\"/maker/x/US/Eastern\":20070311T190000\nSUMMARY:夏") +
           event("DTSTART;TZID=Tokyo Standard Time:20070312T080000\nSUMMARY:东"),
       u"5 08:00-08:00冬, 12 07:00-07:00冬, 12 07:00-07:00夏, 12 07:00-07:00东"},
      {"the file's own zone",
       zone + event("DTSTART;TZID=自己:20070310T120000\nRRULE:FREQ=DAILY;COUNT=2\nSUMMARY:甲"),
       u"10 23:30-23:30甲, 11 22:30-22:30甲"},
      {"an unknown zone is local", event("DTSTART;TZID=无:20070305T080000\nSUMMARY:甲"),
       u"5 08:00-08:00甲"},
      {"count from before the range",
       event("DTSTART:20070226T080000\nRRULE:FREQ=WEEKLY;COUNT=6;BYDAY=MO,WE\nSUMMARY:甲"),
       u"5 08:00-08:00甲, 7 08:00-08:00甲, 12 08:00-08:00甲, 14 08:00-08:00甲"},
      {"every other week for ever",
       event("DTSTART:20000103T080000\nRRULE:FREQ=WEEKLY;INTERVAL=2;WKST=SU\nSUMMARY:甲"),
       u"5 08:00-08:00甲"},
      {"until, in UTC",
       event("DTSTART;TZID=Asia/"
             "Tokyo:20070305T080000\nRRULE:FREQ=DAILY;UNTIL=20070306T230000Z\nSUMMARY:甲"),
       u"5 07:00-07:00甲, 6 07:00-07:00甲, 7 07:00-07:00甲"},
      {"until a day", at8("RRULE:FREQ=DAILY;UNTIL=20070306"), u"5 08:00-09:30甲, 6 08:00-09:30甲"},
      {"gaps and extras",
       at8("RRULE:FREQ=DAILY;COUNT=4\nEXDATE:20070306T080000,20070307T000000Z\nRDATE;VALUE=PERIOD:"
           "20070309T200000/PT1H"),
       u"5 08:00-09:30甲, 8 08:00-09:30甲, 9 20:00-21:30甲"},
      {"a gap that is a day", at8("RRULE:FREQ=DAILY;COUNT=3\nEXDATE;VALUE=DATE:20070306"),
       u"5 08:00-09:30甲, 7 08:00-09:30甲"},
      {"moved, cancelled and moved in",
       at8("RRULE:FREQ=DAILY;COUNT=3") +
           event("UID:a\nRECURRENCE-ID:20070306T080000\nSEQUENCE:1\nDTSTART:"
                 "20070307T200000\nSUMMARY:改") +
           event("UID:a\nRECURRENCE-ID:20070306T080000\nDTSTART:20070306T210000\nSUMMARY:旧") +
           event(
               "UID:a\nRECURRENCE-ID:20070307T000000Z\nDTSTART:20070307T080000\nSTATUS:CANCELLED") +
           event("UID:b\nRECURRENCE-ID:20070401T080000\nDTSTART:20070308T080000\nSUMMARY:乙"),
       u"5 08:00-09:30甲, 7 20:00-20:00改, 8 08:00-08:00乙"},
      {"a newer version",
       at8("SEQUENCE:1") + event("UID:a\nSEQUENCE:2\nDTSTART:20070308T080000\nSUMMARY:新"),
       u"8 08:00-08:00新"},
      {"one UID for all", at8("X:") + event("UID:a\nDTSTART:20070308T080000\nSUMMARY:乙"),
       u"5 08:00-09:30甲, 8 08:00-08:00乙"},
      {"whole days", event("DTSTART;VALUE=DATE:20070303\nDTEND;VALUE=DATE:20070307\nSUMMARY:假"),
       u"5 -假, 6 -假"},
      {"alarms and tasks are nothing",
       "BEGIN:VTODO\nDTSTART:20070305T080000\nEND:VTODO\n" +
           event("DTSTART:20070305T080000\nSUMMARY:甲\nBEGIN:VALARM\nSUMMARY:丙\nDTSTART:"
                 "20070306T080000\nEND:VALARM"),
       u"5 08:00-08:00甲"},
      {"cancelled by its method", "METHOD:CANCEL\n" + at8("X:"), u""},
      {"an impossible date never",
       event("DTSTART:20070305T080000\nRRULE:FREQ=MINUTELY;BYMONTHDAY=30;BYMONTH=2\nSUMMARY:甲"),
       u""},
      {"a rule that means nothing", at8("RRULE:FREQ=SOMETIMES"), u"5 08:00-09:30甲"},
  };
  for (const auto& [what, content, expected] : cases) {
    SCOPED_TRACE(what);
    EXPECT_EQ(seen(readCalendar(calendar(content))), expected);
  }
  CalendarOccurrences found;
  seen(readCalendar(calendar(event("DTSTART:x") + event("DTSTART;TZID=无:20070305T080000") +
                             at8("RRULE:FREQ=SOMETIMES") +
                             event("DTSTART:20070305T080000\nSTATUS:CANCELLED"))),
       &found);
  EXPECT_EQ(found.unreadable, 2);
  EXPECT_THROW(occurrencesIn(readCalendar(calendar(at8("RRULE:FREQ=DAILY"))), kMonday, kMonday,
                             kHere, [](const WorkStep&) { return false; }),
               WorkCancelled);
  EXPECT_EQ(found.cancelled, 1);
  EXPECT_EQ(found.unknownZones, QStringList{u"无"_qs});
}

TEST(CalendarFiles, AreReadInTheirEncodingsAndRefusedInOneSentence) {
  const QString text =
      QString::fromUtf8(calendar(event("DTSTART:20070305T080000\nSUMMARY:高等\\,数学")));
  const QByteArray utf16(reinterpret_cast<const char*>(text.utf16()), text.size() * 2);
  const QByteArray utf8 = text.toUtf8();
  QByteArray gb18030 = utf8;
  gb18030.replace("高等", "\xB8\xDF\xB5\xC8").replace("数学", "\xCA\xFD\xD1\xA7");
  for (const QByteArray& content :
       QByteArrayList{utf8, "\xEF\xBB\xBF" + utf8, "\xFF\xFE" + utf16, gb18030}) {
    EXPECT_EQ(seen(readCalendar(content)), u"5 08:00-08:00高等,数学");
  }
  const QByteArray second = event("DTSTART:20000305T080000\nRRULE:FREQ=SECONDLY");
  const std::pair<QByteArray, const char16_t*> cases[]{
      {"", u"这不是日历文件（.ics）。"},
      {"hello\nBEGIN:VCALENDAR\nEND:VCALENDAR\n", u"这不是日历文件（.ics）。"},
      {utf8.chopped(16), u"日历文件不完整：没有结尾，可能没有下载完。"},
      {calendar("BEGIN:VEVENT\nEND:VTODO\n"), u"日历文件有误：第 3 行的 END 和 BEGIN 不对应。"},
      {calendar(QByteArray("BEGIN:VEVENT\n").repeated(1'000'000)),
       u"日历文件有误：第 17 行嵌套得太深。"},
      {calendar(QByteArray("BEGIN:VTODO\nEND:VTODO\n").repeated(100'000)),
       u"日历文件里的项目太多，最多 100000 个。"},
      {calendar(event("EXDATE:" + QByteArray("2,").repeated(300'001))),
       u"日历文件里的重复日期太多。"},
      {calendar("SUMMARY:\xFF\xFF\xFF"), u"看不懂文件的文字编码，请把它另存为 UTF-8。"},
      {calendar(second), u"日历里的重复太密或太长，没有展开。请选短一些的日期范围再试。"},
      {calendar(event("DTSTART:20070305T080000\nRRULE:FREQ=MINUTELY")).repeated(2),
       u"这段日期里有超过 20000 次安排，太多了。请选短一些的日期范围。"},
  };
  for (const auto& [content, expected] : cases) EXPECT_EQ(refusal(content), expected);
  const test::TemporaryFolder folder;
  const QString path = folder.path(u"a.ics"_qs);
  test::writeBytes(path, QByteArray(32 * 1024 * 1024 + 1, 'x'));
  EXPECT_THROW(readCalendarFile(path), FileError);
  EXPECT_THROW(readCalendarFile(folder.path(u"无"_qs)), FileError);
  EXPECT_THROW(readCalendarFile(u"/dev/zero"_qs), FileError);
}

TEST_F(CalendarImportTest, EachOccurrenceGoesToTheBlockThatItOverlapsMost) {
  builder_.block(u"0"_qs, u"08:00:00"_qs, u"08:45:00"_qs);
  const auto at = [](const QByteArray& start, const QByteArray& end,
                     const QByteArray& more = "SUMMARY:新") {
    return event("DTSTART:200703" + start + "\nDTEND:200703" + end + "\n" + more);
  };
  const struct {
    const char* what;
    QByteArray content;
    const char16_t* expected;
  } cases[]{
      {"most of it", at("08T090000", "08T110000"), u"8/2新0"},
      {"as much of two, the first", at("08T090000", "08T100000"), u"8/1新0"},
      {"all of two, the shorter", at("08T080000", "08T084500"), u"8/0新0"},
      {"only its start", at("08T093000", "08T093000"), u"8/2新0"},
      {"within a night, and before midnight",
       at("08T020000", "08T030000") + at("09T230000", "10T070000"), u"7/3新0 9/3新0"},
      {"between the blocks", at("08T130000", "08T140000"), u"8/新4"},
      {"held by another, by the same",
       at("06T080000", "06T093000") +
           at("05T080000", "05T093000", "SUMMARY:读书\nDESCRIPTION:第一章\nX-VELLORA-LEVEL:2"),
       u"5/1读书1 6/1新2"},
      {"the same with other texts", at("05T080000", "05T093000", "SUMMARY:读书\nLOCATION:302"),
       u"5/1读书2"},
      {"two for one block",
       at("08T080000", "08T090000") + at("08T083000", "08T093000", "SUMMARY:二") +
           at("08T090000", "08T093000"),
       u"8/1新0 8/1二3 8/1新1"},
      {"whole days", event("DTSTART;VALUE=DATE:20070308\nSUMMARY:生日"), u"8/生日5"},
      {"no title", at("08T080000", "08T093000", "X:"), u"8/1（无标题）0"},
  };
  for (const auto& [what, content, expected] : cases) {
    SCOPED_TRACE(what);
    EXPECT_EQ(planned(content), expected);
  }
}

TEST_F(CalendarImportTest, IsOneStepThatTakesInWhatIsNewAndWhatReplaces) {
  builder_.memo(kMonday, u"原有"_qs);
  const QByteArray content =
      event("DTSTART:20070308T080000\nSUMMARY: 很长 \nDESCRIPTION:" +
            QByteArray("说").repeated(254) + "🙂🙂") +
      event("DTSTART:20070306T080000\nSUMMARY:替\nCATEGORIES:其他,5-娱乐\nX-VELLORA-LEVEL:7") +
      event("DTSTART:20070305T080000\nSUMMARY:不替") +
      event("DTSTART:20070309T080000\nSUMMARY:读书\nLOCATION:302\nDESCRIPTION:二\\n行") +
      event("DTSTART;VALUE=DATE:20070305\nSUMMARY:生日") +
      event("DTSTART;VALUE=DATE:20070306\nSUMMARY:假");
  EXPECT_EQ(planned(content), u"5/生日5 5/1不替2 6/假5 6/1替2 8/1很长0 9/1读书0");
  EXPECT_EQ(import_.shortened, 1);
  for (ImportLine& line : import_.lines) line.replaces = line.texts.activity == u"替";
  import_.activities[0].category.clear();  // 不替
  const QStringList before = test::dumpOf(store_);
  store_.undoLog().setName(u"导入日历"_qs);
  builder_.sql(u"UPDATE JH SET HDYQ='后来' WHERE RQ='2007-03-06'"_qs);
  EXPECT_EQ(test::faultOf([&] { saveImport(store_, import_, true); }), StoreFault::RowChanged);
  builder_.sql(u"UPDATE JH SET HDYQ='%1' WHERE RQ='2007-03-06'"_qs.arg(
      import_.lines[3].held[0].requirement));
  EXPECT_THROW(
      saveImport(store_, import_, true, [](const WorkStep& step) { return step.done < 4; }),
      WorkCancelled);
  EXPECT_EQ(test::dumpOf(store_), before);
  const ImportCounts counts = saveImport(store_, import_, true);
  EXPECT_EQ(std::tuple(counts.plans, counts.items, counts.memos), std::tuple(3, 2, 2));
  const ImportCounts expected = countImport(import_, true);
  EXPECT_EQ(std::tuple(expected.plans, expected.items, expected.memos), std::tuple(3, 2, 2));
  QStringList added = test::dumpOf(store_);
  for (const QString& line : before) added.removeAll(line);
  EXPECT_EQ(added, (QStringList{u"BW|2007-03-05|原有\n生日"_qs, u"BW|2007-03-06|假"_qs,
                                u"HD|008|替|5-娱乐|0|16711935"_qs, u"HD|009|很长|1-工作|0|255"_qs,
                                u"JH|2007-03-06|1|替||7"_qs,
                                u"JH|2007-03-08|1|很长|"_qs + QString(254, u'说') + u"|0",
                                u"JH|2007-03-09|1|读书|302 二\r行|0"_qs}));
  EXPECT_EQ(test::dumpOf(store_).filter(u"开会"_qs), QStringList()) << "replaced";
  EXPECT_EQ(planned(content), u"5/生日1 5/1不替2 6/假1 6/1替1 8/1很长1 9/1读书1") << "again";
  store_.undoLog().undo();
  EXPECT_EQ(test::dumpOf(store_), before);
}

TEST_F(CalendarImportTest, TheOwnExportIsThereAlready) {
  builder_.block(u"1b"_qs, u"08:00:00"_qs, u"09:30:00"_qs)
      .plan(kMonday, u"1"_qs, u"同时"_qs)
      .plan(kMonday, u"1b"_qs, QString(60, u'长'), u" \x02空白\t"_qs, -3)
      .plan(kMonday.addDays(13), u"3"_qs, QString(), QString())
      .memo(kMonday, u"一\r\n二"_qs)
      .memo(kMonday.addDays(1), u"只有一行"_qs);
  const test::TemporaryFolder folder;
  const QString path = folder.path(u"a.ics"_qs);
  exportCalendar(store_, {kMonday, kMonday.addDays(13), {}, true, 10}, path,
                 QDateTime::currentDateTimeUtc());
  const QByteArray content = test::bytesOf(path);
  planned(content);
  EXPECT_EQ(import_.lines.size(), 7U);
  for (const ImportLine& line : import_.lines)
    EXPECT_EQ(line.state, ImportState::Same) << line.texts.activity.toStdString();
  builder_.sql(u"DELETE FROM JH"_qs).sql(u"DELETE FROM BW"_qs);
  planned(content);
  EXPECT_EQ(saveImport(store_, import_, true).plans, 4) << "elsewhere one for each block";
  EXPECT_EQ(planned(content),
            u"5/一\n二1 5/1读书1 5/1同时2 5/1b%1 6/只有一行1 6/1开会1 18/3（无标题）1"_qs.arg(
                QString(50, u'长') + u'1'));
}

}  // namespace vellora
