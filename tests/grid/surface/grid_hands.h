#pragma once

#include "grid/surface/grid_surface.h"
#include "support/text_output.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace vellora {

// A shown grid, one cell of it filled, a field beside it and a user's hands. A line of steps names
// a cell to go to (1,2), a key (Ctrl+C), a text that is typed ('new), the mouse (click:1,2,
// double:, shift:, right:, drag:0,0-1,2), an input method (compose:, commit:) or a clipboard
// (clip:a→b¶c).
class GridSteps : public testing::Test {
 protected:
  struct Step {
    const char* what;
    const char* steps;
    const char* state;
  };

  GridSteps() {
    grid.resize(640, 400);
    window.resize(640, 500);
    window.show();
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    grid.setFocus();
    grid.setEditable(true);
    begin(3, 5);
  }
  void begin(int cols, int rows) {
    grid.sheet() = Sheet();
    grid.SetCols(cols);
    grid.SetRows(rows);
    grid.SetCellText(0, 0, u"旧"_qs);
    grid.sheet().SetCellTag(0, 0, u"K"_qs);
    grid.Redraw();
    grid.clearUndo();
    grid.SetCurrentCell(0, 0);
  }
  void play(const char* steps) {
    for (const QString& step : QString::fromUtf8(steps).split(u' ', Qt::SkipEmptyParts)) act(step);
  }
  // One after the other, in the state that the one before has left.
  void follow(std::initializer_list<Step> steps) {
    for (const Step& step : steps) {
      SCOPED_TRACE(step.what);
      play(step.steps);
      EXPECT_EQ(state(), QString::fromUtf8(step.state));
    }
  }
  // The cells that changed since the beginning, the current one, and what is out of the ordinary.
  QString state() {
    settle();
    QString shown;
    for (int row = 0; row < grid.Rows(); ++row) {
      for (int col = 0; col < grid.Cols(); ++col) {
        const QString tag = grid.CellTag(col, row);
        const QString cell = grid.GetCellText(col, row) + (tag.isEmpty() ? tag : u'#' + tag);
        if (cell == (col + row == 0 ? u"旧#K"_qs : QString())) continue;
        shown += u"%1,%2=%3 "_qs.arg(col).arg(row).arg(cell);
      }
    }
    const QModelIndex current = grid.currentIndex();
    shown += u"@%1,%2"_qs.arg(current.column()).arg(current.row());
    const auto selected = grid.selectionModel()->selectedIndexes().size();
    if (selected > 1) shown += u" [%1]"_qs.arg(selected);
    if (grid.Rows() != 5) shown += u" rows:%1"_qs.arg(grid.Rows());
    if (editor()) shown += u" open"_qs;
    if (next.hasFocus()) shown += u" left"_qs;
    return shown.replace(u'\r', u'/');
  }

  static void drag(QWidget* on, QPoint from, QPoint to) {
    QTest::mousePress(on, Qt::LeftButton, {}, from);
    QMouseEvent move(QEvent::MouseMove, to, on->mapToGlobal(to), Qt::LeftButton, Qt::LeftButton,
                     {});
    QApplication::sendEvent(on, &move);
    QTest::mouseRelease(on, Qt::LeftButton, {}, to);
  }
  QRect rect(int col, int row) const { return grid.visualRect(grid.model()->index(row, col)); }
  // Null while no cell is being typed into.
  QWidget* editor() const { return grid.indexWidget(grid.currentIndex()); }
  // Everything that waits for control to return to the event loop.
  static void settle() {
    for (int turn = 0; turn < 3; ++turn) QCoreApplication::processEvents();
  }

  QWidget window;
  GridSurface grid{&window};
  QLineEdit next{&window};

 private:
  static CellPlace placeIn(const QString& cell) {
    return {cell.section(u',', 0, 0).toInt(), cell.section(u',', 1).toInt()};
  }
  QPoint centre(const QString& cell) const {
    return rect(placeIn(cell).col, placeIn(cell).row).center();
  }
  void act(const QString& step) {
    const QString what = step.section(u':', 0, 0);
    const QString with = step.section(u':', 1);
    if (step.startsWith(u'\'')) {
      for (const QChar key : step.mid(1))
        QTest::keyClick(QApplication::focusWidget(), key.toLatin1());
    } else if (what == u"clip") {
      const QString lines = QString(with).replace(u'→', u'\t').replace(u'¶', u'\n');
      QGuiApplication::clipboard()->setText(lines);
    } else if (what == u"compose" || what == u"commit") {
      QInputMethodEvent event(what == u"compose" ? with : QString(), {});
      if (what == u"commit") event.setCommitString(with);
      QApplication::sendEvent(&grid, &event);
    } else if (what == u"drag") {
      drag(grid.viewport(), centre(with.section(u'-', 0, 0)), centre(with.section(u'-', 1)));
    } else if (!with.isEmpty()) {
      const auto button = what == u"right" ? Qt::RightButton : Qt::LeftButton;
      const auto modifier = what == u"shift" ? Qt::ShiftModifier : Qt::NoModifier;
      QTest::mouseClick(grid.viewport(), button, modifier, centre(with));
      if (what == u"double") QTest::mouseDClick(grid.viewport(), button, modifier, centre(with));
    } else if (step.contains(u',')) {
      grid.SetCurrentCell(placeIn(step).col, placeIn(step).row);
    } else {
      const QKeyCombination key = QKeySequence::fromString(step)[0];
      QTest::keyClick(QApplication::focusWidget(), key.key(), key.keyboardModifiers());
    }
  }
};

}  // namespace vellora
