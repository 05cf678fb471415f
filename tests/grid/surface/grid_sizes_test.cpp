#include "grid_hands.h"

#include <QTemporaryDir>

namespace vellora {
namespace {

using test::GridHands;

class GridSizes : public testing::Test, protected GridHands {
 protected:
  GridSizes() : GridHands(4, 6) {}
};

TEST_F(GridSizes, FollowTheSheetWhereverTheyAreSet) {
  grid.SetDefaultRowHeight(38);
  grid.sheet().SetRowHeight(2, 60);
  grid.sheet().HideRow(3);
  grid.sheet().SetColumnWidth(1, 150);
  grid.Redraw();
  EXPECT_EQ(grid.rowHeight(0), 38);
  EXPECT_EQ(grid.rowHeight(2), 60);
  EXPECT_TRUE(grid.isRowHidden(3));
  EXPECT_EQ(grid.columnWidth(1), 150);
  grid.DeleteRows(0, 1);
  grid.Redraw();
  EXPECT_EQ(grid.rowHeight(1), 60);
  EXPECT_TRUE(grid.isRowHidden(2));
  EXPECT_EQ(grid.rowHeight(3), 38);
  grid.sheet().SetRowHeight(1, 80);
  grid.Redraw();
  EXPECT_EQ(grid.rowHeight(1), 80);
  Sheet plain;
  plain.SetCols(4);
  plain.SetRows(5);
  plain.SetDefaultRowHeight(38);
  grid.sheet() = plain;
  grid.Redraw();
  EXPECT_EQ(grid.rowHeight(1), 38);
  EXPECT_FALSE(grid.isRowHidden(2));
}

TEST_F(GridSizes, RowsAreNeverTooLowForTheirText) {
  grid.SetCellFont(2, kEveryRow, 30, kFontRegular, u"宋体"_qs);
  grid.SetDefaultRowHeight(10);
  grid.sheet().SetRowHeight(1, 3);
  grid.Redraw();
  QFont font(u"宋体"_qs);
  font.setPointSize(30);
  EXPECT_GE(grid.rowHeight(0), QFontMetrics(font).height());
  EXPECT_GE(grid.rowHeight(1), QFontMetrics(font).height());
}

TEST_F(GridSizes, ColumnsWithoutAWidthShareTheWindow) {
  GridSurface shared;
  shared.SetCols(8);
  shared.SetRows(3);
  shared.setSharesWidth(true);
  shared.sheet().SetColumnWidth(0, 100);
  shared.resize(1000, 300);
  shared.show();
  settle();
  const auto right = [&] { return shared.visualRect(shared.model()->index(0, 7)).right() + 2; };
  EXPECT_EQ(right(), shared.viewport()->width());
  EXPECT_EQ(shared.columnWidth(0), 100);
  EXPECT_NEAR(shared.columnWidth(1), shared.columnWidth(7), 1);
  shared.resize(1500, 300);
  settle();
  EXPECT_EQ(right(), shared.viewport()->width());
  shared.resize(200, 300);
  settle();
  EXPECT_GT(shared.columnWidth(1), 40);
}

TEST_F(GridSizes, WhatTheUserDraggedIsInASavedWorkbook) {
  const QTemporaryDir folder;
  const QString path = folder.filePath(u"t.zrt"_qs);
  const int edge = grid.horizontalHeader()->sectionViewportPosition(2) - 1;
  const int y = grid.horizontalHeader()->height() / 2;
  QWidget* strip = grid.horizontalHeader()->viewport();
  QTest::mousePress(strip, Qt::LeftButton, Qt::NoModifier, QPoint(edge, y));
  QMouseEvent move(QEvent::MouseMove, QPoint(edge + 45, y),
                   strip->mapToGlobal(QPoint(edge + 45, y)), Qt::LeftButton, Qt::LeftButton,
                   Qt::NoModifier);
  QApplication::sendEvent(strip, &move);
  QTest::mouseRelease(strip, Qt::LeftButton, Qt::NoModifier, QPoint(edge + 45, y));
  EXPECT_EQ(grid.columnWidth(1), 125);
  EXPECT_EQ(grid.sheet().ColumnWidth(1), 125);
}

TEST_F(GridSizes, ADoubleClickFitsAColumnToItsTexts) {
  grid.SetCellText(1, 0, u"一段比列宽得多的文字一段比列宽得多的文字"_qs);
  grid.Redraw();
  const int edge = grid.horizontalHeader()->sectionViewportPosition(2) - 1;
  QTest::mouseDClick(grid.horizontalHeader()->viewport(), Qt::LeftButton, Qt::NoModifier,
                     QPoint(edge, grid.horizontalHeader()->height() / 2));
  EXPECT_GT(grid.columnWidth(1), 150);
  EXPECT_EQ(grid.sheet().ColumnWidth(1), grid.columnWidth(1));
}

}  // namespace
}  // namespace vellora
