#pragma once

#include "grid/surface/grid_surface.h"
#include "shell/planner_window.h"
#include "support/planner_test.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>

#include <algorithm>
#include <gtest/gtest.h>

namespace vellora::test {

// The user's hands on an editor.
class EditorTest : public PlannerTest {
 protected:
  void open(PlannerWindow& window) {
    window_ = &window;
    window.Load();
    window.Show();
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
  }
  // Keys go where the focus is.
  void press(int key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(window_->windowHandle(), Qt::Key(key), modifiers);
  }
  // Alt and the letter; the button stays down for a moment before it acts.
  void pressMnemonic(int key) {
    press(key, Qt::AltModifier);
    const auto buttons = window_->findChildren<QPushButton*>();
    EXPECT_TRUE(QTest::qWaitFor([&] {
      return std::none_of(buttons.begin(), buttons.end(),
                          [](auto* button) { return button->isDown(); });
    }));
  }
  void type(const QString& text) {
    for (const QChar letter : text) {
      QTest::sendKeyEvent(QTest::Click, window_->windowHandle(), Qt::Key_unknown, QString(letter),
                          Qt::NoModifier);
    }
  }
  // Types a row from the current cell on, with a Tab after each cell.
  void typeCells(const QStringList& texts) {
    for (const auto& text : texts) {
      type(text);
      press(Qt::Key_Tab);
    }
  }
  void click(const QString& name) {
    QTest::mouseClick(window_->findChild<QPushButton*>(name), Qt::LeftButton);
  }
  GridSurface& grid() { return *window_->findChild<GridSurface*>(u"Cell1"_qs); }
  QString shown(int col, int row) { return grid().GetCellText(col, row); }
  // Ends the test's hold of the table when the result goes.
  ScheduleStore::Transaction otherProgramSaves() { return ScheduleStore::Transaction(other_); }

 private:
  ScheduleStore other_{schedule_.path()};
  PlannerWindow* window_ = nullptr;
};

}  // namespace vellora::test
