#include "grid/print/sheet_printer.h"

#include "grid/print/drawn_style.h"
#include "grid/print/sheet_pages.h"

#include <QPageLayout>
#include <QPagedPaintDevice>
#include <QPainter>

#include <map>

namespace vellora {
namespace {

constexpr double kLineWidth = 0.75;  // pixels at 100 %
constexpr PackedColour kLineColour = packColour(176, 176, 176);
constexpr PackedColour kHeadingPaper = packColour(238, 238, 238);

FileError cannotPrint() {
  return FileError(u"无法打印：打印机不可用，或目标文件无法写入。"_qs);
}

class SheetPrinter {
 public:
  SheetPrinter(const Sheet& sheet, const SheetPages& pages, QPagedPaintDevice& device)
      : sheet_(sheet), pages_(pages), device_(device) {}

  void print(const WorkProgress& progress);

 private:
  using Column = SheetPages::Column;
  struct Cell {
    RowPiece row;
    Column column;
    QRectF place;
  };
  // A cell's text, flowing over as many pages as it needs.
  struct FlowingText {
    int row = 0;
    std::unique_ptr<PrintedText> text;
    std::vector<LineRun> runs;
  };

  std::vector<Cell> cellsOf(const std::vector<RowPiece>& rows, const ColumnSpan& span) const;
  void drawPage(const std::vector<Cell>& cells);
  void drawCell(const Cell& cell);
  void drawText(const Cell& cell, const CellStyle& style);
  const FlowingText& textOf(const Cell& cell);
  void drawBorder(const Cell& cell);
  void drawFooter(int page, int pages);

  const Sheet& sheet_;
  const SheetPages& pages_;
  QPagedPaintDevice& device_;
  QPainter painter_;
  // By column, of the heading and of the row that was drawn last.
  std::map<std::pair<int, bool>, FlowingText> texts_;
};

void SheetPrinter::print(const WorkProgress& progress) {
  if (!painter_.begin(&device_)) throw cannotPrint();
  const auto total = static_cast<int>(pages_.pages().size() * pages_.spans().size());
  int page = 0;
  for (const auto& rows : pages_.pages()) {
    for (const ColumnSpan& span : pages_.spans()) {
      report(progress, {u"正在绘制各页……"_qs, page, total});
      if (page > 0 && !device_.newPage()) throw cannotPrint();
      drawPage(cellsOf(rows, span));
      drawFooter(++page, total);
    }
  }
  if (!painter_.end()) throw cannotPrint();
}

// The cells of one page, headings first, and where they are.
std::vector<SheetPrinter::Cell> SheetPrinter::cellsOf(const std::vector<RowPiece>& rows,
                                                      const ColumnSpan& span) const {
  std::vector<Cell> cells;
  double top = 0;
  const auto addRow = [&](const RowPiece& row) {
    double left = 0;
    for (std::size_t i = span.first; i < span.first + span.count; ++i) {
      const Column& column = pages_.columns()[i];
      cells.push_back({row, column, QRectF(left, top, column.width, row.height)});
      left += column.width;
    }
    top += row.height;
  };
  if (pages_.heading().height > 0) addRow(pages_.heading());
  for (const RowPiece& row : rows) addRow(row);
  return cells;
}

// Borders come last: a neighbour's background must not cover them.
void SheetPrinter::drawPage(const std::vector<Cell>& cells) {
  painter_.save();
  painter_.scale(pages_.scale(), pages_.scale());
  for (const Cell& cell : cells) drawCell(cell);
  for (const Cell& cell : cells) drawBorder(cell);
  painter_.restore();
}

void SheetPrinter::drawCell(const Cell& cell) {
  const CellStyle& style = sheet_.StyleAt(cell.column.col, cell.row.row);
  const PackedColour plain = cell.row.row == kHeadingRow ? kHeadingPaper : kWhite;
  painter_.setPen(QPen(colourOf(kLineColour), pages_.pixels(kLineWidth)));
  painter_.setBrush(colourOf(style.hasColours ? style.backColour : plain));
  painter_.drawRect(cell.place);
  drawText(cell, style);
}

// Laid out once for all pages that it goes on over: a book in a cell takes hundreds.
const SheetPrinter::FlowingText& SheetPrinter::textOf(const Cell& cell) {
  const bool isHeading = cell.row.row == pages_.heading().row;
  const auto [place, isNew] = texts_.try_emplace({cell.column.col, isHeading});
  FlowingText& known = place->second;
  if (!isNew && known.row == cell.row.row) return known;
  known = {cell.row.row, pages_.text(cell.row.row, cell.column), {}};
  if (known.text) known.runs = known.text->runs(pages_.cellRoom());
  return known;
}

void SheetPrinter::drawText(const Cell& cell, const CellStyle& style) {
  const auto& [row, text, runs] = textOf(cell);
  if (cell.row.piece >= static_cast<int>(runs.size())) return;
  const LineRun& run = runs[static_cast<std::size_t>(cell.row.piece)];
  QPointF at = cell.place.topLeft() + pages_.padding();
  const double spare = cell.place.height() - run.height - 2 * pages_.padding().y();
  const Qt::Alignment align = alignmentOf(style.align);
  if (align.testFlag(Qt::AlignVCenter)) at.ry() += spare / 2;
  if (align.testFlag(Qt::AlignBottom)) at.ry() += spare;
  painter_.setPen(colourOf(style.hasColours ? style.textColour : kBlack));
  text->draw(painter_, run, at);
}

void SheetPrinter::drawBorder(const Cell& cell) {
  const CellStyle& style = sheet_.StyleAt(cell.column.col, cell.row.row);
  if (!style.border) return;
  painter_.setPen(QPen(colourOf(style.borderColour), pages_.pixels(style.borderWidth)));
  painter_.setBrush(Qt::NoBrush);
  painter_.drawRect(cell.place);
}

void SheetPrinter::drawFooter(int page, int pages) {
  const double height = pages_.pixels(kFooterHeight);
  const QRectF footer(0, device_.height() - height, device_.width(), height);
  painter_.setFont(fontOf(CellFont()));
  painter_.setPen(Qt::black);
  painter_.drawText(footer, Qt::AlignHCenter | Qt::AlignBottom,
                    u"第 %1 页 共 %2 页"_qs.arg(page).arg(pages));
}

}  // namespace

QPageLayout paperOf(const PageSetup& setup) {
  return {QPageSize(QPageSize::A4),
          setup.landscape ? QPageLayout::Landscape : QPageLayout::Portrait,
          QMarginsF(setup.marginLeft, setup.marginTop, setup.marginRight, setup.marginBottom),
          QPageLayout::Millimeter};
}

void printSheet(const Sheet& sheet, const PageSetup& setup, PrintHeadings headings,
                QPagedPaintDevice& device, const WorkProgress& progress) {
  const SheetPages pages(sheet, headings, setup.fitToOnePageWidth, device, progress);
  SheetPrinter(sheet, pages, device).print(progress);
}

}  // namespace vellora
