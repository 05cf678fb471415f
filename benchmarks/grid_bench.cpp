// The grid beside the plain table view of the toolkit: a step by a week on the board, and a sheet
// of a million rows beside one of a thousand.

#include "grid/surface/grid_surface.h"
#include "support/side_by_side.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QScrollBar>
#include <QStandardItemModel>

#include <array>
#include <memory>
#include <vector>

namespace vellora::bench {
namespace {

constexpr int kCols = 8;
constexpr int kRows = 51;
constexpr QSize kBoardSize{1'400, kRows * 38 + 4};  // every row in view
constexpr std::array<PackedColour, 3> kInks{kRed, kBlue, kBlack};

// Cells repeat one of forty activities, other ones in every week.
QString planText(int week, int col, int row) {
  return u"活动项目%1\r第%2章习题"_qs.arg((week * 17 + col * 7 + row * 3) % 40)
      .arg((row + week) % 9);
}

bool isPlanned(int week, int col, int row) {
  return (week + col + row) % 3 != 0;
}

PackedColour ink(int col, int row) {
  return kInks[static_cast<std::size_t>(col + row) % kInks.size()];
}

constexpr PackedColour kPlanPaper = packColour(230, 220, 255);

class Board {
 public:
  Board() {
    grid_.setHeadingStripVisible(false);
    grid_.setFrozen(1, 1);
    grid_.setSharesWidth(true);
    grid_.SetDefaultRowHeight(38);
    grid_.SetCols(kCols);
    grid_.SetRows(kRows);
    for (int row = 0; row < kRows; ++row) {
      for (int col = 0; col < kCols; ++col) grid_.sheet().SetCellAlign(col, row, kAlignCentred);
    }
    grid_.resize(kBoardSize);
    grid_.show();
    QApplication::processEvents();
  }

  // Other texts in every cell, and what the user sees of them.
  void step() {
    ++week_;
    for (int row = 0; row < kRows; ++row) {
      for (int col = 0; col < kCols; ++col) fill(col, row);
    }
    grid_.Redraw();
    grid_.viewport()->repaint();
  }

 private:
  void fill(int col, int row) {
    if (!isPlanned(week_, col, row)) {
      grid_.SetCellText(col, row, QString());
      return grid_.sheet().SetCellColors(col, row, kBlack, kWhite);
    }
    grid_.SetCellText(col, row, planText(week_, col, row));
    grid_.sheet().SetCellColors(col, row, ink(col, row), kPlanPaper);
  }

  GridSurface grid_;
  int week_ = 0;
};

// The same cells in the toolkit's own view and model.
class PlainBoard {
 public:
  PlainBoard() {
    for (int row = 0; row < kRows; ++row) {
      for (int col = 0; col < kCols; ++col) model_.setItem(row, col, item(col, row));
    }
    view_.setModel(&model_);
    for (int row = 0; row < kRows; ++row) view_.setRowHeight(row, 38);
    for (int col = 0; col < kCols; ++col) view_.setColumnWidth(col, kBoardSize.width() / kCols);
    view_.resize(kBoardSize);
    view_.show();
    QApplication::processEvents();
  }

  void repaint() { view_.viewport()->repaint(); }

 private:
  static QStandardItem* item(int col, int row) {
    if (!isPlanned(1, col, row)) return new QStandardItem;
    auto* item = new QStandardItem(planText(1, col, row).replace(u'\r', u'\n'));
    const PackedColour colour = ink(col, row);
    item->setForeground(QColor(redOf(colour), greenOf(colour), blueOf(colour)));
    item->setBackground(QColor(230, 220, 255));
    item->setTextAlignment(Qt::AlignCenter);
    return item;
  }

  QStandardItemModel model_;
  QTableView view_;
};

void compareWeekStep(SideBySide& table) {
  Board board;
  PlainBoard plain;
  constexpr int kRepetitions = 41;
  table.compare(
      "week step, 51 x 8 cells", [&] { board.step(); }, [&] { plain.repaint(); }, kRepetitions,
      0.8);
}

// A sheet with a text in every row, ready to be shown.
Workbook longBook(int rows) {
  Workbook book;
  book.sheet().SetCols(5);
  book.sheet().SetRows(rows);
  for (int row = 0; row < rows; ++row) {
    for (int col = 0; col < 5; ++col) {
      book.sheet().SetCellText(col, row, u"活动"_qs + QString::number((row + col) % 97));
    }
  }
  return book;
}

using GridPointer = std::unique_ptr<GridSurface>;

GridPointer setUpGrid(const Workbook& book) {
  auto grid = std::make_unique<GridSurface>();
  grid->resize(900, 700);
  grid->workbook() = book;
  grid->Redraw();
  return grid;
}

double microsecondsToShow(GridSurface& grid) {
  QElapsedTimer timer;
  timer.start();
  grid.show();
  QApplication::processEvents();
  return static_cast<double>(timer.nsecsElapsed()) / 1'000;
}

// Without the set-up, hence timed here. One grid at a time: shown ones repaint when the focus goes.
void compareFirstPaint(SideBySide& table, const Workbook& large, const Workbook& small) {
  std::vector<double> largeTimes;
  std::vector<double> smallTimes;
  for (int i = 0; i < 41; ++i) {
    largeTimes.push_back(microsecondsToShow(*setUpGrid(large)));
    smallTimes.push_back(microsecondsToShow(*setUpGrid(small)));
  }
  table.record("first paint of 1,000,000 rows, beside 1,000", "us", medianOf(largeTimes),
               medianOf(smallTimes), 1.5);
}

void scrollPage(GridSurface& grid) {
  QScrollBar& bar = *grid.verticalScrollBar();
  bar.setValue(bar.value() + bar.pageStep() < bar.maximum() ? bar.value() + bar.pageStep() : 0);
  grid.viewport()->repaint();
}

void compareLength(SideBySide& table) {
  const Workbook large = longBook(1'000'000);
  const Workbook small = longBook(1'000);
  constexpr int kRepetitions = 21;
  table.compare(
      "set-up of 1,000,000 rows, beside 1,000", [&] { setUpGrid(large); },
      [&] { setUpGrid(small); }, kRepetitions);
  compareFirstPaint(table, large, small);
  const GridPointer largeGrid = setUpGrid(large);
  const GridPointer smallGrid = setUpGrid(small);
  for (GridSurface* grid : {largeGrid.get(), smallGrid.get()}) grid->show();
  QApplication::processEvents();
  table.compare(
      "a page down in 1,000,000 rows, beside 1,000", [&] { scrollPage(*largeGrid); },
      [&] { scrollPage(*smallGrid); }, kRepetitions);
}

}  // namespace
}  // namespace vellora::bench

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  using namespace vellora::bench;
  SideBySide table;
  compareWeekStep(table);
  compareLength(table);
  table.print();
}
