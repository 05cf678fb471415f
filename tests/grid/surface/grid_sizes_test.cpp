#include "grid_hands.h"

#include <QScrollBar>

namespace vellora {
namespace {

using test::GridHands;

class GridSizes : public testing::Test, protected GridHands {
 protected:
  GridSizes() : GridHands(4, 6) {}
};

// Column 0 and row 0 stay; everything else is wider and higher than the window.
class GridFrozen : public testing::Test, protected GridHands {
 protected:
  GridFrozen() : GridHands(20, 60) {
    grid.setHeadingStripVisible(false);
    grid.setFrozen(1, 1);
    settle();
  }
  void scroll(int x, int y) {
    grid.horizontalScrollBar()->setValue(x);
    grid.verticalScrollBar()->setValue(y);
  }
};

}  // namespace

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

TEST_F(GridSizes, AreDraggedAndFittedOnTheHeadingStrip) {
  QWidget* strip = grid.horizontalHeader()->viewport();
  const QPoint edge(grid.horizontalHeader()->sectionViewportPosition(2) - 1, strip->height() / 2);
  const QPoint to = edge + QPoint(45, 0);
  QTest::mousePress(strip, Qt::LeftButton, Qt::NoModifier, edge);
  QMouseEvent move(QEvent::MouseMove, to, strip->mapToGlobal(to), Qt::LeftButton, Qt::LeftButton,
                   Qt::NoModifier);
  QApplication::sendEvent(strip, &move);
  QTest::mouseRelease(strip, Qt::LeftButton, Qt::NoModifier, to);
  EXPECT_EQ(grid.sheet().ColumnWidth(1), 125);
  grid.SetCellText(1, 0, u"一段比列宽得多的文字一段比列宽得多的文字"_qs);
  grid.Redraw();
  QTest::mouseDClick(strip, Qt::LeftButton, Qt::NoModifier, to);
  EXPECT_GT(grid.columnWidth(1), 150);
  EXPECT_EQ(grid.sheet().ColumnWidth(1), grid.columnWidth(1));
}

TEST_F(GridFrozen, HeadingsStayWhileTheRestScrolls) {
  const QRect corner = rect(0, 0);
  const int columnTop = rect(3, 0).top();
  const QRect cell = rect(3, 3);
  scroll(90, 50);
  EXPECT_EQ(rect(0, 0), corner);
  EXPECT_EQ(rect(3, 0), QRect(QPoint(cell.left() - 90, columnTop), rect(3, 0).size()));
  EXPECT_EQ(rect(3, 3).topLeft(), cell.topLeft() - QPoint(90, 50));
  EXPECT_EQ(rect(0, 3).left(), 0);
  QSignalSpy clicks(&grid, &GridSurface::CellClick);
  for (const CellPlace& place : {CellPlace{0, 0}, {5, 0}, {0, 9}, {6, 8}}) {
    click(place.col, place.row);
    EXPECT_EQ(clicks.takeLast(), (QVariantList{place.col, place.row}));
  }
}

TEST_F(GridFrozen, KeysBringACellOutFromUnderTheHeadings) {
  grid.SetCurrentCell(10, 40);
  scroll(2000, 2000);
  for (int i = 0; i < 9; ++i) press(Qt::Key_Left);
  for (int i = 0; i < 39; ++i) press(Qt::Key_Up);
  EXPECT_EQ(current(), (CellPlace{1, 1}));
  EXPECT_GT(rect(1, 1).left(), rect(0, 1).right());
  EXPECT_GT(rect(1, 1).top(), rect(1, 0).bottom());
}

TEST_F(GridFrozen, KeysReachTheHeadingsWithoutScrolling) {
  grid.SetCurrentCell(10, 40);
  const int y = grid.verticalScrollBar()->value();
  press(Qt::Key_Home);
  EXPECT_EQ(current(), (CellPlace{0, 40}));
  EXPECT_EQ(grid.verticalScrollBar()->value(), y);
  press(Qt::Key_Home, Qt::ControlModifier);
  EXPECT_EQ(current(), (CellPlace{0, 0}));
}

TEST_F(GridFrozen, SelectsTheRectangleEvenWherePartOfItIsCovered) {
  grid.SetCurrentCell(2, 2);
  scroll(200, 100);
  for (int i = 0; i < 3; ++i) press(Qt::Key_Right, Qt::ShiftModifier);
  press(Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(grid.selectionModel()->selectedIndexes().size(), 8);
}

TEST_F(GridFrozen, DraggingAnEdgeInTheHeadingsStoresTheWidth) {
  const QPoint edge(rect(2, 0).right(), rect(2, 0).center().y());
  drag(edge, edge + QPoint(37, 0));
  EXPECT_EQ(grid.sheet().ColumnWidth(2), 117);
  const QPoint inBody(rect(2, 5).right(), rect(2, 5).center().y());
  drag(inBody, inBody + QPoint(37, 0));
  EXPECT_EQ(grid.sheet().ColumnWidth(2), 117);
}

}  // namespace vellora
