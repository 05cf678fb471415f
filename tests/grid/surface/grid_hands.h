#pragma once

#include "grid/surface/cell_range.h"
#include "grid/surface/grid_surface.h"
#include "support/text_output.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace vellora {

inline void PrintTo(const CellPlace& cell, std::ostream* out) {
  *out << "column " << cell.col << " row " << cell.row;
}

}  // namespace vellora

namespace vellora::test {

// A shown grid and a user's hands on it.
class GridHands {
 public:
  GridHands(int cols, int rows) {
    grid.SetCols(cols);
    grid.SetRows(rows);
    for (int col = 0; col < cols; ++col) grid.sheet().SetColumnWidth(col, 80);
    grid.resize(640, 400);
    grid.show();
    grid.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&grid));
    grid.setFocus();
    grid.SetCurrentCell(0, 0);
  }

  void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
  }
  void type(const char* text) {
    for (; *text != 0; ++text) QTest::keyClick(QApplication::focusWidget(), *text);
  }
  void click(int col, int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, modifiers, centre(col, row));
  }
  void doubleClick(int col, int row) {
    click(col, row);
    QTest::mouseDClick(grid.viewport(), Qt::LeftButton, Qt::NoModifier, centre(col, row));
  }
  void drag(QPoint from, QPoint to) {
    QTest::mousePress(grid.viewport(), Qt::LeftButton, Qt::NoModifier, from);
    QMouseEvent move(QEvent::MouseMove, to, grid.viewport()->mapToGlobal(to), Qt::LeftButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(grid.viewport(), &move);
    QTest::mouseRelease(grid.viewport(), Qt::LeftButton, Qt::NoModifier, to);
  }

  void select(int col1, int row1, int col2, int row2) {
    grid.SetCurrentCell(col1, row1);
    click(col2, row2, Qt::ShiftModifier);
  }

  QPoint centre(int col, int row) const { return rect(col, row).center(); }
  QRect rect(int col, int row) const { return grid.visualRect(grid.model()->index(row, col)); }
  CellPlace current() const { return {grid.currentIndex().column(), grid.currentIndex().row()}; }
  QString text(int col, int row) const { return grid.GetCellText(col, row); }
  // Null while no cell is being typed into.
  QWidget* editor() const { return grid.indexWidget(grid.currentIndex()); }
  // Everything that waits for control to return to the event loop.
  void settle() {
    for (int turn = 0; turn < 3; ++turn) QCoreApplication::processEvents();
  }

  GridSurface grid;
};

inline void putOnClipboard(const QString& text) {
  QGuiApplication::clipboard()->setText(text);
}

inline QString clipboardText() {
  return QGuiApplication::clipboard()->text();
}

}  // namespace vellora::test
