#include "grid_hands.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QScrollBar>
#include <QToolTip>

namespace vellora {
namespace {

using test::GridHands;

const QColor kText(250, 250, 200);
const QColor kPaper(20, 20, 30);
const QColor kFrame(0, 255, 255);
const QColor kSelected(90, 0, 90);
const QColor kLine(70, 70, 70);

class GridPainting : public testing::Test, protected GridHands {
 protected:
  GridPainting() : GridHands(3, 5) {
    grid.SetCurrentCell(2, 4);
    grid.setColours({kText, kPaper, kText, kLine, kLine, kFrame, kText, kSelected, kFrame});
    settle();
  }
  QAccessibleTableInterface* table() {
    return QAccessible::queryAccessibleInterface(&grid)->tableInterface();
  }
  QImage picture() { return grid.viewport()->grab().toImage(); }
  QColor paperAt(int col, int row) {
    return picture().pixelColor(rect(col, row).topLeft() + QPoint(2, 2));
  }
};

}  // namespace

TEST_F(GridPainting, EverySkinShowsTheColoursOfACellWithATextAsTheyAreSet) {
  grid.SetCellText(0, 0, u"6-休息"_qs);
  for (const int col : {0, 2}) grid.SetCellColors(col, 0, kBlack, kWhite);
  grid.SetCellColors(1, 0, kRed, kWhite);
  grid.Redraw();
  EXPECT_EQ(paperAt(0, 0), QColor(Qt::white));
  EXPECT_EQ(paperAt(1, 0), QColor(Qt::white));
  EXPECT_EQ(paperAt(2, 0), kPaper) << "nothing to tell a category of";
  EXPECT_EQ(paperAt(0, 1), kPaper);
  const auto textColourAt = [this](int col) {
    return grid.model()->index(0, col).data(Qt::ForegroundRole).value<QColor>();
  };
  EXPECT_EQ(textColourAt(0), QColor(Qt::black));
  EXPECT_EQ(textColourAt(1), QColor(Qt::red));
  EXPECT_EQ(textColourAt(2), kText);
}

TEST_F(GridPainting, TheCurrentCellKeepsItsColoursInsideAFrame) {
  grid.SetCellColors(1, 1, kWhite, kBlue);
  grid.SetCurrentCell(1, 1);
  EXPECT_EQ(paperAt(1, 1), QColor(Qt::blue));
  EXPECT_EQ(picture().pixelColor(rect(1, 1).topLeft()), kFrame);
  select(1, 1, 0, 2);
  EXPECT_EQ(paperAt(1, 1), QColor(Qt::blue));
  EXPECT_EQ(paperAt(0, 2), kSelected);
  EXPECT_EQ(paperAt(2, 1), kPaper);
}

TEST_F(GridPainting, AnOpenCellStandsInAFrameOfTheSkin) {
  grid.setEditable(true);
  press(Qt::Key_F2);
  const QRect box = editor()->geometry();
  const QImage image = picture();
  for (const QPoint& in : {QPoint(0, 0), QPoint(1, 1)}) {
    EXPECT_EQ(image.pixelColor(box.topLeft() + in), kFrame);
    EXPECT_EQ(image.pixelColor(box.bottomRight() - in), kFrame);
  }
  EXPECT_EQ(image.pixelColor(box.topLeft() + QPoint(20, 5)), kPaper);
}

TEST_F(GridPainting, BordersLieOnTheLinesAroundEveryCellAndBlackIsTheSkinsText) {
  for (const auto& [given, shown] : {std::pair{kBlue, QColor(Qt::blue)}, {kBlack, kText}}) {
    grid.SetRangeBorder(1, 1, 2, 2, 0, 1, given);
    grid.Redraw();
    const QImage image = picture();
    const QRect cell = rect(1, 1);
    for (const QPoint& edge :
         {cell.topLeft() - QPoint(1, -5), cell.topLeft() - QPoint(-5, 1),
          cell.bottomRight() + QPoint(1, -5), cell.bottomRight() + QPoint(-5, 1)}) {
      EXPECT_EQ(image.pixelColor(edge), shown) << edge.x() << ' ' << edge.y();
    }
    EXPECT_EQ(image.pixelColor(rect(0, 0).bottomLeft() + QPoint(5, 1)), kLine);
  }
}

TEST_F(GridPainting, NothingIsRepaintedWhileTheSwitchIsOff) {
  class Paints : public QObject {
   public:
    int count = 0;
    bool eventFilter(QObject*, QEvent* event) override {
      count += event->type() == QEvent::Paint ? 1 : 0;
      return false;
    }
  } paints;
  settle();
  grid.viewport()->installEventFilter(&paints);
  grid.SetRedrawSwitch(false);
  for (int row = 0; row < 5; ++row) grid.SetCellText(0, row, u"x"_qs);
  grid.Redraw();
  settle();
  EXPECT_EQ(paints.count, 0);
  grid.SetRedrawSwitch(true);
  settle();
  EXPECT_EQ(paints.count, 1);
  for (int row = 0; row < 5; ++row) grid.SetCellText(1, row, u"y"_qs);
  settle();
  EXPECT_EQ(paints.count, 2) << "one repaint for a batch";
}

TEST_F(GridPainting, ATextThatIsCutAndAMarkHaveAToolTip) {
  grid.SetCellText(0, 0, u"short"_qs);
  grid.SetCellText(0, 1, u"<b>一个很长很长很长很长很长的名称"_qs);
  grid.Redraw();
  const auto tipAt = [this](int row) {
    QHelpEvent help(QEvent::ToolTip, centre(0, row), grid.viewport()->mapToGlobal(centre(0, row)));
    QApplication::sendEvent(grid.viewport(), &help);
    return QToolTip::text();
  };
  EXPECT_EQ(tipAt(0), QString());
  EXPECT_TRUE(tipAt(1).contains(u"&lt;b&gt;一个很长很长很长很长很长的名称"_qs));
  grid.markRows({{0, u"没有时间块"_qs}, {2, u"未保存"_qs}});
  EXPECT_TRUE(tipAt(0).contains(u"没有时间块"_qs));
  EXPECT_TRUE(tipAt(2).contains(u"未保存"_qs));
  EXPECT_EQ(table()->cellAt(2, 0)->text(QAccessible::Description), u"未保存");
  EXPECT_EQ(table()->cellAt(1, 0)->text(QAccessible::Description), QString());
}

TEST_F(GridPainting, HeadingsPaintOverWhatScrollsAndAreReadAsHeadings) {
  grid.setHeadingStripVisible(false);
  grid.setFrozen(1, 1);
  grid.SetCellText(2, 0, u"03月05日\r星期一"_qs);
  grid.SetCellText(0, 3, u"08:00-09:30\r早读"_qs);
  grid.SetCellColors(1, 1, kWhite, kRed);
  grid.SetCellColors(0, 0, kWhite, kBlue);
  grid.SetCellText(0, 0, u"x"_qs);
  grid.SetCellText(1, 1, u"y"_qs);
  for (int col = 1; col < 3; ++col) grid.sheet().SetColumnWidth(col, 400);
  grid.Redraw();
  settle();
  EXPECT_EQ(table()->columnDescription(2), u"03月05日\n星期一");
  EXPECT_EQ(table()->rowDescription(3), u"08:00-09:30\n早读");
  EXPECT_EQ(table()->cellAt(0, 2)->text(QAccessible::Name), u"03月05日\n星期一");
  grid.horizontalScrollBar()->setValue(60);
  const QImage image = picture();
  EXPECT_EQ(image.pixelColor(rect(0, 0).right() - 2, 2), QColor(Qt::blue));
  EXPECT_EQ(image.pixelColor(rect(0, 0).right() + 4, rect(0, 0).bottom() + 4), QColor(Qt::red));
}

TEST_F(GridPainting, AMarkedColumnKeepsItsCellsColours) {
  grid.SetCellColors(1, 1, kBlack, kBlue);
  grid.markColumn(1);
  EXPECT_EQ(paperAt(1, 1), QColor(Qt::blue));
  EXPECT_EQ(picture().pixelColor(rect(1, 2).right(), rect(1, 2).center().y()), kFrame);
  grid.markColumn(-1);
  EXPECT_EQ(picture().pixelColor(rect(1, 2).right(), rect(1, 2).center().y()), kPaper);
}

}  // namespace vellora
