#pragma once

#include "app/start_up.h"
#include "grid/surface/grid_surface.h"
#include "support/fixed_clock.h"
#include "support/home_folder.h"
#include "support/schedule_builder.h"
#include "support/scripted_prompts.h"
#include "support/text_output.h"

#include <QAbstractButton>
#include <QApplication>
#include <QTest>
#include <QTimer>

#include <functional>

namespace vellora::test {

// The whole program on an empty schedule, in the hands of a user who has a keyboard only. Nothing
// here reaches a control but keys that are sent to the window in front.
class KeyboardJourney : public testing::Test {
 protected:
  KeyboardJourney() {
    start_up_.showBoard();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&start_up_.board()));
  }

  // Presses the keys that open a window, whose own event loop runs inside them. The user works in
  // it as soon as it stands in front, and leaves it by Escape unless the work has closed it.
  using Work = std::function<void()>;
  static void inWindowOpenedBy(const Work& keys, const Work& work) {
    QWidget* opener = &front();
    bool isOpened = false;
    QTimer eyes;
    QObject::connect(&eyes, &QTimer::timeout, &eyes, [&] {
      QWidget* window = QApplication::activeModalWidget();
      if (!window || window == opener || !window->isActiveWindow()) return;
      eyes.stop();
      isOpened = true;
      work();
      if (window->isVisible()) press(Qt::Key_Escape);
      EXPECT_FALSE(window->isVisible()) << "the window does not close";
      window->close();
    });
    eyes.start(1);
    keys();
    EXPECT_TRUE(isOpened) << "no window opened";
    opener->activateWindow();  // as a desktop does by itself
    EXPECT_TRUE(QTest::qWaitForWindowActive(opener));
  }
  static void inWindow(const QString& button, const Work& work) {
    tabTo(button);
    inWindowOpenedBy([] { press(Qt::Key_Space); }, work);
  }

  static void press(int key, Qt::KeyboardModifiers modifiers = {}, int times = 1) {
    while (times-- > 0) QTest::keyClick(front().windowHandle(), Qt::Key(key), modifiers);
  }
  // A tab in the text is the Tab key, a line break Enter.
  static void type(const QString& text) {
    for (const QChar letter : text) {
      const int key = letter == u'\t' ? Qt::Key_Tab : letter == u'\n' ? Qt::Key_Return : 0;
      QTest::sendKeyEvent(QTest::Click, front().windowHandle(), Qt::Key(key), QString(letter),
                          Qt::NoModifier);
    }
  }
  // Alt and the letter that a caption underlines. The button stays down for a moment before it
  // acts.
  static void alt(char letter) {
    bool hasActed = false;
    QObject eyes;
    for (const auto* button : front().findChildren<QAbstractButton*>()) {
      QObject::connect(button, &QAbstractButton::clicked, &eyes, [&hasActed] { hasActed = true; });
    }
    press(Qt::Key(letter), Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&hasActed] { return hasActed; })) << "Alt+" << letter;
  }
  // In a grid that is typed into Tab goes from cell to cell, and with Ctrl out of it.
  static void tabTo(const QString& name) {
    constexpr int kMoreThanAnyWindowHas = 40;
    for (int i = 0; i < kMoreThanAnyWindowHas; ++i) {
      const QWidget* focus = QApplication::focusWidget();
      if (focus && focus->objectName() == name) return;
      const bool isInGrid = qobject_cast<const GridSurface*>(focus) != nullptr;
      press(Qt::Key_Tab, isInGrid ? Qt::ControlModifier : Qt::NoModifier);
    }
    FAIL() << name.toStdString() << " is not reached";
  }
  static void pressButton(const QString& name) {
    tabTo(name);
    press(Qt::Key_Space);
  }

  static QWidget& front() { return *QApplication::activeWindow(); }
  static QString title() { return front().windowTitle(); }
  static QString cell(int col, int row) {
    return front().findChild<GridSurface*>()->GetCellText(col, row).replace(u'\r', u'/');
  }
  static QString text(const QString& field) {
    return front().findChild<QWidget*>(field)->property("text").toString();
  }

  HomeFolder home_;
  ScheduleBuilder schedule_;
  ScriptedPrompts prompts_;
  FixedClock clock_{kMonday};
  StartUp start_up_{schedule_.folder(), prompts_, clock_};
};

}  // namespace vellora::test
