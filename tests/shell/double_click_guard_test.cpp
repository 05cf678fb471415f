#include "shell/double_click_guard.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <QWindow>

#include <gtest/gtest.h>

namespace vellora {
namespace {

// Two windows that are each a button, clicked as the desktop clicks.
class DoubleClickGuardTest : public testing::Test {
 protected:
  DoubleClickGuardTest() {
    qApp->installEventFilter(&guard_);
    for (auto* button : {&box_, &behind_}) {
      button->show();
      EXPECT_TRUE(QTest::qWaitForWindowExposed(button));
    }
    QObject::connect(&box_, &QPushButton::clicked, &box_, &QWidget::close);
    QObject::connect(&behind_, &QPushButton::clicked, [this] { ++clicks_behind_; });
  }
  static void click(QWidget& window, int milliseconds) {
    static int before = 0;
    before += milliseconds;
    const QPointF place(5, 5);
    for (const bool down : {true, false}) {
      qt_handleMouseEvent(window.windowHandle(), place, window.mapToGlobal(place),
                          down ? Qt::LeftButton : Qt::NoButton, Qt::LeftButton,
                          down ? QEvent::MouseButtonPress : QEvent::MouseButtonRelease,
                          Qt::NoModifier, before);
      QCoreApplication::processEvents();
    }
  }

  DoubleClickGuard guard_;
  QPushButton box_;
  QPushButton behind_;
  int clicks_behind_ = 0;
};

}  // namespace

TEST_F(DoubleClickGuardTest, LeavesTheSecondHalfToTheWindowOfTheFirst) {
  click(box_, 10'000);
  ASSERT_FALSE(box_.isVisible());
  click(behind_, 50);
  EXPECT_EQ(clicks_behind_, 0);
  click(behind_, 10'000);
  click(behind_, 50);
  EXPECT_EQ(clicks_behind_, 2) << "a double click of its own";
}

}  // namespace vellora
