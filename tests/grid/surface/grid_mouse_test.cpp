#include "grid_hands.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QTimer>

namespace vellora {
namespace {

using test::GridHands;

class GridMouse : public testing::Test, protected GridHands {
 protected:
  GridMouse() : GridHands(4, 6), clicks(&grid, &GridSurface::CellClick) {}
  QSignalSpy clicks;
};

TEST_F(GridMouse, AClickTellsColumnAndRow) {
  click(2, 3);
  ASSERT_EQ(clicks.count(), 1);
  EXPECT_EQ(clicks[0], (QVariantList{2, 3}));
  EXPECT_EQ(current(), (CellPlace{2, 3}));
}

TEST_F(GridMouse, OnlyALeftClickOnOneCellCounts) {
  drag(centre(0, 0), centre(1, 2));
  QTest::mouseClick(grid.viewport(), Qt::RightButton, Qt::NoModifier, centre(1, 1));
  QTest::mouseClick(grid.viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(600, 380));
  click(1, 1, Qt::ShiftModifier);
  EXPECT_EQ(clicks.count(), 0);
}

TEST_F(GridMouse, ADoubleClickIsOneClick) {
  doubleClick(1, 1);
  EXPECT_EQ(clicks.count(), 1);
}

TEST_F(GridMouse, ADoubleClickThatBeganInAnotherWindowDoesNothing) {
  grid.setEditable(true);
  const auto secondHalf = [this](int col, int row) {
    QTest::mouseDClick(grid.viewport(), Qt::LeftButton, Qt::NoModifier, centre(col, row));
    QTest::mouseRelease(grid.viewport(), Qt::LeftButton, Qt::NoModifier, centre(col, row));
  };
  secondHalf(1, 1);
  click(1, 1);
  QFocusEvent leave(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
  QApplication::sendEvent(&grid, &leave);
  secondHalf(1, 1);
  secondHalf(2, 2);
  EXPECT_EQ(editor(), nullptr);
  EXPECT_EQ(current(), (CellPlace{1, 1}));
  EXPECT_EQ(clicks.count(), 1);
  click(2, 2);
  secondHalf(3, 3);
  EXPECT_EQ(clicks.count(), 3) << "two quick clicks on neighbours";
  QObject::connect(&grid, &GridSurface::CellEditStart, &grid, [this] { grid.DeleteRows(3, 3); });
  doubleClick(3, 4);
  EXPECT_EQ(editor(), nullptr) << "the row is gone before it opens";
}

TEST_F(GridMouse, DraggingSelectsFromWhereItBegan) {
  drag(centre(2, 3), centre(1, 1));
  EXPECT_EQ(grid.selectionModel()->selectedIndexes().size(), 6);
  EXPECT_EQ(current(), (CellPlace{2, 3}));
}

TEST_F(GridMouse, ARightClickKeepsASelectionThatItHits) {
  select(0, 0, 1, 1);
  QTest::mouseClick(grid.viewport(), Qt::RightButton, Qt::NoModifier, centre(1, 1));
  EXPECT_EQ(grid.selectionModel()->selectedIndexes().size(), 4);
  QTest::mouseClick(grid.viewport(), Qt::RightButton, Qt::NoModifier, centre(3, 3));
  EXPECT_EQ(current(), (CellPlace{3, 3}));
}

TEST_F(GridMouse, EnterAndSpaceActivateWhereNothingCanBeTyped) {
  QSignalSpy activated(&grid, &GridSurface::CellActivated);
  grid.SetCurrentCell(1, 2);
  press(Qt::Key_Return);
  press(Qt::Key_Space);
  EXPECT_EQ(activated.count(), 2);
  EXPECT_EQ(activated[1], (QVariantList{1, 2}));
  grid.setEditable(true);
  press(Qt::Key_Return);
  EXPECT_EQ(activated.count(), 2);
}

TEST_F(GridMouse, TheContextMenuOffersWhatCanBeDone) {
  grid.setEditable(true);
  grid.SetCellText(0, 0, u"x"_qs);
  QContextMenuEvent asked(QContextMenuEvent::Mouse, centre(0, 0),
                          grid.viewport()->mapToGlobal(centre(0, 0)));
  QApplication::sendEvent(grid.viewport(), &asked);
  const auto* menu = grid.findChild<QMenu*>();
  ASSERT_NE(menu, nullptr);
  QStringList offered;
  for (QAction* action : menu->actions()) {
    if (action->isEnabled() && !action->isSeparator()) offered << action->text();
    if (action->text() == u"清除") action->trigger();
  }
  EXPECT_TRUE(offered.contains(u"复制"_qs));
  EXPECT_FALSE(offered.contains(u"撤消"_qs));
  EXPECT_FALSE(offered.contains(u"重复本行"_qs)) << "nobody listens";
  EXPECT_EQ(text(0, 0), QString());
}

TEST_F(GridMouse, TheContextMenuPrintsUnderTheNameOfThatMoment) {
  QString name = u"昨天"_qs;
  grid.setDocumentName([&] { return name; });
  name = u"今天"_qs;
  QString title;
  QTimer::singleShot(0, [&] {
    title = QApplication::activeModalWidget()->windowTitle();
    QApplication::activeModalWidget()->close();
  });
  QContextMenuEvent asked(QContextMenuEvent::Keyboard, QPoint(), QPoint());
  QApplication::sendEvent(grid.viewport(), &asked);
  grid.findChild<QMenu*>()->actions().constLast()->trigger();
  EXPECT_TRUE(title.contains(u"今天"_qs)) << title.toStdString();
}

}  // namespace
}  // namespace vellora
