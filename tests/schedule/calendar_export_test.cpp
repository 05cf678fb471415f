// Exported calendar files, as a program reads them that knows nothing of the planner.

#include "schedule/calendar_export.h"

#include "schedule_fixture.h"
#include "support/temporary_folder.h"

#include <QDateTime>
#include <QProcess>

namespace vellora {
namespace {

using test::kMonday;

const QDateTime kNow(QDate(2007, 3, 1), QTime(12, 0, 5), Qt::UTC);

class CalendarExportTest : public test::ScheduleTest {
 protected:
  CalendarExportTest() {
    builder_.block(u"001"_qs, u"08:00:00"_qs, u"09:30:00"_qs)
        .block(u"夜 2"_qs, u"22:00:00"_qs, u"06:15:30"_qs)
        .block(u"24"_qs, u"07:00:00"_qs, u"07:00:00"_qs)
        .sql(u"INSERT INTO SJ(SJKH, sjkm) VALUES('无','无时间')"_qs)
        .item(u"1"_qs, u"数学,一;\\w"_qs, u"2-学习"_qs)
        .item(u"2"_qs, u"睡觉"_qs, u"自己的"_qs);
  }
  QStringList exported(const CalendarSelection& selection) {
    counts_ = exportCalendar(store_, selection, path_, kNow);
    QProcess python;
    python.start(QStringLiteral(PYTHON), {QStringLiteral(READER_DIR "/read_ics.py"), path_});
    EXPECT_TRUE(python.waitForFinished()) << python.errorString().toStdString();
    EXPECT_EQ(python.exitCode(), 0) << python.readAllStandardError().toStdString();
    return QString::fromUtf8(python.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
  }

  test::TemporaryFolder folder_;
  QString path_ = folder_.path(u"a.ics"_qs);
  CalendarCounts counts_;
};

}  // namespace

TEST_F(CalendarExportTest, EveryFieldIsReadByAnotherProgram) {
  const QString text = u"长“文”,;:\\ 🙂 "_qs.repeated(30) + u"完";
  builder_.plan(kMonday, u"001"_qs, u"数学,一;\\w"_qs, u"第一行\r第二行\x01\t尾"_qs, 3)
      .plan(kMonday, u"001"_qs, u"同时"_qs, QString(), -2)
      .plan(kMonday, u"夜 2"_qs, u"睡觉"_qs, text)
      .plan(kMonday.addDays(6), u"24"_qs, u"一天"_qs, u" 空白 "_qs)
      .plan(kMonday.addDays(7), u"001"_qs, u"下周"_qs)
      .plan(kMonday, u"没有"_qs, u"丢"_qs)
      .plan(kMonday, u"无"_qs, u"丢"_qs)
      .memo(kMonday, u"第一\r\n第二"_qs)
      .memo(kMonday.addDays(1), u"一行"_qs)
      .memo(kMonday.addDays(9), u"以后"_qs);
  const QString same = u"\t2007-03-01 12:00:05+00:00\t3767760\t"_qs;
  const auto alarm = [](const QString& name) -> QString {
    return u"\tDISPLAY -1 day, 23:45:00 "_qs + name;
  };
  const QStringList expected{
      u"CALSCALE=GREGORIAN\tPRODID=-//Vellora//Schedule 2.8//ZH\tVERSION=2.0"_qs,
      u"2007-03-05 08:00:00\t2007-03-05 09:30:00\t数学,一;\\\\w\t第一行\\n第二行\\t尾\t2007-03-05-block-001@vellora"_qs +
          same + u"\t3\tblue\t-\t2-学习" + alarm(u"数学,一;\\\\w"_qs),
      u"2007-03-05 08:00:00\t2007-03-05 09:30:00\t同时\t\t2-2007-03-05-block-001@vellora"_qs +
          same + u"\t-2\t-\t-\t-" + alarm(u"同时"_qs),
      u"2007-03-05 22:00:00\t2007-03-06 06:15:30\t睡觉\t"_qs +
          QString(text).replace(u"\\"_qs, u"\\\\"_qs) +
          u"\t2007-03-05-block-%E5%A4%9C%202@vellora" + same + u"\t1\t-\t-\t自己的" +
          alarm(u"睡觉"_qs),
      u"2007-03-11 07:00:00\t2007-03-12 07:00:00\t一天\t空白\t2007-03-11-block-24@vellora"_qs +
          same + u"\t1\t-\t-\t-" + alarm(u"一天"_qs),
      u"2007-03-05\t2007-03-06\t第一\t第一\\n第二\t2007-03-05-memo@vellora"_qs + same +
          u"-\t-\t-\tTRANSPARENT\t-\t",
      u"2007-03-06\t2007-03-07\t一行\t\t2007-03-06-memo@vellora"_qs + same +
          u"-\t-\t-\tTRANSPARENT\t-\t"};
  EXPECT_EQ(exported({kMonday, kMonday.addDays(6), {}, true, 15}), expected);
  EXPECT_EQ(counts_.plans, 4);
  EXPECT_EQ(counts_.memos, 2);
  EXPECT_EQ(counts_.leftOut, 2);
  EXPECT_EQ(exported({kMonday, kMonday, u"下周"_qs, true}).size(), 2) << "whatever its date";
  EXPECT_EQ(blockInUid(calendarUid(kMonday, u"夜 2"_qs)), u"夜 2");
}

}  // namespace vellora
