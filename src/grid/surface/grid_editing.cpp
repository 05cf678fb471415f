// What the user puts into the cells of a GridSurface: typed, pasted and emptied.

#include "grid/surface/clipboard_text.h"
#include "grid/surface/grid_surface.h"

#include <QClipboard>
#include <QGuiApplication>

namespace vellora {

CellEditor* GridSurface::editor() const {
  return qobject_cast<CellEditor*>(indexWidget(currentIndex()));
}

void GridSurface::openCell(CellPlace cell) {
  const bool isOpen = edit(indexOf(cell), AllEditTriggers, nullptr);
  if (CellEditor* open = isOpen ? editor() : nullptr) open->moveCursor(QTextCursor::End);
}

// A handler of the events on the way may have moved on, or changed the rows.
bool GridSurface::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
  const CellPlace cell = placeOf(index);
  const bool opens =
      index.isValid() && !isEditing() && (trigger == AllEditTriggers || trigger == AnyKeyPressed);
  if (!opens || !appearance_.isOpen(cell.col, cell.row)) {
    return QTableView::edit(index, trigger, event);
  }
  if (current() != cell) makeCurrent(cell);
  edits_.raise([&] { emit CellEditStart(cell.col, cell.row); });
  sync();
  if (current() != cell || isEditing()) return false;
  entry_ = {{GetCellText(cell.col, cell.row), CellTag(cell.col, cell.row)}, false};
  return QTableView::edit(currentIndex(), trigger, event);
}

// Escape closes with the hint to take everything back.
void GridSurface::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
  if (hint == QAbstractItemDelegate::RevertModelCache) revertEntry();
  entry_.isKept = false;
  QTableView::closeEditor(editor, hint);
  reportRefused();
}

void GridSurface::keepTypedText() {
  CellEditor* open = editor();
  if (!open) return;
  commitData(open);
  if (refused_ > 0) closeEditor(open, QAbstractItemDelegate::NoHint);
}

void GridSurface::enter(CellPlace cell, const QString& text) {
  revertEntry();
  if (GetCellText(cell.col, cell.row) == text) return;
  const quint64 before = sheet().revision();
  edits_.edit(u"输入"_qs, cell, [&](Sheet& shown) {
    RangeEdit edit(shown, {appearance_, rule_});
    edit.enter(cell, text);
    note(edit);
  });
  entry_.isKept = isEditing() && sheet().revision() != before;
  if (!isEditing()) reportRefused();
  showChangesLater();
}

// Where the program changed something since, there is no step to take back.
void GridSurface::revertEntry() {
  if (!std::exchange(entry_.isKept, false)) return;
  const CellPlace cell = current();
  if (!edits_.revert()) {
    edits_.edit(u"输入"_qs, cell, [&](Sheet& shown) {
      shown.SetCellText(cell.col, cell.row, entry_.before.text);
      shown.SetCellTag(cell.col, cell.row, entry_.before.tag);
    });
  }
  showChangesLater();
}

void GridSurface::note(const RangeEdit& edit) {
  if (refused_ == 0) firstRefused_ = edit.firstRefused();
  refused_ += edit.refused();
}

void GridSurface::reportRefused() {
  if (const int count = std::exchange(refused_, 0)) emit EntriesRefused(count, firstRefused_);
}

// On a copy of the sheet: the grid goes on being painted while its user waits.
void GridSurface::edited(const QString& name, const Change& change) {
  if (!appearance_.isEditable || current().isNone()) return;
  Sheet changed = sheet();
  try {
    runWork_(this, [&](const WorkProgress& progress) {
      RangeEdit edit(changed, {appearance_, rule_, growsOnPaste_}, progress);
      change(edit, progress);
      note(edit);
    });
  } catch (const WorkCancelled&) {
    return;
  }
  edits_.edit(name, current(), [&](Sheet& shown) { shown = changed; });
  showChanges();
  reportRefused();
}

void GridSurface::copy() const {
  const CellRange range = selected();
  if (range.isEmpty()) return;
  QGuiApplication::clipboard()->setMimeData(new CopiedCells(sheet(), range));
}

void GridSurface::cut() {
  if (!appearance_.isEditable) return;
  copy();
  empty(u"剪切"_qs);
}

void GridSurface::empty(const QString& name) {
  edited(name, [range = selected()](RangeEdit& edit, const WorkProgress&) { edit.empty(range); });
}

bool GridSurface::isAnyOpen(const CellRange& range) const {
  bool isOpen = false;
  for (int col = range.col1; col <= range.col2; ++col) {
    isOpen = isOpen || appearance_.isOpen(col, range.row2);
  }
  return isOpen;
}

bool GridSurface::canPaste() const {
  if (!appearance_.isEditable || selected().isEmpty()) return false;
  const QMimeData* offered = clipboardData();
  return offered && (offered->hasText() || offered->hasHtml());
}

// Other programs change the clipboard while its content is pasted.
void GridSurface::paste() {
  if (!canPaste()) return;
  const CellRange range = selected();
  int lostRows = 0;
  int lostCols = 0;
  edited(u"粘贴"_qs, [&](RangeEdit& edit, const WorkProgress& progress) {
    if (const auto* own = qobject_cast<const CopiedCells*>(clipboardData())) {
      edit.pasteCells(range, Sheet(own->sheet()), CellRange(own->range()));
    } else {
      edit.pasteTexts(range, textsOf(*clipboardData(), progress));
    }
    lostRows = edit.lostRows();
    lostCols = edit.lostCols();
  });
  if (lostRows > 0 || lostCols > 0) emit PasteCut(lostRows, lostCols);
}

void GridSurface::duplicateRow() {
  edits_.edit(u"重复本行"_qs, current(), [this](Sheet&) { emit RowDuplicate(current().row); });
  showChanges();
}

}  // namespace vellora
