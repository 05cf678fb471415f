#include "shell/date_picker.h"

#include "shell/calendar_popup.h"
#include "support/fixed_clock.h"
#include "support/text_output.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QClipboard>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTextCharFormat>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <gtest/gtest.h>

namespace vellora {
namespace {

const QDate kMonday(2007, 3, 5);

// A picker and another field in a window in front.
class DatePickerTest : public testing::Test {
 protected:
  DatePickerTest() {
    auto* column = new QVBoxLayout(&window_);
    column->addWidget(&picker_);
    column->addWidget(&other_);
    picker_.setDate(kMonday);
    window_.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
    picker_.setFocus();
    changes_.clear();
  }
  void key(int key, Qt::KeyboardModifiers with = {}) {
    QTest::keyClick(&picker_, static_cast<Qt::Key>(key), with);
  }
  void typeOver(const QString& text) {
    picker_.selectAll();
    QApplication::clipboard()->setText(text);
    QTest::keyClick(&picker_, Qt::Key_V, Qt::ControlModifier);
  }

  test::FixedClock clock_{QDate(2007, 3, 7)};
  QWidget window_;
  DatePicker picker_{u"D1"_qs, u"日期"_qs, clock_, &window_};
  QLineEdit other_{&window_};
  QSignalSpy changes_{&picker_, &DatePicker::dateChanged};
};

}  // namespace

TEST_F(DatePickerTest, TakesADateAsPeopleWriteItOnceItIsEnteredOrLeft) {
  const std::pair<const char16_t*, QDate> kDates[]{
      {u"2027-06-07", {2027, 6, 7}},   {u"2031/5/6", {2031, 5, 6}},
      {u"2027年6月7日", {2027, 6, 7}}, {u" ２０２９－１２－３１ ", {2029, 12, 31}},
      {u"9999-12-24", {9999, 12, 24}}, {u"1752-9-14", {1752, 9, 14}},
  };
  for (const auto& [text, date] : kDates) {
    const QDate before = picker_.date();
    changes_.clear();
    typeOver(QString::fromUtf16(text));
    EXPECT_EQ(picker_.date(), before);
    date.day() == 7 ? key(Qt::Key_Return) : key(Qt::Key_Tab);
    EXPECT_EQ(picker_.date(), date);
    EXPECT_EQ(picker_.text(), date.toString(Qt::ISODate));
    EXPECT_EQ(changes_.count(), 1);
    picker_.setFocus();
  }
}

TEST_F(DatePickerTest, TakesKeysOverASelectionIntoAnEmptyFieldAndIntoOneNumber) {
  picker_.selectAll();
  QTest::keyClicks(&picker_, u"2027-06-07"_qs);
  key(Qt::Key_Return);
  EXPECT_EQ(picker_.date(), QDate(2027, 6, 7));
  key(Qt::Key_Delete);
  QTest::keyClicks(&picker_, u"2028-1-2"_qs);
  key(Qt::Key_Return);
  EXPECT_EQ(picker_.date(), QDate(2028, 1, 2));
  key(Qt::Key_Home);
  key(Qt::Key_Right, Qt::ControlModifier);
  QTest::keyClicks(&picker_, u"11"_qs);
  key(Qt::Key_Left, Qt::ControlModifier);
  key(Qt::Key_Left, Qt::ControlModifier);
  QTest::keyClicks(&picker_, u"2030"_qs);
  key(Qt::Key_Return);
  EXPECT_EQ(picker_.date(), QDate(2030, 11, 2));
}

TEST_F(DatePickerTest, MarksWhatIsNoDateAndTakesItBackOnEscape) {
  for (const auto& text : {u"2027-13-01"_qs, u"2027-06"_qs, QString(), u"1752-09-13"_qs}) {
    typeOver(text);
    key(Qt::Key_Tab);
    EXPECT_EQ(picker_.date(), kMonday);
    EXPECT_EQ(picker_.text(), text);
    EXPECT_FALSE(picker_.accessibleDescription().isEmpty()) << text.toStdString();
    EXPECT_TRUE(picker_.toolTip().startsWith(picker_.accessibleDescription()));
    picker_.setFocus();
    key(Qt::Key_Escape);
    EXPECT_EQ(picker_.text(), u"2007-03-05"_qs);
    EXPECT_TRUE(picker_.accessibleDescription().isEmpty());
  }
  EXPECT_EQ(changes_.count(), 0);
}

TEST_F(DatePickerTest, LeavesEnterAndEscapeToTheWindowUnlessSomethingIsHalfTyped) {
  const auto isTaken = [this](Qt::Key key) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(&picker_, &event);
    return event.isAccepted();
  };
  EXPECT_FALSE(isTaken(Qt::Key_Return));
  EXPECT_FALSE(isTaken(Qt::Key_Escape));
  typeOver(u"2027-"_qs);
  EXPECT_TRUE(isTaken(Qt::Key_Return));
  EXPECT_TRUE(isTaken(Qt::Key_Escape));
}

TEST_F(DatePickerTest, StepsByDayWeekAndMonthAndGoesToToday) {
  key(Qt::Key_Up);
  EXPECT_EQ(picker_.date(), kMonday.addDays(1));
  key(Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(picker_.date(), kMonday.addDays(-6));
  key(Qt::Key_PageUp);
  EXPECT_EQ(picker_.date(), QDate(2007, 3, 27));
  typeOver(u"2007-1-31"_qs);
  key(Qt::Key_PageUp);
  EXPECT_EQ(picker_.date(), QDate(2007, 2, 28)) << "from what was typed";
  key(Qt::Key_T, Qt::ControlModifier);
  EXPECT_EQ(picker_.date(), clock_.today());
}

TEST_F(DatePickerTest, TurnsWithTheWheelOnlyWhileItHasTheFocus) {
  const auto turn = [this] {
    QWheelEvent wheel(QPointF(5, 5), picker_.mapToGlobal(QPointF(5, 5)), {}, QPoint(0, 120),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&picker_, &wheel);
  };
  other_.setFocus();
  turn();
  EXPECT_EQ(picker_.date(), kMonday);
  picker_.setFocus();
  turn();
  EXPECT_EQ(picker_.date(), kMonday.addDays(1));
}

TEST_F(DatePickerTest, OffersACalendarOfWeeksFromMondayThatBeginsAtTheDate) {
  QTest::mouseClick(&picker_, Qt::LeftButton, {},
                    picker_.rect().center() + QPoint(picker_.width() / 2 - 6, 0));
  auto* popup = picker_.findChild<CalendarPopup*>();
  ASSERT_TRUE(popup && popup->isVisible());
  auto* calendar = popup->findChild<QCalendarWidget*>();
  EXPECT_EQ(calendar->selectedDate(), kMonday);
  EXPECT_EQ(calendar->firstDayOfWeek(), Qt::Monday);
  for (const auto day : {Qt::Saturday, Qt::Sunday}) {
    EXPECT_EQ(calendar->weekdayTextFormat(day).foreground().style(), Qt::NoBrush);
  }
  QTest::keyClick(calendar->focusWidget(), Qt::Key_Down);
  QTest::keyClick(calendar->focusWidget(), Qt::Key_Return);
  EXPECT_FALSE(popup->isVisible());
  EXPECT_EQ(picker_.date(), kMonday.addDays(7));
  EXPECT_EQ(changes_.count(), 1);
  key(Qt::Key_Down, Qt::AltModifier);
  for (auto* again : picker_.findChildren<CalendarPopup*>()) {
    if (again->isVisible()) again->findChild<QPushButton*>()->click();
  }
  EXPECT_EQ(picker_.date(), clock_.today());
}

}  // namespace vellora
