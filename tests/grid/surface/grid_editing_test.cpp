#include "grid_hands.h"

#include <QInputMethodEvent>
#include <QLineEdit>
#include <QShortcut>

namespace vellora {
namespace {

using test::GridHands;

class GridEditing : public testing::Test, protected GridHands {
 protected:
  GridEditing() : GridHands(3, 5) {
    grid.setEditable(true);
    grid.SetCellText(0, 0, u"旧"_qs);
  }
};

TEST_F(GridEditing, TypingReplacesTheTextAndEnterGoesDown) {
  type("new");
  press(Qt::Key_Return);
  EXPECT_EQ(text(0, 0), u"new");
  EXPECT_EQ(current(), (CellPlace{0, 1}));
}

TEST_F(GridEditing, KeysThatLeaveACellKeepItsTextAndMove) {
  struct Case {
    int key;
    Qt::KeyboardModifiers modifiers;
    CellPlace to;
  };
  const std::vector<Case> cases{{Qt::Key_Return, Qt::NoModifier, {1, 3}},
                                {Qt::Key_Return, Qt::ShiftModifier, {1, 1}},
                                {Qt::Key_Enter, Qt::KeypadModifier, {1, 3}},
                                {Qt::Key_Tab, Qt::NoModifier, {2, 2}},
                                {Qt::Key_Backtab, Qt::ShiftModifier, {0, 2}}};
  for (const Case& c : cases) {
    grid.SetCellText(1, 2, QString());
    grid.SetCurrentCell(1, 2);
    type("x");
    press(c.key, c.modifiers);
    EXPECT_EQ(text(1, 2), u"x") << c.key;
    EXPECT_EQ(current(), c.to) << c.key;
  }
}

TEST_F(GridEditing, F2AddsToTheTextAndEscapeKeepsTheOldOne) {
  press(Qt::Key_F2);
  type("!");
  press(Qt::Key_Return);
  EXPECT_EQ(text(0, 0), u"旧!");
  press(Qt::Key_Up);
  type("lost");
  press(Qt::Key_Escape);
  EXPECT_EQ(text(0, 0), u"旧!");
  EXPECT_EQ(editor(), nullptr);
}

TEST_F(GridEditing, EscapeTakesBackAllOfAnEntryWhateverWasPressedMeanwhile) {
  grid.sheet().SetCellTag(0, 0, u"key"_qs);
  for (const int key : {Qt::Key_Shift, Qt::Key_CapsLock, Qt::Key_F3, Qt::Key_F8}) {
    // The program changes another cell in answer to the last.
    const auto answer = QObject::connect(&grid, &GridSurface::GridKeyDown, &grid, [&] {
      if (key == Qt::Key_F8) grid.SetCellText(2, 2, u"new"_qs);
    });
    type("a");
    press(key);
    type("b");
    press(key);
    press(Qt::Key_Escape);
    QObject::disconnect(answer);
    EXPECT_EQ(text(0, 0) + grid.CellTag(0, 0), u"旧key") << key;
    EXPECT_EQ(editor(), nullptr);
  }
}

TEST_F(GridEditing, OneEntryIsOneStepOfUndo) {
  type("a");
  press(Qt::Key_F3);
  type("b");
  press(Qt::Key_J, Qt::ControlModifier);
  press(Qt::Key_Return);
  EXPECT_EQ(text(0, 0), u"ab");
  press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(text(0, 0), u"旧");
}

TEST_F(GridEditing, EscapeInAnOpenCellNeverReachesTheWindow) {
  QStringList seen;
  QObject::connect(&grid, &GridSurface::GridKeyDown, &grid, [&](QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) seen << u"window"_qs;
  });
  QShortcut close(Qt::Key_Escape, &grid);
  QObject::connect(&close, &QShortcut::activated, &grid, [&] { seen << u"shortcut"_qs; });
  type("x");
  press(Qt::Key_Escape);
  QInputMethodEvent composing(u"zhong"_qs, {});
  QApplication::sendEvent(&grid, &composing);
  QTest::keyClick(&grid, Qt::Key_Escape);
  EXPECT_EQ(editor(), nullptr);
  EXPECT_EQ(text(0, 0), u"旧");
  EXPECT_EQ(seen, QStringList());
}

TEST_F(GridEditing, AGridInTheBackgroundTakesKeysToo) {
  QWidget other;
  other.show();
  other.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
  for (const Qt::Key key : {Qt::Key_F2, Qt::Key_B, Qt::Key_F3, Qt::Key_Return}) {
    QTest::keyClick(&grid, key);
  }
  EXPECT_EQ(text(0, 0), u"旧b");
}

TEST_F(GridEditing, AltEnterBeginsANewLineWithinTheCell) {
  type("a");
  press(Qt::Key_Return, Qt::AltModifier);
  type("b");
  press(Qt::Key_Return);
  EXPECT_EQ(text(0, 0), u"a\rb");
}

TEST_F(GridEditing, TheFirstCharacterOfAnInputMethodIsNotLost) {
  QInputMethodEvent composing(u"zhong"_qs, {});
  QApplication::sendEvent(&grid, &composing);
  ASSERT_NE(editor(), nullptr);
  QInputMethodEvent done;
  done.setCommitString(u"中"_qs);
  QApplication::sendEvent(&grid, &done);
  press(Qt::Key_Return);
  EXPECT_EQ(text(0, 0), u"中");
}

TEST_F(GridEditing, AnInputMethodThatGivesUpLeavesTheOldText) {
  QInputMethodEvent composing(u"zhong"_qs, {});
  QApplication::sendEvent(&grid, &composing);
  QInputMethodEvent cancelled;
  QApplication::sendEvent(&grid, &cancelled);
  press(Qt::Key_Return);
  EXPECT_EQ(text(0, 0), u"旧");
}

TEST_F(GridEditing, AHandlerOfCellEditStartMayGiveTheTextThatIsEdited) {
  QObject::connect(&grid, &GridSurface::CellEditStart, &grid, [this](int col, int row) {
    if (text(col, row).isEmpty()) grid.SetCellText(col, row, u"2007-03-05"_qs);
  });
  grid.SetCurrentCell(1, 1);
  press(Qt::Key_F2);
  press(Qt::Key_Return);
  EXPECT_EQ(text(1, 1), u"2007-03-05");
}

TEST_F(GridEditing, CellEditStartIsRaisedOncePerEditing) {
  QSignalSpy started(&grid, &GridSurface::CellEditStart);
  doubleClick(1, 2);
  type("xyz");
  press(Qt::Key_Return);
  ASSERT_EQ(started.count(), 1);
  EXPECT_EQ(started[0], (QVariantList{1, 2}));
}

TEST_F(GridEditing, DeleteAndBackspaceEmptyTheSelection) {
  for (const int key : {Qt::Key_Delete, Qt::Key_Backspace}) {
    grid.SetCellText(1, 1, u"b"_qs);
    grid.SetCurrentCell(0, 0);
    press(Qt::Key_Right, Qt::ShiftModifier);
    press(Qt::Key_Down, Qt::ShiftModifier);
    press(key);
    EXPECT_EQ(text(0, 0) + text(1, 1), QString()) << key;
  }
}

TEST_F(GridEditing, ChangesOfTheProgramLeaveWhatIsBeingTyped) {
  type("half");
  grid.SetCellText(1, 1, u"new"_qs);
  grid.Redraw();
  settle();
  type("way");
  press(Qt::Key_Return);
  EXPECT_EQ(text(0, 0), u"halfway");
}

TEST_F(GridEditing, TheTextIsInItsCellBeforeAKeyOfTheWindowIsHandled) {
  QStringList seen;
  QObject::connect(&grid, &GridSurface::GridKeyDown, &grid, [&](QKeyEvent* event) {
    if (event->key() == Qt::Key_F3 || event->key() == Qt::Key_J) seen << text(0, 0);
  });
  type("a");
  press(Qt::Key_F3);
  type("b");
  press(Qt::Key_J, Qt::ControlModifier);
  EXPECT_EQ(seen, (QStringList{u"a"_qs, u"ab"_qs}));
}

TEST_F(GridEditing, TheTextIsInItsCellBeforeAButtonIsPressedByItsLetter) {
  type("typed");
  QKeyEvent letter(QEvent::ShortcutOverride, Qt::Key_S, Qt::AltModifier);
  QApplication::sendEvent(editor(), &letter);
  EXPECT_EQ(text(0, 0), u"typed");
}

TEST_F(GridEditing, AClickElsewhereKeepsTheText) {
  type("typed");
  click(2, 3);
  EXPECT_EQ(text(0, 0), u"typed");
  EXPECT_EQ(current(), (CellPlace{2, 3}));
  EXPECT_EQ(editor(), nullptr);
}

TEST_F(GridEditing, TabLeavesTheGridAtItsLastCellWithCtrlAndWhereNothingCanBeTyped) {
  QWidget window;
  auto* next = new QLineEdit(&window);
  grid.setParent(&window);
  QWidget::setTabOrder(&grid, next);
  window.show();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  grid.show();
  grid.setFocus();
  grid.SetCurrentCell(1, 4);
  press(Qt::Key_Tab);
  EXPECT_EQ(current(), (CellPlace{2, 4}));
  press(Qt::Key_Tab);
  EXPECT_TRUE(next->hasFocus());
  grid.setFocus();
  grid.SetCurrentCell(0, 0);
  type("x");
  press(Qt::Key_Tab, Qt::ControlModifier);
  EXPECT_TRUE(next->hasFocus());
  EXPECT_EQ(grid.GetCellText(0, 0), u"x"_qs);
  grid.setEditable(false);
  grid.setFocus();
  grid.SetCurrentCell(0, 0);
  press(Qt::Key_Tab);
  EXPECT_TRUE(next->hasFocus());
  grid.setParent(nullptr);
}

TEST_F(GridEditing, NothingCanBeTypedWhereEditingIsOff) {
  grid.setEditable(false);
  type("x");
  press(Qt::Key_F2);
  press(Qt::Key_Delete);
  doubleClick(0, 0);
  test::putOnClipboard(u"y"_qs);
  press(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(editor(), nullptr);
  EXPECT_EQ(text(0, 0), u"旧");
}

TEST_F(GridEditing, AKeyThatAHandlerAcceptsIsNotUsedByTheGrid) {
  QObject::connect(&grid, &GridSurface::GridKeyDown, &grid, [](QKeyEvent* event) {
    if (event->key() == Qt::Key_Delete) event->accept();
  });
  press(Qt::Key_Delete);
  EXPECT_EQ(text(0, 0), u"旧");
}

}  // namespace
}  // namespace vellora
