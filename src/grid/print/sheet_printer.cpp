#include "grid/print/sheet_printer.h"

#include "grid/print/drawn_style.h"
#include "grid/print/sheet_pages.h"
#include "routine/category.h"

#include <QPageLayout>
#include <QPagedPaintDevice>
#include <QPainter>

#include <map>

namespace vellora {
namespace {

constexpr double kLineWidth = 0.75;  // pixels at 100 %
constexpr double kEdgeWidth = 0.9;
constexpr int kListTitle = 11;  // points
constexpr int kWallTitle = 16;
constexpr double kTitleShare = 0.8;  // of its room; the rest sets it off
constexpr PackedColour kLineColour = packColour(176, 176, 176);
constexpr PackedColour kHeadingPaper = packColour(238, 238, 238);

FileError cannotPrint() {
  return FileError(u"无法打印：打印机不可用，或目标文件无法写入。"_qs);
}

class SheetPrinter {
 public:
  SheetPrinter(const Sheet& sheet, const SheetPages& pages, const PrintOptions& options,
               QPagedPaintDevice& device)
      : sheet_(sheet), pages_(pages), options_(options), device_(device) {}

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
  void drawStripe(const Cell& cell, const CellStyle& style);
  void drawTitle();
  void drawLegend();
  void drawFooter(int page, int pages);
  QRectF footer() const;

  const Sheet& sheet_;
  const SheetPages& pages_;
  const PrintOptions& options_;
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
      drawTitle();
      drawPage(cellsOf(rows, span));
      if (options_.isForTheWall) drawLegend();
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
  painter_.translate(0, pages_.titleHeight());
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
  if (style.category > 0) drawStripe(cell, style);
  drawText(cell, style);
}

void SheetPrinter::drawStripe(const Cell& cell, const CellStyle& style) {
  QRectF stripe = cell.place;
  stripe.setWidth(pages_.pixels(kPrintedStripe));
  painter_.fillRect(stripe, colourOf(categoryColour(style.category)));
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
  QPointF at = cell.place.topLeft() + QPointF(pages_.textLeft(style), pages_.padding().y());
  const double spare = cell.place.height() - run.height - 2 * pages_.padding().y();
  const Qt::Alignment align = alignmentOf(style.align);
  if (align.testFlag(Qt::AlignVCenter)) at.ry() += spare / 2;
  if (align.testFlag(Qt::AlignBottom)) at.ry() += spare;
  painter_.setPen(colourOf(style.hasColours ? style.textColour : kBlack));
  const QColor edge = edgeColourOf(style, kEdgeContrast);
  text->draw(painter_, run, at,
             edge.isValid() ? QPen(edge, pages_.pixels(kEdgeWidth)) : QPen(Qt::NoPen));
}

void SheetPrinter::drawBorder(const Cell& cell) {
  const CellStyle& style = sheet_.StyleAt(cell.column.col, cell.row.row);
  if (!style.border) return;
  painter_.setPen(QPen(colourOf(style.borderColour), pages_.pixels(style.borderWidth)));
  painter_.setBrush(Qt::NoBrush);
  painter_.drawRect(cell.place);
}

void SheetPrinter::drawTitle() {
  if (options_.title.isEmpty()) return;
  CellFont font;
  font.size = options_.isForTheWall ? kWallTitle : kListTitle;
  font.style = kFontBold;
  const QRectF room(0, 0, device_.width(), pages_.titleHeight() * kTitleShare);
  painter_.setPen(Qt::black);
  painter_.setFont(fontOf(font));
  painter_.drawText(room, Qt::AlignLeft | Qt::AlignVCenter, options_.title);
  painter_.setFont(fontOf(CellFont()));
  painter_.drawText(room, Qt::AlignRight | Qt::AlignVCenter, options_.note);
}

QRectF SheetPrinter::footer() const {
  const double height = pages_.pixels(kFooterHeight);
  return {0, device_.height() - height, static_cast<double>(device_.width()), height};
}

void SheetPrinter::drawLegend() {
  const double sign = pages_.pixels(9);
  const double gap = pages_.pixels(5);
  painter_.setFont(fontOf(CellFont()));
  painter_.setPen(Qt::black);
  QRectF room = footer().adjusted(0, pages_.pixels(6), 0, 0);
  for (const Category& category : categories()) {
    painter_.fillRect(QRectF(room.left(), room.center().y() - sign / 2, sign, sign),
                      colourOf(category.colour));
    room.setLeft(room.left() + sign + gap);
    QRectF used;
    painter_.drawText(room, Qt::AlignLeft | Qt::AlignVCenter, category.label, &used);
    room.setLeft(used.right() + 3 * gap);
  }
}

void SheetPrinter::drawFooter(int page, int pages) {
  if (pages == 1) return;
  painter_.setFont(fontOf(CellFont()));
  painter_.setPen(Qt::black);
  const auto across = options_.isForTheWall ? Qt::AlignRight : Qt::AlignHCenter;
  painter_.drawText(footer(), across | Qt::AlignBottom,
                    u"第 %1 页 共 %2 页"_qs.arg(page).arg(pages));
}

}  // namespace

QPageLayout paperOf(const PageSetup& setup) {
  const QSizeF size(setup.paperWidth, setup.paperHeight);
  return {QPageSize(size, QPageSize::Millimeter, QString(), QPageSize::FuzzyMatch),
          setup.landscape ? QPageLayout::Landscape : QPageLayout::Portrait,
          QMarginsF(setup.marginLeft, setup.marginTop, setup.marginRight, setup.marginBottom),
          QPageLayout::Millimeter};
}

void printSheet(const Sheet& sheet, const PageSetup& setup, const PrintOptions& options,
                QPagedPaintDevice& device, const WorkProgress& progress) {
  const SheetPages pages(sheet, options, setup.fitToOnePageWidth, device, progress);
  SheetPrinter(sheet, pages, options, device).print(progress);
}

}  // namespace vellora
