#include "grid_hands.h"

#include <QScrollBar>

namespace vellora {
namespace {

using test::GridHands;

// Column 0 and row 0 stay; everything else is wider and higher than the window.
class GridFrozen : public testing::Test, protected GridHands {
 protected:
  GridFrozen() : GridHands(20, 60) {
    grid.setHeadingStripVisible(false);
    grid.setFrozen(1, 1);
    for (int i = 0; i < 20; ++i) grid.SetCellText(i, 0, u"列"_qs + QString::number(i));
    for (int i = 1; i < 60; ++i) grid.SetCellText(0, i, u"行"_qs + QString::number(i));
    settle();
  }
  void scroll(int x, int y) {
    grid.horizontalScrollBar()->setValue(x);
    grid.verticalScrollBar()->setValue(y);
  }
};

TEST_F(GridFrozen, HeadingsStayWhileTheRestScrolls) {
  const QRect corner = rect(0, 0);
  const int columnTop = rect(3, 0).top();
  const QRect cell = rect(3, 3);
  scroll(90, 50);
  EXPECT_EQ(rect(0, 0), corner);
  EXPECT_EQ(rect(3, 0), QRect(QPoint(cell.left() - 90, columnTop), rect(3, 0).size()));
  EXPECT_EQ(rect(3, 3).topLeft(), cell.topLeft() - QPoint(90, 50));
  EXPECT_EQ(rect(0, 3).left(), 0);
}

TEST_F(GridFrozen, TheMouseFindsTheCellThatIsSeen) {
  QSignalSpy clicks(&grid, &GridSurface::CellClick);
  scroll(200, 100);
  click(0, 0);
  click(5, 0);
  click(0, 9);
  click(6, 8);
  ASSERT_EQ(clicks.count(), 4);
  EXPECT_EQ(clicks[0], (QVariantList{0, 0}));
  EXPECT_EQ(clicks[1], (QVariantList{5, 0}));
  EXPECT_EQ(clicks[2], (QVariantList{0, 9}));
  EXPECT_EQ(clicks[3], (QVariantList{6, 8}));
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

TEST_F(GridFrozen, PaintsTheHeadingsOverWhatScrolls) {
  grid.SetCellColors(1, 1, kWhite, kRed);
  grid.SetCellColors(0, 0, kWhite, kBlue);
  settle();
  scroll(60, 20);
  const QImage image = grid.viewport()->grab().toImage();
  EXPECT_EQ(image.pixelColor(2, 2), QColor(Qt::blue));
  EXPECT_EQ(image.pixelColor(rect(0, 0).right() - 2, 2), QColor(Qt::blue));
  EXPECT_EQ(image.pixelColor(rect(0, 0).right() + 4, rect(0, 0).bottom() + 4), QColor(Qt::red));
}

}  // namespace
}  // namespace vellora
