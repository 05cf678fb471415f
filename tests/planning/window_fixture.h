#pragma once

#include "grid/surface/grid_surface.h"
#include "shell/date_picker.h"
#include "shell/planner_window.h"
#include "support/planner_test.h"
#include "support/saved_plans.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

#include <algorithm>
#include <gtest/gtest.h>

namespace vellora::test {

inline const QDate kToday = kMonday;

// A schedule of two blocks and three activities, one of them completed, and the user's hands on a
// window over it.
class WindowTest : public PlannerTest {
 protected:
  WindowTest() {
    schedule_.block(u"002"_qs, u"08:00:00"_qs, u"09:30:00"_qs, u"早读"_qs)
        .block(u"001"_qs, u"20:00:00"_qs, u"21:00:00"_qs, u"晚间"_qs)
        .item(u"002"_qs, u"跑步"_qs, u"3-运动"_qs, 0, 32768)
        .item(u"001"_qs, u"读书"_qs, u"2-学习"_qs, 0, 16711680)
        .item(u"003"_qs, u"做完了"_qs, u"1-工作"_qs, 1);
  }

  static void open(PlannerWindow& window) {
    window.Show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  }
  static void click(QWidget& window, const QString& name) {
    QTest::mouseClick(window.findChild<QPushButton*>(name), Qt::LeftButton);
  }
  static QListWidget& list(QWidget& window, const QString& name) {
    return *window.findChild<QListWidget*>(name);
  }
  static void doubleClick(QWidget& window, const QString& name, int line) {
    QListWidget& lines = list(window, name);
    const QPoint place = lines.visualItemRect(lines.item(line)).center();
    QTest::mouseClick(lines.viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(lines.viewport(), Qt::LeftButton, {}, place);
  }
  static QStringList lines(QWidget& window, const QString& name) {
    QStringList texts;
    QListWidget& all = list(window, name);
    for (int line = 0; line < all.count(); ++line) texts << all.item(line)->text();
    return texts;
  }
  static GridSurface& grid(QWidget& window) { return *window.findChild<GridSurface*>(u"Cell1"_qs); }
  // The texts of a grid's row, joined; line breaks as slashes.
  static QString row(QWidget& window, int row) {
    const GridSurface& cells = grid(window);
    QStringList texts;
    for (int col = 0; col < cells.Cols(); ++col) texts << cells.GetCellText(col, row);
    return texts.join(u'|').replace(u'\r', u'/');
  }
  // Begins to edit a cell and returns its editor.
  static QWidget* edit(QWidget& window, int col, int row) {
    grid(window).SetCurrentCell(col, row);
    grid(window).Focus();
    QTest::keyClick(&grid(window), Qt::Key_F2);
    return grid(window).indexWidget(grid(window).currentIndex());
  }
  static void type(QWidget& window, int col, int row, const QString& text) {
    QWidget* editor = edit(window, col, row);
    QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
    commit(*editor, text);
    QTest::keyClick(editor, Qt::Key_Return);
    QCoreApplication::processEvents();
  }
  // Whether a row is shown as not saved yet.
  static bool isMarked(QWidget& window, int row) {
    QCoreApplication::processEvents();
    const auto& rows = grid(window).markedRows();
    return std::any_of(rows.begin(), rows.end(),
                       [row](const auto& mark) { return mark.row == row; });
  }
  // Text as an input method hands it over.
  static void commit(QWidget& editor, const QString& text) {
    QInputMethodEvent event;
    event.setCommitString(text);
    QCoreApplication::sendEvent(&editor, &event);
  }
  QStringList saved() { return savedPlans(store_); }
};

}  // namespace vellora::test
