#include "shell/date_picker.h"

#include "routine/calendar_text.h"
#include "shell/calendar_popup.h"
#include "shell/date_stepper.h"
#include "support/fixed_clock.h"
#include "support/text_output.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QClipboard>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTextCharFormat>
#include <QWheelEvent>

#include <gtest/gtest.h>

namespace vellora {
namespace {

const QDate kMonday(2007, 3, 5);

// A picker among the buttons of its stepper, in a window in front.
class DatePickerTest : public testing::Test {
 protected:
  DatePickerTest() {
    picker_.setDate(kMonday);
    stepper_->show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(stepper_.get()));
    picker_.setFocus();
    changes_.clear();
  }
  void key(int key, Qt::KeyboardModifiers with = {}) {
    QTest::keyClick(&picker_, static_cast<Qt::Key>(key), with);
  }
  void typeOver(const QString& text) {
    picker_.selectAll();
    QApplication::clipboard()->setText(text);
    key(Qt::Key_V, Qt::ControlModifier);
  }
  QPushButton& button(const char16_t* name) {
    return *stepper_->findChild<QPushButton*>(QString::fromUtf16(name));
  }

  test::FixedClock clock_{QDate(2007, 3, 7)};
  std::unique_ptr<DateStepper> stepper_{
      makeArrowStepper({u"D1"_qs, u"Lxq"_qs, u"日期"_qs}, clock_, nullptr)};
  DatePicker& picker_ = *stepper_->findChild<DatePicker*>(u"D1"_qs);
  QSignalSpy changes_{stepper_.get(), &DateStepper::dateChanged};
};

}  // namespace

TEST_F(DatePickerTest, MovesToADateThatIsEnteredOrLeftAndMarksWhatIsNone) {
  const std::pair<QString, QDate> kTexts[]{
      {u"2027年6月7日"_qs, {2027, 6, 7}},
      {u" ２０２９－１２－３１ "_qs, {2029, 12, 31}},
      {u"9999-12-24"_qs, {9999, 12, 24}},
      {u"1752-9-14"_qs, {1752, 9, 14}},
      {u"9999-12-25"_qs, {}},
      {u"1752-09-13"_qs, {}},
      {u"2027-13-01"_qs, {}},
      {u""_qs, {}},
  };
  for (const auto& [text, date] : kTexts) {
    for (const auto end : {Qt::Key_Return, Qt::Key_Tab}) {
      SCOPED_TRACE(text.toStdString());
      picker_.setDate(kMonday);
      changes_.clear();
      typeOver(text);
      EXPECT_EQ(picker_.date(), kMonday);
      key(end);
      EXPECT_EQ(picker_.date(), date.isValid() ? date : kMonday);
      EXPECT_EQ(picker_.text(), date.isValid() ? isoDate(date) : text);
      EXPECT_EQ(picker_.accessibleDescription().isEmpty(), date.isValid());
      EXPECT_EQ(changes_.count(), date.isValid() ? 1 : 0);
      picker_.setFocus();
      key(Qt::Key_Escape);
      EXPECT_EQ(picker_.text(), isoDate(picker_.date()));
      EXPECT_TRUE(picker_.accessibleDescription().isEmpty());
    }
  }
}

TEST_F(DatePickerTest, IsSteppedAndTypedIntoByKeys) {
  const struct {
    const char* typed;
    std::vector<QKeyCombination> keys;
    QDate date;
  } kSteps[]{{"", {Qt::Key_Up}, {2007, 3, 6}},
             {"", {Qt::SHIFT | Qt::Key_Down}, {2007, 2, 27}},
             {"2007-1-31", {Qt::Key_PageUp}, {2007, 2, 28}},
             {"2009-01-31", {Qt::Key_Up}, {2009, 2, 1}},
             {"2027-06-07", {Qt::CTRL | Qt::Key_T}, {2007, 3, 7}},
             {"", {Qt::Key_Return, Qt::Key_Delete}, {2007, 3, 7}},
             {"2028-1-2", {Qt::Key_Return, Qt::Key_Home, Qt::CTRL | Qt::Key_Right}, {2028, 1, 2}},
             {"11", {Qt::CTRL | Qt::Key_Left, Qt::CTRL | Qt::Key_Left}, {2028, 1, 2}},
             {"2030", {Qt::Key_Return}, {2030, 11, 2}}};
  for (const auto& [typed, keys, date] : kSteps) {
    QTest::keyClicks(&picker_, QString::fromUtf8(typed));
    for (const QKeyCombination pressed : keys) key(pressed.key(), pressed.keyboardModifiers());
    EXPECT_EQ(picker_.date(), date);
  }
}

TEST_F(DatePickerTest, IsSteppedByButtonsFromWhatIsTypedAndNoFurtherThanTheCalendar) {
  const struct {
    const char16_t* typed;
    const char16_t* button;
    QDate date;
    const char16_t* weekday;
  } kSteps[]{{u"2008-3-1", u"Cm1", {2008, 2, 23}, u"星期六"},
             {u"2007-5-1", u"Cm2", {2007, 4, 30}, u"星期一"},
             {u"2007-12-31", u"Cm3", {2008, 1, 1}, u"星期二"},
             {u"2007-2-25", u"Cm4", {2007, 3, 4}, u"星期日"},
             {u"1752-9-16", u"Cm1", {1752, 9, 14}, u"星期四"},
             {u"9999-12-20", u"Cm4", {9999, 12, 24}, u"星期五"}};
  for (const auto& [typed, step, date, weekday] : kSteps) {
    typeOver(QString::fromUtf16(typed));
    changes_.clear();
    button(step).click();
    EXPECT_EQ(stepper_->date(), date);
    EXPECT_EQ(stepper_->findChild<QLabel*>(u"Lxq"_qs)->text(), QString::fromUtf16(weekday));
    EXPECT_EQ(changes_.count(), 2) << "the typed date and the one stepped to";
    stepper_->setDate(date);
    EXPECT_EQ(changes_.count(), 2);
  }
  QTest::keyClick(&button(u"Cm3"), Qt::Key_T, Qt::ControlModifier);
  EXPECT_EQ(stepper_->date(), clock_.today());
}

TEST_F(DatePickerTest, LeavesToItsWindowWhatItHasNoUseFor) {
  const auto takes = [this](QEvent&& event) {
    QApplication::sendEvent(&picker_, &event);
    return event.isAccepted();
  };
  const auto takesWheel = [&] {
    return takes(QWheelEvent({5, 5}, {5, 5}, {}, {0, 120}, {}, {}, Qt::NoScrollPhase, false));
  };
  for (const auto key : {Qt::Key_Return, Qt::Key_Escape}) {
    EXPECT_FALSE(takes(QKeyEvent(QEvent::KeyPress, key, {})));
    typeOver(u"2027-"_qs);
    EXPECT_TRUE(takes(QKeyEvent(QEvent::KeyPress, key, {})));
    picker_.setDate(kMonday);
  }
  EXPECT_TRUE(takesWheel());
  EXPECT_EQ(picker_.date(), kMonday.addDays(1));
  button(u"Cm3").setFocus();
  EXPECT_FALSE(takesWheel());
  EXPECT_EQ(picker_.date(), kMonday.addDays(1));
}

TEST_F(DatePickerTest, OffersACalendarOfWeeksFromMondayThatBeginsAtTheDate) {
  QTest::mouseClick(&picker_, Qt::LeftButton, {}, picker_.rect().center() * 2 - QPoint(6, 6));
  auto* popup = picker_.findChild<CalendarPopup*>();
  ASSERT_TRUE(popup && popup->isVisible());
  auto* calendar = popup->findChild<QCalendarWidget*>();
  EXPECT_EQ(calendar->selectedDate(), kMonday);
  EXPECT_EQ(calendar->firstDayOfWeek(), Qt::Monday);
  EXPECT_EQ(calendar->weekdayTextFormat(Qt::Sunday).foreground().style(), Qt::NoBrush);
  QTest::keyClick(calendar->focusWidget(), Qt::Key_Down);
  QTest::keyClick(calendar->focusWidget(), Qt::Key_Return);
  EXPECT_FALSE(popup->isVisible());
  EXPECT_EQ(picker_.date(), kMonday.addDays(7));
  EXPECT_EQ(changes_.count(), 1);
  key(Qt::Key_Down, Qt::AltModifier);
  picker_.findChildren<CalendarPopup*>().last()->findChild<QPushButton*>()->click();
  EXPECT_EQ(picker_.date(), clock_.today());
}

}  // namespace vellora
