#include "grid/surface/cell_painter.h"

#include "grid/print/drawn_style.h"
#include "grid/surface/cell_look.h"

#include <QPainter>

namespace vellora {
namespace {

constexpr int kTextMargin = 3;  // pixels left and right of a text

}  // namespace

QRect textRoom(const QRect& cell) {
  return cell.adjusted(kTextMargin, 0, -kTextMargin - 1, -1);
}

TextLayouts::Request textRequest(TextLayouts& texts, const CellStyle& style, const QString& text,
                                 const QRect& cell) {
  const QRect room = textRoom(cell);
  return {text,          texts.numberOf(style.font), room.width(),
          room.height(), alignmentOf(style.align),   style.wrap};
}

void CellPainter::setSelection(const CellRange& selected, CellPlace current) {
  selected_ = selected;
  current_ = current;
}

bool CellPainter::isInverted(CellPlace cell) const {
  return selected_.contains(cell) && cell != current_;
}

bool CellPainter::isMarkedHeading(CellPlace cell) const {
  return cell.col == look_.markedCol && look_.isHeading(cell.col, cell.row) &&
         !sheet_.StyleAt(cell.col, cell.row).hasColours;
}

// Headings and empty cells differ from other cells of the same style.
const CellPainter::Look& CellPainter::lookAt(int col, int row, bool isEmpty) {
  const bool isHeading = look_.isHeading(col, row);
  const int number = sheet_.StyleNumberAt(col, row);
  const auto [place, isNew] = looks_.try_emplace(4 * number + 2 * isHeading + isEmpty);
  if (isNew) {
    const CellStyle& style = sheet_.StyleAt(col, row);
    const auto [ink, paper] = inkAndPaper(style, look_.colours, isHeading, isEmpty);
    place->second = {ink, paper, &style, texts_.numberOf(style.font), alignmentOf(style.align)};
  }
  return place->second;
}

void CellPainter::paint(const std::vector<Span>& cols, const std::vector<Span>& rows) {
  bordered_.clear();
  for (const Span& row : rows) {
    for (const Span& col : cols) paintCell(col, row);
  }
  paintLines(cols, rows);
  for (const Bordered& bordered : bordered_) paintBorder(bordered);
}

void CellPainter::paintCell(const Span& col, const Span& row) {
  const CellPlace place{col.section, row.section};
  const QRect cell(col.start, row.start, col.size, row.size);
  const QString text = sheet_.GetCellText(place.col, place.row);
  const Look& look = lookAt(place.col, place.row, text.isEmpty());
  const bool inverted = isInverted(place);
  const QColor& paper = isMarkedHeading(place) ? look_.colours.today : look.paper;
  painter_.fillRect(cell, inverted ? look_.colours.selectionPaper : paper);
  if (look.style->border) bordered_.push_back({cell, look.style});
  if (text.isEmpty()) return;
  painter_.setPen(inverted ? look_.colours.selectionText : look.ink);
  paintText(text, look, cell);
}

void CellPainter::paintText(const QString& text, const Look& look, const QRect& cell) {
  const QRect room = textRoom(cell);
  if (room.width() <= 0) return;
  const LaidOutText& laidOut =
      texts_.layOut({text, look.font, room.width(), room.height(), look.align, look.style->wrap});
  drawText(painter_, laidOut, room, look.align);
}

void CellPainter::paintLines(const std::vector<Span>& cols, const std::vector<Span>& rows) {
  if (cols.empty() || rows.empty()) return;
  const QRect area(QPoint(cols.front().start, rows.front().start),
                   QPoint(cols.back().end() - 1, rows.back().end() - 1));
  const QColor& line = look_.colours.line;
  for (const Span& row : rows) painter_.fillRect(area.left(), row.end() - 1, area.width(), 1, line);
  for (const Span& col : cols) painter_.fillRect(col.end() - 1, area.top(), 1, area.height(), line);
}

// The right and lower edges lie on the cell's grid lines, the others on its neighbours'; at the
// sheet's own edge they lie inside. As with texts, black is the skin's ink.
void CellPainter::paintBorder(const Bordered& bordered) {
  const QRect cell = bordered.cell;
  const int width = bordered.style->borderWidth;
  const PackedColour given = bordered.style->borderColour;
  const QColor colour = given == kBlack ? look_.colours.text : colourOf(given);
  const int left = std::max(cell.left() - 1, 0);
  const int top = std::max(cell.top() - 1, 0);
  const int right = cell.right() - width + 1;
  const int bottom = cell.bottom() - width + 1;
  const int fullWidth = cell.right() - left + 1;
  painter_.fillRect(left, top, fullWidth, width, colour);
  painter_.fillRect(left, bottom, fullWidth, width, colour);
  painter_.fillRect(left, top, width, cell.bottom() - top + 1, colour);
  painter_.fillRect(right, top, width, cell.bottom() - top + 1, colour);
}

}  // namespace vellora
