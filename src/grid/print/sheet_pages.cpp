#include "grid/print/sheet_pages.h"

#include "grid/files/exported_sheet.h"
#include "grid/print/drawn_style.h"
#include "routine/calendar_text.h"

#include <QPaintDevice>
#include <QPainter>
#include <QPainterPath>
#include <QRawFont>
#include <QTextOption>

#include <algorithm>

namespace vellora {
namespace {

constexpr double kScreenDotsPerInch = 96;
// In pixels at 100 %.
constexpr double kLeastColumnWidth = 60;
constexpr double kLeastWallRow = 18;  // one line of small letters
constexpr double kPaddingX = 4;
constexpr double kPaddingY = 3;
// A heading may take this part of a page, so that rows always find room.
constexpr double kLargestHeading = 0.75;

// An empty last line would only push the others out of the middle.
QString withLineSeparators(QString text) {
  while (text.endsWith(kLineBreak) || text.endsWith(u'\n')) text.chop(1);
  text.replace(u"\r\n"_qs, QString(QChar::LineSeparator));
  text.replace(kLineBreak, QChar::LineSeparator);
  return text.replace(u'\n', QChar::LineSeparator);
}

QPainterPath glyphsOf(const QList<QGlyphRun>& runs) {
  QPainterPath glyphs;
  for (const QGlyphRun& run : runs) {
    const QList<quint32> indexes = run.glyphIndexes();
    const QList<QPointF> places = run.positions();
    for (qsizetype i = 0; i < indexes.size(); ++i) {
      glyphs.addPath(run.rawFont().pathForGlyph(indexes[i]).translated(places[i]));
    }
  }
  return glyphs;
}

}  // namespace

PrintedText::PrintedText(const QString& text, const CellStyle& style, double width, double scale,
                         QPaintDevice* device)
    : layout_(withLineSeparators(text), fontOf(style.font, scale), device) {
  QTextOption option(alignmentOf(style.align) & Qt::AlignHorizontal_Mask);
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  layout_.setTextOption(option);
  layout_.beginLayout();
  double y = 0;
  for (QTextLine line = layout_.createLine(); line.isValid(); line = layout_.createLine()) {
    line.setLineWidth(width);
    line.setPosition({0, y});
    y += line.height();
  }
  layout_.endLayout();
}

std::vector<LineRun> PrintedText::runs(double room) const {
  std::vector<double> heights;
  heights.reserve(static_cast<std::size_t>(layout_.lineCount()));
  for (int i = 0; i < layout_.lineCount(); ++i) heights.push_back(layout_.lineAt(i).height());
  return flowLines(heights, room);
}

void PrintedText::draw(QPainter& painter, const LineRun& run, QPointF topLeft,
                       const QPen& edge) const {
  if (run.count == 0) return;
  const double top = layout_.lineAt(run.first).y();
  for (int i = run.first; edge.style() != Qt::NoPen && i < run.first + run.count; ++i) {
    painter.strokePath(
        glyphsOf(layout_.lineAt(i).glyphRuns()).translated(topLeft - QPointF(0, top)), edge);
  }
  for (int i = run.first; i < run.first + run.count; ++i) {
    layout_.lineAt(i).draw(&painter, topLeft - QPointF(0, top));
  }
}

SheetPages::SheetPages(const Sheet& sheet, const PrintOptions& options, bool mustFit,
                       QPaintDevice& device, const WorkProgress& progress)
    : sheet_(sheet),
      device_(device),
      titleHeight_(
          options.title.isEmpty() ? 0 : kTitleHeight * device.logicalDpiY() / kScreenDotsPerInch),
      heading_{options.headings == PrintHeadings::FirstRow ? 0 : kHeadingRow, 0, 0} {
  measureColumns(mustFit);
  isForTheWall_ = options.isForTheWall;
  if (isForTheWall_) {
    measureForTheWall(progress);
  } else {
    measure(progress);
  }
}

void SheetPages::measure(const WorkProgress& progress) {
  roomHeight_ = pageHeight_;
  measureHeading();
  measureRows(progress);
}

void SheetPages::measureForTheWall(const WorkProgress& progress) {
  constexpr int kMostHalves = 28;  // of a point
  constexpr int kLeastHalves = 18;
  for (int halves = kMostHalves; halves >= kLeastHalves; --halves) {
    fontScale_ = halves / 2.0 / sheet_.DefaultFont().size;
    measure(progress);
    if (pages_.size() == 1) return fillPage();
  }
}

void SheetPages::fillPage() {
  double spare = roomHeight_;
  for (const RowPiece& row : pages_.front()) spare -= row.height;
  if (pages_.front().empty()) return;
  const double share = spare / static_cast<double>(pages_.front().size());
  for (RowPiece& row : pages_.front()) row.height += share;
}

double SheetPages::textLeft(const CellStyle& style) const {
  return padding().x() + (style.category > 0 ? pixels(kPrintedStripe) : 0);
}

double SheetPages::pixels(double screenPixels) const {
  return screenPixels * device_.logicalDpiX() / kScreenDotsPerInch;
}

QPointF SheetPages::padding() const {
  return {pixels(kPaddingX), pixels(kPaddingY)};
}

double SheetPages::cellRoom() const {
  return roomHeight_ - 2 * padding().y();
}

void SheetPages::measureColumns(bool mustFit) {
  std::vector<std::optional<double>> own;
  for (int col = 0; col < sheet_.Cols(); ++col) {
    const auto width = sheet_.ColumnWidth(col);
    if (width == 0) continue;
    columns_.push_back({col, 0});
    own.push_back(width ? std::optional(pixels(*width)) : std::nullopt);
  }
  std::vector<double> widths = sharedWidths(own, device_.width(), pixels(kLeastColumnWidth));
  double total = 0;
  for (const double width : widths) total += width;
  scale_ = printScale(total, device_.width(), mustFit);
  roomWidth_ = device_.width() / scale_;
  pageHeight_ = (device_.height() - titleHeight_ - pixels(kFooterHeight)) / scale_;
  for (std::size_t i = 0; i < widths.size(); ++i) {
    columns_[i].width = widths[i] = std::min(widths[i], roomWidth_);
  }
  spans_ = spanColumns(widths, roomWidth_);
  if (spans_.empty()) spans_.push_back({0, 0});
}

void SheetPages::measureHeading() {
  if (heading_.row == kHeadingRow ? !hasText(kHeadingRow) : sheet_.Rows() == 0) return;
  heading_.height = std::min(measured(heading_.row).height, roomHeight_ * kLargestHeading);
  roomHeight_ -= heading_.height;
}

void SheetPages::measureRows(const WorkProgress& progress) {
  std::vector<PrintedRow> rows;
  const int last = lastRowWithText();
  for (int row = heading_.row + 1; row <= last; ++row) {
    report(progress, {u"正在排版……"_qs, row, last});
    if (!isOutOfView(sheet_, row)) rows.push_back(measured(row));
  }
  pages_ = layOutRows(rows, roomHeight_);
}

PrintedRow SheetPages::measured(int row) const {
  const double usual =
      pixels(isForTheWall_ ? kLeastWallRow * fontScale_ : exportedHeight(sheet_, row));
  PrintedRow printed{row, 1, std::min(usual, roomHeight_)};
  for (const Column& column : columns_) {
    const auto laidOut = text(row, column);
    if (!laidOut) continue;
    const std::vector<LineRun> runs = laidOut->runs(cellRoom());
    const auto pieces = static_cast<int>(runs.size());
    if (pieces > printed.pieces) printed = {row, pieces, 0};
    if (pieces < printed.pieces) continue;
    printed.height = std::max(printed.height, runs.back().height + 2 * padding().y());
  }
  return printed;
}

std::unique_ptr<PrintedText> SheetPages::text(int row, const Column& column) const {
  const QString shown = sheet_.GetCellText(column.col, row);
  if (shown.isEmpty()) return nullptr;
  const CellStyle& style = sheet_.StyleAt(column.col, row);
  const double width = column.width - textLeft(style) - padding().x();
  return std::make_unique<PrintedText>(shown, style, width, fontScale_, &device_);
}

bool SheetPages::hasText(int row) const {
  return std::any_of(columns_.begin(), columns_.end(), [&](const Column& column) {
    return !sheet_.GetCellText(column.col, row).isEmpty();
  });
}

int SheetPages::lastRowWithText() const {
  int last = -1;
  for (int row = sheet_.NextWrittenRow(0); row < sheet_.Rows();
       row = sheet_.NextWrittenRow(row + 1)) {
    if (hasText(row)) last = row;
  }
  return last;
}

}  // namespace vellora
