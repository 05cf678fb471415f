#include "sample_schedule.h"

#include "routine/category.h"
#include "store/schedule_store.h"
#include "store/schema.h"
#include "support/temporary_folder.h"
#include "support/text_output.h"

#include <QSet>
#include <QTime>

#include <gtest/gtest.h>

namespace vellora::test {
namespace {

const QDate kToday(2026, 11, 22);  // a Sunday

// A new schedule with samples in it.
class SampleSchedule : public testing::Test {
 protected:
  SampleSchedule() { createSchedule(path_); }

  ScheduleStore store() const { return ScheduleStore(path_); }

  // The distinct texts of a column.
  static QSet<QString> texts(ScheduleStore& store, const QString& table, QStringView column) {
    QSet<QString> found;
    for (auto rows = store.open(table); !rows.atEnd(); rows.moveNext()) {
      found.insert(rows.text(column));
    }
    return found;
  }

  // Plans stand on blocks and items that are there, and no two share a block of a day.
  static void expectSoundPlans(ScheduleStore& store) {
    EXPECT_TRUE(texts(store, u"SJ"_qs, u"SJKH").contains(texts(store, u"JH"_qs, u"SJKH")));
    EXPECT_TRUE(texts(store, u"HD"_qs, u"HDMC").contains(texts(store, u"JH"_qs, u"HDMC")));
    QSet<QPair<QDate, QString>> taken;
    auto rows = store.open(u"JH"_qs);
    for (; !rows.atEnd(); rows.moveNext()) taken.insert({rows.date(u"RQ"), rows.text(u"SJKH")});
    EXPECT_EQ(taken.size(), rows.count());
  }

  // Codes sort like the day goes, and no block overlaps the one before.
  static void expectDayInOrder(ScheduleStore& store) {
    QTime end(0, 0);
    for (auto rows = store.open(u"select * from SJ order by sjkh"_qs); !rows.atEnd();
         rows.moveNext()) {
      EXPECT_GE(rows.time(u"SJ0"), end) << rows.text(u"SJKH").toStdString();
      EXPECT_GT(rows.time(u"SJ1"), rows.time(u"SJ0")) << rows.text(u"SJKH").toStdString();
      end = rows.time(u"SJ1");
    }
  }

  static qsizetype plansOn(ScheduleStore& store, QDate day) {
    return store.open(u"SELECT * FROM JH WHERE RQ=#%1#"_qs.arg(day.toString(Qt::ISODate))).count();
  }

 private:
  TemporaryFolder folder_;
  QString path_ = folder_.path(u"SY.mdb"_qs);
};

}  // namespace

TEST_F(SampleSchedule, StartsANewcomerWithAColourfulWeekFromToday) {
  ScheduleStore store = this->store();
  writeStarter(store, kToday);
  expectSoundPlans(store);
  expectDayInOrder(store);
  EXPECT_EQ(texts(store, u"HD"_qs, u"HDLB").size(), kCategoryCount);
  for (int i = 0; i < 7; ++i) EXPECT_GT(plansOn(store, kToday.addDays(i)), 2) << "day " << i;
  auto memo = store.open(u"BW"_qs);
  EXPECT_EQ(memo.date(u"RQ"), kToday);
  EXPECT_FALSE(memo.text(u"Memo").contains(u'\n')) << "it stands in the title bar";
}

TEST_F(SampleSchedule, DemonstratesATermOfNamedWeeksAroundToday) {
  ScheduleStore store = this->store();
  writeDemonstration(store, kToday);
  expectSoundPlans(store);
  expectDayInOrder(store);
  EXPECT_GT(plansOn(store, kToday.addDays(-7)), 0);
  EXPECT_GT(plansOn(store, kToday.addDays(21)), 0);
  QDate next;
  for (auto weeks = store.open(u"select * from mm order by ksrq"_qs); !weeks.atEnd();
       weeks.moveNext()) {
    EXPECT_TRUE(next.isNull() || weeks.date(u"KSRQ") == next) << weeks.text(u"MM").toStdString();
    next = weeks.date(u"JSRQ").addDays(1);
  }
  EXPECT_GT(next, kToday);
}

TEST_F(SampleSchedule, FillsEveryBlockOfManyYears) {
  ScheduleStore store = this->store();
  writeYears(store, kToday, 2, 50);
  expectSoundPlans(store);
  expectDayInOrder(store);
  EXPECT_EQ(store.open(u"SJ"_qs).count(), 50);
  EXPECT_EQ(plansOn(store, kToday.addYears(-2)), 50);
  EXPECT_EQ(plansOn(store, kToday), 50);
}

}  // namespace vellora::test
