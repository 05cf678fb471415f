#include "sample_schedule.h"

#include "routine/category.h"
#include "store/schedule_store.h"
#include "store/schema.h"
#include "support/temporary_folder.h"
#include "support/text_output.h"

#include <QSet>
#include <QTime>

namespace vellora::test {
namespace {

const QDate kToday(2026, 11, 22);  // a Sunday

// A new schedule for samples.
class SampleSchedule : public testing::Test {
 protected:
  SampleSchedule() : store_((createSchedule(path_), path_)) {}

  // The distinct texts of a column.
  QSet<QString> texts(const QString& table, QStringView column) {
    QSet<QString> found;
    for (auto rows = store_.open(table); !rows.atEnd(); rows.moveNext()) {
      found.insert(rows.text(column));
    }
    return found;
  }
  qsizetype plansOn(QDate day) {
    return store_.open(u"SELECT * FROM JH WHERE RQ=#%1#"_qs.arg(day.toString(Qt::ISODate))).count();
  }
  // Codes sort like the day goes without overlaps; plans stand on blocks and items that are there,
  // and no two share a block of a day.
  void expectSound() {
    QTime end(0, 0);
    auto blocks = store_.open(u"select * from SJ order by sjkh"_qs);
    for (; !blocks.atEnd(); blocks.moveNext()) {
      EXPECT_GE(blocks.time(u"SJ0"), end) << blocks.text(u"SJKH").toStdString();
      end = blocks.time(u"SJ1");
      EXPECT_GT(end, blocks.time(u"SJ0")) << blocks.text(u"SJKH").toStdString();
    }
    EXPECT_TRUE(texts(u"SJ"_qs, u"SJKH").contains(texts(u"JH"_qs, u"SJKH")));
    EXPECT_TRUE(texts(u"HD"_qs, u"HDMC").contains(texts(u"JH"_qs, u"HDMC")));
    QSet<QPair<QDate, QString>> taken;
    auto plans = store_.open(u"JH"_qs);
    for (; !plans.atEnd(); plans.moveNext()) taken.insert({plans.date(u"RQ"), plans.text(u"SJKH")});
    EXPECT_EQ(taken.size(), plans.count());
  }

  TemporaryFolder folder_;
  QString path_ = folder_.path(u"SY.mdb"_qs);
  ScheduleStore store_;
};

}  // namespace

TEST_F(SampleSchedule, StartsANewcomerWithAColourfulWeekFromToday) {
  writeStarter(store_, kToday);
  expectSound();
  EXPECT_EQ(texts(u"HD"_qs, u"HDLB").size(), kCategoryCount);
  for (int i = 0; i < 7; ++i) EXPECT_GT(plansOn(kToday.addDays(i)), 2) << "day " << i;
  auto memo = store_.open(u"BW"_qs);
  EXPECT_EQ(memo.date(u"RQ"), kToday);
  EXPECT_FALSE(memo.text(u"Memo").contains(u'\n')) << "it stands in the title bar";
}

TEST_F(SampleSchedule, DemonstratesATermOfNamedWeeksAroundToday) {
  writeDemonstration(store_, kToday);
  expectSound();
  EXPECT_TRUE(plansOn(kToday.addDays(-7)) > 0 && plansOn(kToday.addDays(21)) > 0);
  auto weeks = store_.open(u"select * from mm order by ksrq"_qs);
  QDate next = weeks.date(u"KSRQ");
  for (; !weeks.atEnd(); weeks.moveNext()) {
    EXPECT_EQ(weeks.date(u"KSRQ"), next) << weeks.text(u"MM").toStdString();
    next = weeks.date(u"JSRQ").addDays(1);
  }
  EXPECT_GT(next, kToday);
}

TEST_F(SampleSchedule, FillsEveryBlockOfManyYears) {
  writeYears(store_, kToday, 2, 50);
  expectSound();
  EXPECT_EQ(plansOn(kToday.addYears(-2)) + plansOn(kToday), 100);
}

}  // namespace vellora::test
