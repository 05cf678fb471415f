#include "grid_hands.h"

namespace vellora {
namespace {

using test::GridHands;

class GridUndo : public testing::Test, protected GridHands {
 protected:
  GridUndo() : GridHands(3, 5) {
    grid.setEditable(true);
    for (int row = 0; row < 5; ++row) grid.SetCellText(0, row, QString::number(row));
    grid.clearUndo();
  }
  void undo() { press(Qt::Key_Z, Qt::ControlModifier); }
  void redo() { press(Qt::Key_Y, Qt::ControlModifier); }
  void enter(const char* typed) {
    type(typed);
    press(Qt::Key_Return);
  }
};

TEST_F(GridUndo, TakesBackTypingPastingAndEmptyingInTurn) {
  enter("a");
  test::putOnClipboard(u"b\tc"_qs);
  press(Qt::Key_V, Qt::ControlModifier);
  grid.SetCurrentCell(0, 0);
  press(Qt::Key_Delete);
  EXPECT_EQ(text(0, 0) + text(0, 1) + text(1, 1), u"bc");
  undo();
  EXPECT_EQ(text(0, 0), u"a");
  undo();
  EXPECT_EQ(text(0, 1) + text(1, 1), u"1");
  undo();
  EXPECT_EQ(text(0, 0), u"0");
  undo();
  EXPECT_EQ(text(0, 0), u"0");
  for (int i = 0; i < 4; ++i) redo();
  EXPECT_EQ(text(0, 0) + text(0, 1) + text(1, 1), u"bc");
}

TEST_F(GridUndo, GoesToTheCellThatItChanges) {
  grid.SetCurrentCell(2, 3);
  enter("x");
  grid.SetCurrentCell(0, 0);
  undo();
  EXPECT_EQ(current(), (CellPlace{2, 3}));
}

TEST_F(GridUndo, ForgetsWhatCanBeDoneAgainWhenSomethingElseIsTyped) {
  enter("a");
  undo();
  grid.SetCurrentCell(0, 0);
  enter("b");
  redo();
  EXPECT_EQ(text(0, 0), u"b");
  undo();
  EXPECT_EQ(text(0, 0), u"0");
}

TEST_F(GridUndo, TakesBackAWholeStepOfTheProgramWithItsRows) {
  {
    const UndoStep step(grid, u"追加"_qs);
    grid.InsertRows(1, 2);
    grid.SetCellText(0, 1, u"new"_qs);
  }
  EXPECT_EQ(grid.Rows(), 7);
  undo();
  EXPECT_EQ(grid.Rows(), 5);
  EXPECT_EQ(text(0, 1), u"1");
  redo();
  EXPECT_EQ(grid.Rows(), 7);
  EXPECT_EQ(text(0, 1) + text(0, 3), u"new1");
}

TEST_F(GridUndo, NeverReachesBehindAChangeOfTheProgram) {
  enter("typed");
  grid.DeleteRows(0, 1);
  undo();
  EXPECT_EQ(grid.Rows(), 4);
  EXPECT_EQ(text(0, 0), u"1");
  enter("x");
  undo();
  undo();
  EXPECT_EQ(grid.Rows(), 4);
}

TEST_F(GridUndo, CoversWhatHandlersDoInAnswerToTheUser) {
  QObject::connect(&grid, &GridSurface::CellEntered, &grid, [this](int, int row) {
    if (row == grid.Rows() - 1) grid.SetRows(grid.Rows() + 1);
  });
  grid.SetCurrentCell(0, 3);
  enter("x");
  EXPECT_EQ(grid.Rows(), 6);
  undo();
  EXPECT_EQ(text(0, 3), u"3");
}

TEST_F(GridUndo, LeavesColumnWidthsAsTheyWereLastDragged) {
  enter("x");
  grid.horizontalHeader()->resizeSection(1, 133);
  undo();
  settle();
  EXPECT_EQ(text(0, 0), u"0");
  EXPECT_EQ(grid.columnWidth(1), 133);
}

TEST_F(GridUndo, DuplicatingARowIsOneStep) {
  QObject::connect(&grid, &GridSurface::RowDuplicate, &grid, [this](int row) {
    grid.InsertRows(row + 1, 1);
    grid.SetCellText(0, row + 1, text(0, row));
  });
  grid.sheet().SetCellTag(0, 2, u"key"_qs);
  grid.SetCellColors(0, 2, kRed, kWhite);
  grid.SetCurrentCell(1, 2);
  press(Qt::Key_D, Qt::ControlModifier);
  EXPECT_EQ(grid.Rows(), 6);
  EXPECT_EQ(text(0, 3), u"2");
  undo();
  EXPECT_EQ(grid.Rows(), 5);
}

}  // namespace
}  // namespace vellora
