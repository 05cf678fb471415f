#include "shell/date_stepper.h"

#include "support/text_output.h"

#include <QCalendarWidget>
#include <QDateEdit>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTextCharFormat>

#include <gtest/gtest.h>

namespace vellora {
namespace {

class DateStepperTest : public testing::Test {
 protected:
  DateStepper stepper_{
      {u"D1"_qs, u"Lxq"_qs, u"日期"_qs},
      {{u"Back7"_qs, u"<<"_qs, u"上一周"_qs, -7}, {u"On1"_qs, u">"_qs, u"后一天"_qs, 1}}};
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

TEST_F(DateStepperTest, TakesATypedDateWhenItIsEnteredOrAskedFor) {
  stepper_.setDate(QDate(2007, 3, 5));
  auto* picker = stepper_.findChild<QDateEdit*>(u"D1"_qs);
  picker->setSelectedSection(QDateTimeEdit::MonthSection);
  QTest::keyClicks(picker, u"0428"_qs);
  EXPECT_EQ(changes_.count(), 1) << "not for each part";
  QTest::keyClick(picker, Qt::Key_Return);
  EXPECT_EQ(changes_.count(), 2);
  EXPECT_EQ(weekday(), u"星期六"_qs);
  picker->setSelectedSection(QDateTimeEdit::DaySection);
  QTest::keyClicks(picker, u"30"_qs);
  EXPECT_EQ(stepper_.date(), QDate(2007, 4, 30));
  EXPECT_EQ(weekday(), u"星期一"_qs);
}

TEST_F(DateStepperTest, OffersACalendarInTheSkinsOwnTextColour) {
  stepper_.show();
  auto* picker = stepper_.findChild<QDateEdit*>(u"D1"_qs);
  QTest::mouseClick(picker, Qt::LeftButton, {},
                    picker->rect().center() + QPoint(picker->width() / 2 - 6, 0));
  const auto* calendar = picker->findChild<QCalendarWidget*>();
  ASSERT_NE(calendar, nullptr);
  EXPECT_TRUE(calendar->isVisible());
  for (const auto day : {Qt::Saturday, Qt::Sunday}) {
    EXPECT_EQ(calendar->weekdayTextFormat(day).foreground().style(), Qt::NoBrush);
  }
}

}  // namespace vellora
