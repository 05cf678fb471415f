#include "shell/date_stepper.h"

#include "shell/date_picker.h"
#include "support/fixed_clock.h"
#include "support/text_output.h"

#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace vellora {
namespace {

class DateStepperTest : public testing::Test {
 protected:
  test::FixedClock clock_{QDate(2007, 3, 5)};
  DateStepper stepper_{
      {u"D1"_qs, u"Lxq"_qs, u"日期"_qs},
      {{u"Back7"_qs, u"<<"_qs, u"上一周"_qs, -7}, {u"On1"_qs, u">"_qs, u"后一天"_qs, 1}},
      clock_};
  QSignalSpy changes_{&stepper_, &DateStepper::dateChanged};

  void click(const QString& name) {
    QTest::mouseClick(stepper_.findChild<QPushButton*>(name), Qt::LeftButton);
  }
  QString weekday() const { return stepper_.findChild<QLabel*>(u"Lxq"_qs)->text(); }
};

}  // namespace

TEST_F(DateStepperTest, StepsAcrossMonthsAndNamesTheWeekday) {
  stepper_.setDate(QDate(2008, 3, 1));
  EXPECT_EQ(weekday(), u"星期六"_qs);
  click(u"Back7"_qs);
  EXPECT_EQ(stepper_.date(), QDate(2008, 2, 23));
  click(u"On1"_qs);
  EXPECT_EQ(stepper_.date(), QDate(2008, 2, 24));
  EXPECT_EQ(weekday(), u"星期日"_qs);
}

TEST_F(DateStepperTest, TellsOfEachChangeOnce) {
  stepper_.setDate(QDate(2007, 3, 5));
  EXPECT_EQ(changes_.count(), 1);
  click(u"On1"_qs);
  EXPECT_EQ(changes_.count(), 2);
  stepper_.setDate(stepper_.date());
  EXPECT_EQ(changes_.count(), 2);
}

TEST_F(DateStepperTest, StopsAtTheEndsOfTheCalendar) {
  stepper_.setDate(QDate(1752, 9, 16));
  click(u"Back7"_qs);
  EXPECT_EQ(stepper_.date(), QDate(1752, 9, 14));
  stepper_.setDate(QDate(9999, 12, 31));
  EXPECT_EQ(stepper_.date(), QDate(9999, 12, 24));
}

TEST_F(DateStepperTest, StepsFromATypedDateAndGoesToTodayFromAnywhereInItsWindow) {
  auto* picker = stepper_.findChild<DatePicker*>(u"D1"_qs);
  stepper_.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&stepper_));
  picker->selectAll();
  QTest::keyClicks(picker, u"2007-4-30"_qs);
  click(u"On1"_qs);
  EXPECT_EQ(stepper_.date(), QDate(2007, 5, 1));
  QTest::keyClick(stepper_.findChild<QPushButton*>(u"On1"_qs), Qt::Key_T, Qt::ControlModifier);
  EXPECT_EQ(stepper_.date(), clock_.today());
}

}  // namespace vellora
