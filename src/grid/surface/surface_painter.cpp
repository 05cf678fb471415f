#include "grid/surface/surface_painter.h"

#include "grid/surface/cell_painter.h"
#include "grid/surface/grid_colours.h"

#include <QPainter>

namespace vellora {
namespace {

constexpr int kMark = 2;  // pixels; the marked column's edges and the focused cell's frame
constexpr int kRowBar = 5;
constexpr QColor kRowBarColour(224, 122, 0);  // seen on light and on dark cells

void drawEdges(QPainter& painter, const QRect& rect, int width, const QColor& colour) {
  painter.fillRect(rect.left(), rect.top(), rect.width(), width, colour);
  painter.fillRect(rect.left(), rect.bottom() - width + 1, rect.width(), width, colour);
  painter.fillRect(rect.left(), rect.top(), width, rect.height(), colour);
  painter.fillRect(rect.right() - width + 1, rect.top(), width, rect.height(), colour);
}

}  // namespace

// The bands come last, so that nothing scrolls over them.
void SurfacePainter::paint(QPainter& painter) const {
  const int width = size.width();
  const int height = size.height();
  const int bandX = cols.band();
  const int bandY = rows.band();
  const auto frozenCols = cols.frozenSpans(width);
  const auto frozenRows = rows.frozenSpans(height);
  const auto scrolledCols = cols.scrolledSpans(width);
  const auto scrolledRows = rows.scrolledSpans(height);
  painter.fillRect(QRect(QPoint(), size), look.colours.paper);
  paintArea(painter, scrolledCols, scrolledRows, {bandX, bandY, width - bandX, height - bandY});
  paintArea(painter, scrolledCols, frozenRows, {bandX, 0, width - bandX, bandY});
  paintArea(painter, frozenCols, scrolledRows, {0, bandY, bandX, height - bandY});
  paintArea(painter, frozenCols, frozenRows, {0, 0, bandX, bandY});
}

void SurfacePainter::paintArea(QPainter& painter, const std::vector<Span>& areaCols,
                               const std::vector<Span>& areaRows, const QRect& clip) const {
  if (clip.isEmpty() || areaCols.empty() || areaRows.empty()) return;
  painter.setClipRect(clip);
  CellPainter cells(painter, sheet, look, texts);
  const bool isFrameEnough = selected.isOneCell() && selected.contains(current);
  cells.setSelection(isFrameEnough ? CellRange() : selected, current);
  cells.paint(areaCols, areaRows);
  paintMarkedColumn(painter, areaCols, clip);
  paintMarkedRows(painter, areaCols, areaRows);
  paintFrame(painter, clip);
}

void SurfacePainter::paintMarkedColumn(QPainter& painter, const std::vector<Span>& areaCols,
                                       const QRect& clip) const {
  for (const Span& col : areaCols) {
    if (col.section != look.markedCol) continue;
    const bool isHeading = clip.top() < rows.band();
    const int bottom = rows.has(sheet.Rows() - 1) ? rows.spanOf(sheet.Rows() - 1).end() : 0;
    const int height = std::min(clip.bottom() + 1, bottom) - clip.top();
    const QColor& colour = look.colours.today;
    painter.fillRect(col.start - 1, clip.top(), kMark, height, colour);
    painter.fillRect(col.end() - kMark, clip.top(), kMark, height, colour);
    if (isHeading) painter.fillRect(col.start, clip.top(), col.size, kMark + 1, colour);
  }
}

// On the first column, so that the bar scrolls with it.
void SurfacePainter::paintMarkedRows(QPainter& painter, const std::vector<Span>& areaCols,
                                     const std::vector<Span>& areaRows) const {
  if (areaCols.front().section != 0) return;
  for (const Span& row : areaRows) {
    if (!look.markOf(row.section)) continue;
    painter.fillRect(areaCols.front().start, row.start, kRowBar, row.size - 1, kRowBarColour);
  }
}

void SurfacePainter::paintFrame(QPainter& painter, const QRect& clip) const {
  if (!cols.has(current.col) || !rows.has(current.row)) return;
  const bool isHere = cols.isFrozen(current.col) == (clip.left() < cols.band()) &&
                      rows.isFrozen(current.row) == (clip.top() < rows.band());
  if (!isHere) return;
  const Span col = cols.spanOf(current.col);
  const Span row = rows.spanOf(current.row);
  const QRect frame(col.start - 1, row.start - 1, col.size + 1, row.size + 1);
  drawEdges(painter, frame & clip.adjusted(0, 0, 1, 1), hasFocus ? kMark : 1, look.colours.current);
}

}  // namespace vellora
