#include "schedule/automatic_copies.h"

#include "support/schedule_builder.h"

#include <QFile>

#include <gtest/gtest.h>

namespace vellora {
namespace {

using namespace test;

class AutomaticCopiesTest : public testing::Test {
 protected:
  void make(int day) {
    ScheduleStore store = schedule_.store();
    copies_.make(store, QDateTime(kMonday.addDays(day), QTime(8, 30)));
  }
  void clear() { schedule_.sql(u"DELETE FROM JH WHERE SJKH<>'001'"_qs); }
  // Days of the copies from Monday on, and their plans, the oldest first.
  QString made() const {
    QStringList all;
    for (const AutomaticCopy& copy : copies_.list()) {
      all.prepend(u"%1/%2"_qs.arg(kMonday.daysTo(copy.time.date())).arg(copy.plans));
    }
    return all.join(u' ');
  }

  ScheduleBuilder schedule_;
  AutomaticCopies copies_{schedule_.folder()};
};

}  // namespace

TEST_F(AutomaticCopiesTest, TheLastFourteenStayAndTheFullestUntilAnotherIsAsFull) {
  make(0);
  EXPECT_EQ(made(), QString()) << "of nothing there is no copy";
  schedule_.fullDay(5).items(5).fullPlan(kMonday, 1, 5, 5);
  for (int day = 0; day < 2; ++day) make(day);
  clear();
  for (int day = 2; day < 17; ++day) make(day);
  EXPECT_EQ(made(), u"1/5 3/1 4/1 5/1 6/1 7/1 8/1 9/1 10/1 11/1 12/1 13/1 14/1 15/1 16/1");
  schedule_.fullPlan(kMonday.addDays(1), 1, 3, 3);
  make(17);
  EXPECT_TRUE(made().startsWith(u"4/1 "_qs)) << made().toStdString();
}

TEST_F(AutomaticCopiesTest, ACopyThatCannotBeReadCoversNoOther) {
  schedule_.fullDay(5).items(5).fullPlan(kMonday, 1, 5, 5);
  make(0);
  make(1);
  QFile newer(copies_.list().front().path);
  ASSERT_TRUE(newer.open(QIODevice::ReadWrite));
  newer.seek(newer.size() / 2);
  newer.putChar('x');
  newer.close();
  clear();
  for (int day = 2; day < 15; ++day) make(day);
  EXPECT_TRUE(made().startsWith(u"0/5 1/5 2/1 "_qs)) << made().toStdString();
}

TEST_F(AutomaticCopiesTest, TellWhenMoreThanHalfOfThePlansAreGone) {
  schedule_.fullDay(5).items(5).fullPlan(kMonday, 1, 5, 5);
  make(0);
  make(0);
  EXPECT_EQ(made(), u"0/5 0/5") << "two in one second";
  EXPECT_TRUE(copies_.isMadeOn(kMonday));
  EXPECT_FALSE(copies_.isMadeOn(kMonday.addDays(1)));
  ScheduleStore store = schedule_.store();
  schedule_.sql(u"DELETE FROM JH WHERE SJKH>'003'"_qs);
  EXPECT_FALSE(copies_.lostSince(store)) << "three of five are left";
  clear();
  EXPECT_EQ(copies_.lostSince(store).value().plans, 5);
}

}  // namespace vellora
