#include "grid_hands.h"

namespace vellora {
namespace {

using test::GridHands;

class GridCurrent : public testing::Test, protected GridHands {
 protected:
  GridCurrent() : GridHands(3, 5) {
    QObject::connect(&grid, &GridSurface::CellEntered, &grid,
                     [this](int left, int row) { moves.emplace_back(left, row); });
  }
  using Moves = std::vector<std::pair<int, int>>;
  Moves moves;
};

TEST_F(GridCurrent, EntersARowOnceByKeysMouseAndProgram) {
  press(Qt::Key_Down);
  press(Qt::Key_Right);
  click(2, 3);
  grid.SetCurrentCell(0, 0);
  EXPECT_EQ(moves, (Moves{{0, 1}, {1, 3}, {3, 0}}));
}

TEST_F(GridCurrent, IsNoneOutsideTheSheet) {
  for (const CellPlace& place : {CellPlace{0, 5}, {3, 0}, {-1, 0}, {0, -1}, {0, 1'000'000'000}}) {
    grid.SetCurrentCell(0, 0);
    grid.SetCurrentCell(place.col, place.row);
    EXPECT_EQ(current(), (CellPlace{-1, -1})) << place.col << ' ' << place.row;
  }
  EXPECT_EQ(moves.size(), 9U);
}

TEST_F(GridCurrent, AFirstAndOnlyRowIsEnteredAgainAfterARefill) {
  grid.SetRows(0);
  grid.SetRows(1);
  grid.SetCurrentCell(0, 1);
  grid.SetCurrentCell(0, 0);
  EXPECT_EQ(moves, (Moves{{0, -1}, {-1, 0}}));
}

TEST_F(GridCurrent, MovesWithItsRowWhenRowsComeAndGoAboveIt) {
  grid.SetCurrentCell(1, 3);
  moves.clear();
  grid.InsertRows(1, 2);
  EXPECT_EQ(current(), (CellPlace{1, 5}));
  grid.DeleteRows(0, 1);
  EXPECT_EQ(current(), (CellPlace{1, 4}));
  EXPECT_TRUE(moves.empty());
}

TEST_F(GridCurrent, StaysAtTheSameIndexWhenItsRowIsDeleted) {
  grid.SetCurrentCell(1, 3);
  moves.clear();
  grid.DeleteRows(3, 1);
  EXPECT_EQ(current(), (CellPlace{1, 3}));
  EXPECT_TRUE(moves.empty());
  grid.DeleteRows(3, 1);
  EXPECT_EQ(current(), (CellPlace{1, 2}));
  EXPECT_EQ(moves, (Moves{{3, 2}}));
}

TEST_F(GridCurrent, AHandlerMayDeleteTheRowThatWasLeft) {
  QObject::connect(&grid, &GridSurface::CellEntered, &grid, [this](int left, int) {
    if (left >= 0 && text(0, left).isEmpty()) grid.DeleteRows(left, 1);
  });
  for (const int row : {0, 1, 3, 4}) grid.SetCellText(0, row, QString::number(row));
  grid.SetCurrentCell(0, 2);
  grid.HideRow(0, 2);
  grid.SetCurrentCell(0, 3);
  EXPECT_EQ(grid.Rows(), 4);
  EXPECT_EQ(current(), (CellPlace{0, 2}));
  EXPECT_EQ(text(0, grid.CurrentRow()), u"3");
}

TEST_F(GridCurrent, GoesWhenRulesShortenTheSheetBehindTheGridsBack) {
  grid.SetCurrentCell(0, 4);
  moves.clear();
  grid.sheet().SetRows(2);
  EXPECT_EQ(grid.CurrentRow(), -1);
  EXPECT_EQ(grid.model()->index(4, 0).data().toString(), QString());
  grid.Redraw();
  EXPECT_EQ(grid.model()->rowCount(), 2);
  EXPECT_EQ(moves, (Moves{{4, -1}}));
}

TEST_F(GridCurrent, RowsOfRulesAreShownAtTheNextPainting) {
  grid.sheet().SetRows(9);
  grid.viewport()->update();
  settle();
  EXPECT_EQ(grid.model()->rowCount(), 9);
}

TEST_F(GridCurrent, StaysWhileShiftSelects) {
  press(Qt::Key_Down, Qt::ShiftModifier);
  press(Qt::Key_Right, Qt::ShiftModifier);
  press(Qt::Key_Right, Qt::ShiftModifier);
  press(Qt::Key_Left, Qt::ShiftModifier);
  EXPECT_TRUE(moves.empty());
  EXPECT_EQ(grid.selectionModel()->selectedIndexes().size(), 4);
  click(2, 2, Qt::ShiftModifier);
  EXPECT_EQ(grid.selectionModel()->selectedIndexes().size(), 9);
  press(Qt::Key_Down);
  EXPECT_EQ(grid.selectionModel()->selectedIndexes().size(), 1);
}

TEST_F(GridCurrent, InsertsRowsBelowItself) {
  grid.SetCellText(0, 2, u"after"_qs);
  grid.SetCurrentCell(0, 1);
  grid.InsertRows(grid.CurrentRow() + 1, 3);
  EXPECT_EQ(grid.Rows(), 8);
  EXPECT_EQ(text(0, 5), u"after");
  EXPECT_EQ(grid.CurrentRow(), 1);
}

}  // namespace
}  // namespace vellora
