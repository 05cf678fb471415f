#include "grid/surface/key_moves.h"

#include "grid_hands.h"

namespace vellora {
namespace {

// Five columns, ten rows; row 3 is hidden; column 0 is filled in rows 1, 2, 5 and 6.
Sheet sampleSheet() {
  Sheet sheet;
  sheet.SetCols(5);
  sheet.SetRows(10);
  sheet.HideRow(3);
  for (const int row : {1, 2, 5, 6}) sheet.SetCellText(0, row, u"x"_qs);
  return sheet;
}

TEST(KeyMoves, LeadWhereASpreadsheetUserExpects) {
  struct Case {
    CellPlace from;
    int key;
    Qt::KeyboardModifiers modifiers;
    CellPlace to;
  };
  const Qt::KeyboardModifiers none;
  const Qt::KeyboardModifiers ctrl = Qt::ControlModifier;
  const Qt::KeyboardModifiers shift = Qt::ShiftModifier;
  const std::vector<Case> cases{
      {{0, 2}, Qt::Key_Down, none, {0, 4}},     {{0, 4}, Qt::Key_Up, none, {0, 2}},
      {{0, 0}, Qt::Key_Up, none, {0, 0}},       {{0, 9}, Qt::Key_Down, none, {0, 9}},
      {{4, 1}, Qt::Key_Right, none, {4, 1}},    {{2, 1}, Qt::Key_Left, none, {1, 1}},
      {{0, 0}, Qt::Key_Down, ctrl, {0, 1}},     {{0, 1}, Qt::Key_Down, ctrl, {0, 2}},
      {{0, 2}, Qt::Key_Down, ctrl, {0, 5}},     {{0, 6}, Qt::Key_Down, ctrl, {0, 9}},
      {{0, 9}, Qt::Key_Up, ctrl, {0, 6}},       {{0, 1}, Qt::Key_Right, ctrl, {4, 1}},
      {{3, 4}, Qt::Key_Home, none, {0, 4}},     {{3, 4}, Qt::Key_End, none, {4, 4}},
      {{3, 4}, Qt::Key_Home, ctrl, {0, 0}},     {{3, 4}, Qt::Key_End, ctrl, {4, 9}},
      {{1, 1}, Qt::Key_PageDown, none, {1, 5}}, {{1, 9}, Qt::Key_PageUp, none, {1, 6}},
      {{4, 2}, Qt::Key_Tab, none, {0, 4}},      {{0, 4}, Qt::Key_Backtab, shift, {4, 2}},
      {{1, 1}, Qt::Key_Return, none, {1, 2}},   {{1, 1}, Qt::Key_Enter, shift, {1, 0}},
  };
  const Sheet sheet = sampleSheet();
  for (const Case& c : cases) {
    EXPECT_EQ(targetOf(c.key, c.modifiers, c.from, sheet, 3), c.to)
        << QKeySequence(c.key).toString().toStdString() << " from row " << c.from.row;
  }
}

TEST(KeyMoves, TabLeavesTheSheetAtItsEnds) {
  const Sheet sheet = sampleSheet();
  EXPECT_EQ(targetOf(Qt::Key_Tab, {}, {4, 9}, sheet, 3), std::nullopt);
  EXPECT_EQ(targetOf(Qt::Key_Backtab, {}, {0, 0}, sheet, 3), std::nullopt);
}

TEST(KeyMoves, LeadNowhereInAnEmptySheet) {
  for (const int key : {Qt::Key_Down, Qt::Key_End, Qt::Key_PageDown, Qt::Key_Tab}) {
    EXPECT_EQ(targetOf(key, Qt::ControlModifier, {0, 0}, Sheet(), 3), std::nullopt) << key;
  }
}

}  // namespace
}  // namespace vellora
