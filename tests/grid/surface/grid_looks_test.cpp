#include "grid_hands.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QToolTip>

namespace vellora {
namespace {

constexpr QColor kText(250, 250, 200);
constexpr QColor kPaper(20, 20, 30);
constexpr QColor kFrame(0, 255, 255);
constexpr QColor kSelected(90, 0, 90);
constexpr QColor kLine(70, 70, 70);

class GridLooks : public GridSteps {
 protected:
  GridLooks() {
    grid.setColours({kText, kPaper, kText, kLine, kLine, kFrame, kText, kSelected, kFrame});
    play("2,4");
  }
  void expectColours(std::initializer_list<std::pair<QPoint, QColor>> colours) {
    grid.Redraw();
    const QImage image = grid.viewport()->grab().toImage();
    for (const auto& [point, colour] : colours) {
      EXPECT_EQ(image.pixelColor(point).name(), colour.name()) << point.x() << ' ' << point.y();
    }
  }
  QPoint paperOf(int col, int row) const { return rect(col, row).topLeft() + QPoint(2, 2); }
  QString sizesIn(const QHeaderView& header) {
    grid.Redraw();
    settle();
    QStringList sizes;
    for (int i = 0; i < header.count(); ++i) sizes << QString::number(header.sectionSize(i));
    return sizes.join(u' ');
  }
};

}  // namespace

TEST_F(GridLooks, CellsShowTheirColoursTheSelectionAndBorders) {
  grid.sheet().SetCellColors(0, 0, kBlack, kWhite);
  grid.sheet().SetCellColors(1, 1, kRed, kBlue);
  grid.SetCellText(1, 1, u"y"_qs);
  expectColours({{paperOf(0, 0), Qt::white}, {paperOf(1, 0), kPaper}, {paperOf(1, 1), Qt::blue}});
  play("1,1 shift:0,0");
  expectColours(
      {{paperOf(0, 0), kSelected}, {paperOf(1, 0), kSelected}, {paperOf(1, 1), Qt::blue}});
  play("1,0 F2");
  expectColours(
      {{rect(1, 0).topLeft(), kFrame}, {editor()->geometry().topLeft() + QPoint(1, 1), kFrame}});
  play("Escape 2,4");
  const QPoint start = rect(1, 1).topLeft();
  const QPoint end = rect(1, 1).bottomRight();
  for (const auto& [given, seen] : {std::pair{kBlue, QColor(Qt::blue)}, {kBlack, kText}}) {
    grid.SetRangeBorder(1, 1, 2, 2, 0, 1, given);
    expectColours({{start - QPoint(1, -5), seen},
                   {start - QPoint(-5, 1), seen},
                   {end + QPoint(1, -5), seen},
                   {end + QPoint(-5, 1), seen},
                   {rect(0, 0).bottomLeft() + QPoint(5, 1), kLine}});
  }
  grid.markColumn(1);
  expectColours({{QPoint(end.x(), rect(1, 4).center().y()), kFrame}});
}

TEST_F(GridLooks, WhatDoesNotFitAndMarksHaveAToolTip) {
  const QString name = u"一个很长很长的名称"_qs;
  const std::tuple<int, bool, QString, bool> cases[]{{22, true, u"short"_qs, false},
                                                     {22, true, name, true},
                                                     {60, true, name, false},
                                                     {60, false, name, true},
                                                     {60, false, u"a\rb\rc"_qs, false},
                                                     {40, false, u"a\rb\rc"_qs, true},
                                                     {60, true, name.repeated(99'999), true}};
  const QPoint centre = rect(0, 0).center();
  QHelpEvent help(QEvent::ToolTip, centre, grid.viewport()->mapToGlobal(centre));
  int number = 0;
  for (const auto& [height, wraps, text, isCut] : cases) {
    grid.sheet().SetRowHeight(0, height);
    grid.sheet().SetCellWrap(0, 0, wraps);
    grid.SetCellText(0, 0, u"%1<"_qs.arg(++number) + text);
    grid.Redraw();
    QApplication::sendEvent(grid.viewport(), &help);
    EXPECT_EQ(QToolTip::text().contains(u"%1&lt;"_qs.arg(number)), isCut) << number;
  }
  grid.markRows({{0, u"未保存"_qs}});
  QApplication::sendEvent(grid.viewport(), &help);
  EXPECT_TRUE(QToolTip::text().contains(u"未保存"_qs));
  auto* table = QAccessible::queryAccessibleInterface(&grid)->tableInterface();
  EXPECT_EQ(table->cellAt(0, 0)->text(QAccessible::Description), u"未保存");
}

TEST_F(GridLooks, SizesFollowTheSheetAndColumnsShareTheWindow) {
  const QHeaderView& heights = *grid.verticalHeader();
  grid.SetDefaultRowHeight(38);
  grid.sheet().SetRowHeight(2, 60);
  grid.sheet().HideRow(3);
  EXPECT_EQ(sizesIn(heights), u"38 38 60 0 38");
  grid.DeleteRows(0, 1);
  EXPECT_EQ(sizesIn(heights), u"38 60 0 38");
  grid.SetDefaultFont(60, kFontRegular, u"宋体"_qs);
  EXPECT_FALSE(sizesIn(heights).contains(u"38")) << "never too low for its text";
  const QHeaderView& widths = *grid.horizontalHeader();
  grid.sheet().SetColumnWidth(0, 100);
  grid.setSharesWidth(true);
  const int room = grid.viewport()->width() - 100;
  EXPECT_EQ(sizesIn(widths), u"100 %1 %2"_qs.arg((room + 1) / 2).arg(room / 2));
  grid.resize(150, 300);
  EXPECT_EQ(sizesIn(widths), u"100 56 56") << "never too narrow to be read";
  QWidget* strip = widths.viewport();
  const QPoint edge(99, strip->height() / 2);
  drag(strip, edge, edge + QPoint(25, 0));
  EXPECT_EQ(grid.sheet().ColumnWidth(0), 125);
  grid.SetCellText(0, 0, u"一段比列宽得多的文字一段比列宽得多的文字"_qs);
  grid.Redraw();
  QTest::mouseDClick(strip, Qt::LeftButton, {}, edge + QPoint(25, 0));
  EXPECT_GT(grid.sheet().ColumnWidth(0), 150);
}

}  // namespace vellora
