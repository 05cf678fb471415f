#include "grid/surface/sheet_view.h"

#include "grid/surface/heading_strip.h"
#include "grid/surface/surface_painter.h"
#include "routine/category.h"

#include <QAbstractButton>
#include <QHelpEvent>
#include <QPainter>
#include <QScopedValueRollback>
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

SheetView::SheetView(QWidget* parent)
    : QTableView(parent),
      colHeader_(addHeader(Qt::Horizontal)),
      rowHeader_(addHeader(Qt::Vertical)),
      sizes_(*this) {
  rowHeader_.hide();
  if (auto* corner = findChild<QAbstractButton*>()) corner->setAccessibleName(u"全选"_qs);
  later_.setSingleShot(true);
  connect(&later_, &QTimer::timeout, this, &SheetView::showChanges);
  connect(&sizes_, &HeaderSizes::columnDragged, this,
          [this](int col, int width) { writeSize(&Sheet::SetColumnWidth, col, width); });
  connect(&sizes_, &HeaderSizes::rowDragged, this,
          [this](int row, int height) { writeSize(&Sheet::SetRowHeight, row, height); });
  setModel(&model_);
  setLayoutDirection(Qt::LeftToRight);
  setSelectionMode(ContiguousSelection);
  setHorizontalScrollMode(ScrollPerPixel);
  setVerticalScrollMode(ScrollPerPixel);
  setWordWrap(false);
  viewport()->setMouseTracking(true);
  appearance_.colours = coloursOf(palette());
  showChanges();
}

// The view lets go of its model before that goes.
SheetView::~SheetView() {
  setModel(nullptr);
}

QHeaderView& SheetView::addHeader(Qt::Orientation orientation) {
  auto* header = new HeadingStrip(orientation, book_, appearance_, texts_);
  if (orientation == Qt::Horizontal) {
    setHorizontalHeader(header);
  } else {
    setVerticalHeader(header);
  }
  return *header;
}

void SheetView::SetCols(int count) {
  changing().SetCols(count);
  sync();
}

void SheetView::SetRows(int count) {
  changing().SetRows(count);
  sync();
}

void SheetView::InsertRows(int row, int count) {
  sync();
  const int before = Rows();
  changing().InsertRows(row, count);
  if (Rows() > before) model_.announceInserted(row, Rows() - before);
}

void SheetView::DeleteRows(int row, int count) {
  sync();
  const int before = Rows();
  changing().DeleteRows(row, count);
  if (Rows() == before) return;
  const CellPlace lost = loseCurrentIn(row, row + before - Rows() - 1);
  model_.announceRemoved(row, before - Rows());
  if (lost.isNone()) return;
  const CellPlace next{lost.col, std::min(lost.row, model_.rowCount() - 1)};
  {
    const QScopedValueRollback quiet(isQuiet_, true);
    if (next.row >= 0) makeCurrent(next);
  }
  if (next.row != lost.row) enterRow(lost.row, next.row);
}

int SheetView::CurrentRow() const {
  const int row = current().row;
  return row < Rows() ? row : -1;
}

void SheetView::SetCurrentCell(int col, int row) {
  showChanges();
  if (has({col, row})) {
    makeCurrent({col, row});
  } else {
    selectionModel()->clear();
  }
}

void SheetView::Redraw() {
  shownRevision_ = 0;
  showChanges();
  viewport()->update();
}

void SheetView::setFrozen(int cols, int rows) {
  appearance_.frozenCols = std::max(cols, 0);
  appearance_.frozenRows = std::max(rows, 0);
  cols_.setFrozen(cols);
  rows_.setFrozen(rows);
  viewport()->update();
}

void SheetView::setSharesWidth(bool on) {
  sizes_.setSharesWidth(on);
  showChangesLater();
}

void SheetView::setSharesHeight(int firstRow) {
  sizes_.setSharesHeight(firstRow);
  showChangesLater();
}

void SheetView::setZoom(qreal zoom) {
  if (zoom == zoom_) return;
  zoom_ = zoom;
  texts_.setScale(zoom);
  sizes_.setScale(zoom);
  showChanges();
  viewport()->update();
}

void SheetView::setColours(const GridColours& colours) {
  appearance_.colours = colours;
  hasSkin_ = true;
  viewport()->update();
  QPalette headings = palette();
  for (const auto role : {QPalette::Button, QPalette::Window}) {
    headings.setColor(role, colours.headingPaper);
  }
  colHeader_.setPalette(headings);
  rowHeader_.setPalette(headings);
}

void SheetView::markColumn(int col) {
  appearance_.markedCol = col;
  viewport()->update();
}

void SheetView::setHeadingNotes(std::map<int, QString> notes) {
  appearance_.headingNotes = std::move(notes);
  viewport()->update();
}

void SheetView::markRows(std::vector<RowMark> marks) {
  appearance_.markedRows = std::move(marks);
  viewport()->update();
}

void SheetView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  viewport()->update();
  if (previous.row() != current.row() && !isQuiet_) enterRow(previous.row(), current.row());
}

void SheetView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  QTableView::selectionChanged(selected, deselected);
  viewport()->update();
}

// A cell that is being typed into keeps what was typed so far.
void SheetView::dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                            const QList<int>& roles) {
  if (!isEditing()) QTableView::dataChanged(topLeft, bottomRight, roles);
  viewport()->update();
}

void SheetView::writeSize(void (Sheet::*set)(int, int), int section, int size) {
  edits_.raise([&] { (sheet().*set)(section, size); });
  showChangesLater();
  viewport()->update();
}

void SheetView::sync() {
  const CellPlace lost = loseCurrentIn(sheet().Rows(), model_.rowCount() - 1);
  model_.sync();
  if (!lost.isNone()) enterRow(lost.row, -1);
}

// Where the current cell was, if it was in these rows: Qt would choose another row by itself.
CellPlace SheetView::loseCurrentIn(int firstRow, int lastRow) {
  const CellPlace place = current();
  if (place.isNone() || place.row < firstRow || place.row > lastRow) return {};
  const QScopedValueRollback quiet(isQuiet_, true);
  selectionModel()->clear();
  return place;
}

void SheetView::enterRow(int previousRow, int row) {
  edits_.raise([&] { emit CellEntered(previousRow, row); });
}

void SheetView::showChanges() {
  later_.stop();
  sizes_.applyDefaultHeight(sheet());
  sync();
  sizes_.apply(sheet());
  if (shownRevision_ == sheet().revision()) return;
  shownRevision_ = sheet().revision();
  model_.announceChanged();
  if (!emptyHint_.isEmpty()) setAccessibleDescription(isEmpty() ? emptyHint_ : QString());
}

void SheetView::showChangesLater() {
  if (!later_.isActive()) later_.start(0);
}

Sheet& SheetView::changing() {
  showChangesLater();
  return sheet();
}

void SheetView::makeCurrent(CellPlace place) {
  selectionModel()->setCurrentIndex(indexOf(place), QItemSelectionModel::ClearAndSelect);
}

CellRange SheetView::selected() const {
  const QItemSelection selection = selectionModel()->selection();
  if (!selection.isEmpty()) return CellRange::of(selection.front());
  const CellPlace cell = current();
  return cell.isNone() ? CellRange() : CellRange::between(cell, cell);
}

void SheetView::extendSelection(CellPlace corner) {
  if (current().isNone()) return makeCurrent(corner);
  const CellRange range = CellRange::between(current(), corner);
  selectionModel()->select(
      QItemSelection(indexOf({range.col1, range.row1}), indexOf({range.col2, range.row2})),
      QItemSelectionModel::ClearAndSelect);
  scrollTo(indexOf(corner));
}

CellPlace SheetView::movingCorner() const {
  const CellRange range = selected();
  const CellPlace cell = current();
  if (!range.contains(cell)) return cell;
  return {cell.col == range.col1 ? range.col2 : range.col1,
          cell.row == range.row1 ? range.row2 : range.row1};
}

int SheetView::rowsPerPage() const {
  const int room = viewport()->height() - rows_.band();
  return std::max(1, room / std::max(1, verticalHeader()->defaultSectionSize()) - 1);
}

QRect SheetView::visualRect(const QModelIndex& index) const {
  if (!index.isValid() || index.model() != &model_) return {};
  return wholeCell(cols_, rows_, placeOf(index)).adjusted(0, 0, -1, -1);
}

void SheetView::scrollTo(const QModelIndex& index, ScrollHint /*hint*/) {
  if (!index.isValid()) return;
  executeDelayedItemsLayout();
  const QSize room = viewport()->size();
  horizontalScrollBar()->setValue(cols_.offsetShowing(index.column(), room.width()));
  verticalScrollBar()->setValue(rows_.offsetShowing(index.row(), room.height()));
}

// Whole: what is painted is kept laid out, and frozen bands make exact regions dear.
QRegion SheetView::visualRegionForSelection(const QItemSelection& selection) const {
  return selection.isEmpty() ? QRegion() : QRegion(viewport()->rect());
}

void SheetView::scrollContentsBy(int dx, int dy) {
  QTableView::scrollContentsBy(dx, dy);
  viewport()->update();
}

void SheetView::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  sizes_.apply(sheet());
}

void SheetView::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && !hasSkin_) {
    appearance_.colours = coloursOf(palette());
  }
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
    texts_.clear();
    showChangesLater();
  }
}

void SheetView::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  painter.setClipRegion(event->region());
  const SurfacePainter surface{sheet(),    appearance_, cols_,
                               rows_,      texts_,      viewport()->size(),
                               selected(), current(),   hasFocus()};
  surface.paint(painter);
  if (!emptyHint_.isEmpty() && isEmpty()) paintEmptyHint(painter);
  if (shownRevision_ != sheet().revision()) showChangesLater();
}

bool SheetView::isEmpty() const {
  const int rows = sheet().Rows();
  for (int row = sheet().NextWrittenRow(appearance_.frozenRows); row < rows;
       row = sheet().NextWrittenRow(row + 1)) {
    for (int col = 0; col < Cols(); ++col) {
      if (!sheet().GetCellText(col, row).isEmpty()) return false;
    }
  }
  return true;
}

// Below the first rows, where typing begins.
void SheetView::paintEmptyHint(QPainter& painter) const {
  constexpr int kMargin = 24;  // pixels
  const QRect room = viewport()->rect().adjusted(kMargin, 0, -kMargin, 0);
  painter.setClipping(false);
  painter.setPen(palette().color(QPalette::PlaceholderText));
  painter.setFont(font());
  painter.drawText(room, Qt::AlignCenter | Qt::TextWordWrap, emptyHint_);
}

int SheetView::sizeHintForColumn(int column) const {
  const int height = viewport()->height();
  int widest = 0;
  auto spans = rows_.frozenSpans(height);
  const auto scrolled = rows_.scrolledSpans(height);
  spans.insert(spans.end(), scrolled.begin(), scrolled.end());
  for (const Span& row : spans) {
    const int font = texts_.numberOf(sheet().StyleAt(column, row.section).font);
    widest = std::max(widest, texts_.naturalWidth(sheet().GetCellText(column, row.section), font));
  }
  const QRect probe(0, 0, 100, 100);
  return widest + probe.width() - textRoom(probe, CellStyle()).width();
}

int SheetView::sizeHintForRow(int row) const {
  int highest = 0;
  for (int col = 0; col < Cols(); ++col) {
    const QRect cell(0, 0, columnWidth(col), rowHeight(row));
    const auto request =
        textRequest(texts_, sheet().StyleAt(col, row), sheet().GetCellText(col, row), cell);
    highest = std::max(highest, texts_.lineCount(request) * texts_.lineHeight(request.font));
  }
  return highest + 3;
}

// What a cell cannot show: what its row is marked for, and the whole of a text that is cut.
QString SheetView::hintAt(CellPlace cell, const QRect& rect) const {
  QStringList hints;
  const RowMark* mark = cell.col == 0 ? appearance_.markOf(cell.row) : nullptr;
  if (mark) hints << mark->meaning;
  const auto request = textRequest(texts_, sheet().StyleAt(cell.col, cell.row),
                                   sheet().GetCellText(cell.col, cell.row), rect);
  const QString note = appearance_.noteAt(cell.col, cell.row);
  if (!note.isEmpty()) hints << note;
  const int category = sheet().StyleAt(cell.col, cell.row).category;
  if (category > 0) hints << categoryHint(category - 1);
  if (texts_.layOut(request).isCut) {
    hints << model_.data(indexOf(cell), Qt::DisplayRole).toString();
  }
  return hints.isEmpty() ? QString() : toolTipOf(hints.join(u'\n'));
}

bool SheetView::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QTableView::viewportEvent(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  const CellPlace cell = cellAt(help->pos());
  if (cell.isNone()) return QTableView::viewportEvent(event);
  const QRect rect = wholeCell(cols_, rows_, cell);
  QToolTip::showText(help->globalPos(), hintAt(cell, rect), viewport(), rect);
  return true;
}

}  // namespace vellora
