// How a GridSurface lies in its viewport and is painted.

#include "grid/surface/grid_surface_parts.h"
#include "grid/surface/surface_painter.h"

#include <QHelpEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>

namespace vellora {
namespace {

QRect wholeCell(const FrozenAxis& cols, const FrozenAxis& rows, CellPlace cell) {
  const Span col = cols.spanOf(cell.col);
  const Span row = rows.spanOf(cell.row);
  return {col.start, row.start, col.size, row.size};
}

// A tool tip wraps only rich text, and laying out a book would stall the window.
QString toolTipOf(const QString& text) {
  const QString shown = text.size() > kMostDrawn ? text.left(kMostDrawn) + u'…' : text;
  return u"<p style=\"white-space:pre-wrap\">"_qs + shown.toHtmlEscaped() + u"</p>"_qs;
}

}  // namespace

QRect GridSurface::visualRect(const QModelIndex& index) const {
  if (!index.isValid() || index.model() != &parts_->model) return {};
  return wholeCell(parts_->cols, parts_->rows, placeOf(index)).adjusted(0, 0, -1, -1);
}

QModelIndex GridSurface::indexAt(const QPoint& point) const {
  return parts_->indexOf(parts_->cellAt(point));
}

void GridSurface::scrollTo(const QModelIndex& index, ScrollHint /*hint*/) {
  if (!index.isValid()) return;
  executeDelayedItemsLayout();
  const QSize room = viewport()->size();
  horizontalScrollBar()->setValue(parts_->cols.offsetShowing(index.column(), room.width()));
  verticalScrollBar()->setValue(parts_->rows.offsetShowing(index.row(), room.height()));
}

// Whole: what is painted is kept laid out, and frozen bands make exact regions dear.
QRegion GridSurface::visualRegionForSelection(const QItemSelection& selection) const {
  return selection.isEmpty() ? QRegion() : QRegion(viewport()->rect());
}

void GridSurface::scrollContentsBy(int dx, int dy) {
  QTableView::scrollContentsBy(dx, dy);
  viewport()->update();
}

void GridSurface::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  if (parts_) parts_->sizes.applyWidths(sheet());
}

void GridSurface::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  if (!parts_) return;
  if (event->type() == QEvent::PaletteChange && !parts_->hasSkin) {
    parts_->look.colours = coloursOf(palette());
  }
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
    parts_->texts.clear();
    parts_->showChangesLater();
  }
}

void GridSurface::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  painter.setClipRegion(event->region());
  const SurfacePainter surface{
      sheet(),       parts_->look,       parts_->cols,       parts_->rows,
      parts_->texts, viewport()->size(), parts_->selected(), parts_->current(),
      hasFocus()};
  surface.paint(painter);
  if (parts_->shownRevision != sheet().revision()) parts_->showChangesLater();
}

int GridSurface::sizeHintForColumn(int column) const {
  const int height = viewport()->height();
  int widest = 0;
  auto spans = parts_->rows.frozenSpans(height);
  const auto scrolled = parts_->rows.scrolledSpans(height);
  spans.insert(spans.end(), scrolled.begin(), scrolled.end());
  for (const Span& row : spans) {
    const int font = parts_->texts.numberOf(sheet().StyleAt(column, row.section).font);
    widest = std::max(widest, parts_->texts.naturalWidth(GetCellText(column, row.section), font));
  }
  const QRect probe(0, 0, 100, 100);
  return widest + probe.width() - textRoom(probe).width();
}

int GridSurface::sizeHintForRow(int row) const {
  int highest = 0;
  for (int col = 0; col < Cols(); ++col) {
    const QRect cell(0, 0, columnWidth(col), rowHeight(row));
    const auto request =
        textRequest(parts_->texts, sheet().StyleAt(col, row), GetCellText(col, row), cell);
    highest = std::max(highest,
                       parts_->texts.lineCount(request) * parts_->texts.lineHeight(request.font));
  }
  return highest + 3;
}

// What a cell cannot show: what its row is marked for, and the whole of a text that is cut.
QString GridSurface::Parts::hintAt(CellPlace cell, const QRect& rect) {
  QStringList hints;
  const RowMark* mark = cell.col == 0 ? look.markOf(cell.row) : nullptr;
  if (mark) hints << mark->meaning;
  const auto request = textRequest(texts, book.sheet().StyleAt(cell.col, cell.row),
                                   book.sheet().GetCellText(cell.col, cell.row), rect);
  if (texts.layOut(request).isCut) {
    hints << model.data(indexOf(cell), Qt::DisplayRole).toString();
  }
  return hints.isEmpty() ? QString() : toolTipOf(hints.join(u'\n'));
}

bool GridSurface::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QTableView::viewportEvent(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  const CellPlace cell = parts_->cellAt(help->pos());
  if (cell.isNone()) return QTableView::viewportEvent(event);
  const QRect rect = wholeCell(parts_->cols, parts_->rows, cell);
  QToolTip::showText(help->globalPos(), parts_->hintAt(cell, rect), viewport(), rect);
  return true;
}

}  // namespace vellora
