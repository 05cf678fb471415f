#include "grid/surface/surface_painter.h"

#include "grid/print/drawn_style.h"
#include "grid/surface/grid_appearance.h"
#include "grid/surface/text_layouts.h"

#include <QPainter>

#include <unordered_map>

namespace vellora {
namespace {

constexpr int kMark = 2;  // pixels; the focused cell's frame
constexpr int kRing = 3;  // the marked column's edges
constexpr int kRowBar = 5;
constexpr QColor kRowBarColour(224, 122, 0);  // seen on light and on dark cells

void drawEdges(QPainter& painter, const QRect& rect, int width, const QColor& colour) {
  painter.fillRect(rect.left(), rect.top(), rect.width(), width, colour);
  painter.fillRect(rect.left(), rect.bottom() - width + 1, rect.width(), width, colour);
  painter.fillRect(rect.left(), rect.top(), width, rect.height(), colour);
  painter.fillRect(rect.right() - width + 1, rect.top(), width, rect.height(), colour);
}

// Paints cells of one sheet during one paint event: papers, texts, grid lines and borders.
class CellPainter {
 public:
  CellPainter(QPainter& painter, const Sheet& sheet, const GridAppearance& appearance,
              TextLayouts& texts)
      : painter_(painter), sheet_(sheet), appearance_(appearance), texts_(texts) {}

  // These cells show in the selection's colours, all but the current one.
  void setSelection(const CellRange& selected, CellPlace current);
  // Every cell where these columns and rows cross.
  void paint(const std::vector<Span>& cols, const std::vector<Span>& rows);

 private:
  // What cells of one style share.
  struct SharedStyle {
    QColor foreground;
    QColor background;
    QColor edge;  // of texts that are not readable on their paper; else invalid
    const CellStyle* style;
    int font;
    Qt::Alignment align;
  };
  struct Bordered {
    QRect cell;
    const CellStyle* style;
  };

  const SharedStyle& sharedStyleAt(int col, int row);
  void paintCell(const Span& col, const Span& row);
  QColor faintColour(const CellStyle& style) const;
  void paintStripe(const CellStyle& style, const QRect& cell, int margin);
  void paintText(const QString& text, const SharedStyle& shared, const QRect& cell,
                 const QColor& edge);
  void paintLines(const std::vector<Span>& cols, const std::vector<Span>& rows);
  void paintBorder(const Bordered& bordered);
  bool isInverted(CellPlace cell) const;
  bool isMarkedHeading(CellPlace cell) const;

  QPainter& painter_;
  const Sheet& sheet_;
  const GridAppearance& appearance_;
  TextLayouts& texts_;
  CellRange selected_;
  CellPlace current_;
  std::unordered_map<int, SharedStyle> shared_styles_;
  std::vector<Bordered> bordered_;
};

void CellPainter::setSelection(const CellRange& selected, CellPlace current) {
  selected_ = selected;
  current_ = current;
}

bool CellPainter::isInverted(CellPlace cell) const {
  return selected_.contains(cell) && cell != current_;
}

bool CellPainter::isMarkedHeading(CellPlace cell) const {
  return cell.col == appearance_.markedCol && appearance_.isHeading(cell.col, cell.row) &&
         !sheet_.StyleAt(cell.col, cell.row).hasColours;
}

// Headings differ from other cells of the same style.
const CellPainter::SharedStyle& CellPainter::sharedStyleAt(int col, int row) {
  const bool isHeading = appearance_.isHeading(col, row);
  const int number = sheet_.StyleNumberAt(col, row);
  const auto [place, isNew] = shared_styles_.try_emplace(2 * number + isHeading);
  if (isNew) {
    const CellStyle& style = sheet_.StyleAt(col, row);
    const auto [foreground, background] = textColours(style, appearance_.colours, isHeading);
    place->second = {foreground,
                     background,
                     edgeColourOf(style, kBlendedEdgeContrast),
                     &style,
                     texts_.numberOf(style.font),
                     alignmentOf(style.align)};
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
  const SharedStyle& shared = sharedStyleAt(place.col, place.row);
  const bool inverted = isInverted(place);
  const QColor& paper = isMarkedHeading(place) ? appearance_.colours.today : shared.background;
  painter_.fillRect(cell, inverted ? appearance_.colours.selectionPaper : paper);
  if (shared.style->border) bordered_.push_back({cell, shared.style});
  paintStripe(*shared.style, cell, place.col == appearance_.markedCol ? kRing : 0);
  if (text.isEmpty()) return;
  const bool isFaint = place.col == appearance_.faintZeros && text == u"0"_qs;
  painter_.setPen(inverted  ? appearance_.colours.selectionText
                  : isFaint ? faintColour(*shared.style)
                            : shared.foreground);
  paintText(text, shared, cell, inverted || isFaint ? QColor() : shared.edge);
}

// On a paper of the cell's own, which is light, a grey that is just readable there.
QColor CellPainter::faintColour(const CellStyle& style) const {
  constexpr QColor kOnLight(0x70, 0x70, 0x70);
  return style.hasColours ? kOnLight : appearance_.colours.faint;
}

// Set off from its paper as a text of its colour is.
void CellPainter::paintStripe(const CellStyle& style, const QRect& cell, int margin) {
  if (style.category == 0) return;
  const PackedColour colour = categoryColour(style.category);
  const QRect stripe(cell.left() + margin, cell.top(), kStripeWidth, cell.height());
  painter_.fillRect(stripe, colourOf(colour));
  const PackedColour edge = edgeFor(colour, style.backColour, kEdgeContrast).value_or(colour);
  painter_.fillRect(stripe.right(), stripe.top(), 1, stripe.height(), colourOf(edge));
}

void CellPainter::paintText(const QString& text, const SharedStyle& shared, const QRect& cell,
                            const QColor& edge) {
  const QRect room = textRoom(cell, *shared.style);
  if (room.width() <= 0) return;
  const LaidOutText& laidOut = texts_.layOut(
      {text, shared.font, room.width(), room.height(), shared.align, shared.style->wrap});
  texts_.draw(painter_, laidOut, room, shared.align, edge);
}

void CellPainter::paintLines(const std::vector<Span>& cols, const std::vector<Span>& rows) {
  if (cols.empty() || rows.empty()) return;
  const QRect area(QPoint(cols.front().start, rows.front().start),
                   QPoint(cols.back().end() - 1, rows.back().end() - 1));
  const QColor& line = appearance_.colours.line;
  for (const Span& row : rows) painter_.fillRect(area.left(), row.end() - 1, area.width(), 1, line);
  for (const Span& col : cols) painter_.fillRect(col.end() - 1, area.top(), 1, area.height(), line);
}

// The right and lower edges lie on the cell's grid lines, the others on its neighbours'; at the
// sheet's own edge they lie inside. As with texts, black is the skin's text colour.
void CellPainter::paintBorder(const Bordered& bordered) {
  const QRect cell = bordered.cell;
  const int width = bordered.style->borderWidth;
  const PackedColour given = bordered.style->borderColour;
  const QColor colour = given == kBlack ? appearance_.colours.text : colourOf(given);
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
  painter.fillRect(QRect(QPoint(), size), appearance.colours.paper);
  paintArea(painter, scrolledCols, scrolledRows, {bandX, bandY, width - bandX, height - bandY});
  paintArea(painter, scrolledCols, frozenRows, {bandX, 0, width - bandX, bandY});
  paintArea(painter, frozenCols, scrolledRows, {0, bandY, bandX, height - bandY});
  paintArea(painter, frozenCols, frozenRows, {0, 0, bandX, bandY});
}

void SurfacePainter::paintArea(QPainter& painter, const std::vector<Span>& areaCols,
                               const std::vector<Span>& areaRows, const QRect& clip) const {
  if (clip.isEmpty() || areaCols.empty() || areaRows.empty()) return;
  painter.setClipRect(clip);
  CellPainter cells(painter, sheet, appearance, texts);
  const bool isFrameEnough = selected.isOneCell() && selected.contains(current);
  cells.setSelection(isFrameEnough ? CellRange() : selected, current);
  cells.paint(areaCols, areaRows);
  paintNotes(painter, areaCols, areaRows);
  paintMarkedColumn(painter, areaCols, clip);
  paintMarkedRows(painter, areaCols, areaRows);
  paintFrame(painter, clip);
}

// A folded corner.
void SurfacePainter::paintNotes(QPainter& painter, const std::vector<Span>& areaCols,
                                const std::vector<Span>& areaRows) const {
  constexpr int kCorner = 10;  // pixels
  if (areaRows.front().section != 0) return;
  const Span& row = areaRows.front();
  for (const Span& col : areaCols) {
    if (appearance.noteAt(col.section, 0).isEmpty()) continue;
    const QPoint corner(col.end() - 1, row.start);
    painter.setPen(Qt::NoPen);
    painter.setBrush(appearance.colours.current);
    painter.drawPolygon(
        QPolygon({corner, corner - QPoint(kCorner, 0), corner + QPoint(0, kCorner)}));
  }
}

// A ring around the column; its heading has the colour as its paper.
void SurfacePainter::paintMarkedColumn(QPainter& painter, const std::vector<Span>& areaCols,
                                       const QRect& clip) const {
  for (const Span& col : areaCols) {
    if (col.section != appearance.markedCol) continue;
    const bool hasEnd = rows.has(sheet.Rows() - 1) && clip.top() > 0;
    const int bottom = rows.has(sheet.Rows() - 1) ? rows.spanOf(sheet.Rows() - 1).end() : 0;
    const int end = std::min(clip.bottom() + 1, bottom);
    const QColor& colour = appearance.colours.today;
    painter.fillRect(col.start, clip.top(), kRing, end - clip.top(), colour);
    painter.fillRect(col.end() - 1 - kRing, clip.top(), kRing, end - clip.top(), colour);
    if (hasEnd) painter.fillRect(col.start, bottom - 1 - kRing, col.size - 1, kRing, colour);
  }
}

// On the first column, so that the bar scrolls with it.
void SurfacePainter::paintMarkedRows(QPainter& painter, const std::vector<Span>& areaCols,
                                     const std::vector<Span>& areaRows) const {
  if (areaCols.front().section != 0) return;
  for (const Span& row : areaRows) {
    if (!appearance.markOf(row.section)) continue;
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
  drawEdges(painter, frame & clip.adjusted(0, 0, 1, 1), hasFocus ? kMark : 1,
            appearance.colours.current);
}

}  // namespace vellora
