#include "shell/double_click_guard.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <QWindow>

#include <gtest/gtest.h>

namespace vellora {
namespace {

// Clicks as the desktop does, so many milliseconds after the click before.
void click(QWidget& window, int later) {
  static int now = 0;
  now += later;
  const QPointF place(5, 5);
  for (const bool down : {true, false}) {
    qt_handleMouseEvent(window.windowHandle(), place, window.mapToGlobal(place),
                        down ? Qt::LeftButton : Qt::NoButton, Qt::LeftButton,
                        down ? QEvent::MouseButtonPress : QEvent::MouseButtonRelease,
                        Qt::NoModifier, now);
    QCoreApplication::processEvents();
  }
}

}  // namespace

TEST(DoubleClickGuard, LeavesTheSecondHalfToTheWindowOfTheFirst) {
  DoubleClickGuard guard;
  qApp->installEventFilter(&guard);
  QPushButton box;
  QPushButton behind;
  for (auto* button : {&box, &behind}) {
    button->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(button));
  }
  QObject::connect(&box, &QPushButton::clicked, &box, &QWidget::close);
  int clicks = 0;
  QObject::connect(&behind, &QPushButton::clicked, [&clicks] { ++clicks; });
  click(box, 10'000);
  ASSERT_FALSE(box.isVisible());
  click(behind, 50);
  EXPECT_EQ(clicks, 0);
  click(behind, 10'000);
  click(behind, 50);
  EXPECT_EQ(clicks, 2) << "a double click of its own";
}

}  // namespace vellora
