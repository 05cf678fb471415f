// What the user puts into the cells of a GridSurface: typed, pasted and emptied.

#include "grid/surface/cell_editor.h"
#include "grid/surface/clipboard_text.h"
#include "grid/surface/grid_surface_parts.h"

#include <QClipboard>
#include <QGuiApplication>

namespace vellora {

CellEditor* GridSurface::Parts::editor() const {
  return qobject_cast<CellEditor*>(grid.indexWidget(grid.currentIndex()));
}

CellEditor* GridSurface::Parts::openEditor(CellPlace cell) {
  return grid.edit(indexOf(cell), AllEditTriggers, nullptr) ? editor() : nullptr;
}

// A handler of the events on the way may have moved on, or changed the rows.
bool GridSurface::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
  const CellPlace cell = placeOf(index);
  const bool opens = index.isValid() && !parts_->isEditing() &&
                     (trigger == AllEditTriggers || trigger == AnyKeyPressed);
  if (!opens || !parts_->look.isOpen(cell.col, cell.row)) {
    return QTableView::edit(index, trigger, event);
  }
  if (parts_->current() != cell) parts_->makeCurrent(cell);
  parts_->edits.raise([&] { emit CellEditStart(cell.col, cell.row); });
  parts_->sync();
  if (parts_->current() != cell || parts_->isEditing()) return false;
  parts_->beginEntry(cell);
  return QTableView::edit(currentIndex(), trigger, event);
}

// Escape closes with the hint to take everything back.
void GridSurface::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
  if (hint == QAbstractItemDelegate::RevertModelCache) parts_->takeEntryBack();
  parts_->entry.isKept = false;
  QTableView::closeEditor(editor, hint);
  parts_->tellRefused();
}

void GridSurface::Parts::keepTypedText() {
  CellEditor* open = editor();
  if (!open) return;
  grid.commitData(open);
  if (refused > 0) grid.closeEditor(open, QAbstractItemDelegate::NoHint);
}

void GridSurface::Parts::beginEntry(CellPlace cell) {
  const Sheet& sheet = book.sheet();
  entry = {{sheet.GetCellText(cell.col, cell.row), sheet.CellTag(cell.col, cell.row)}, false};
}

void GridSurface::Parts::enter(CellPlace cell, const QString& text) {
  takeEntryBack();
  if (book.sheet().GetCellText(cell.col, cell.row) == text) return;
  const quint64 before = book.sheet().revision();
  edits.edit(u"输入"_qs, cell, [&](Sheet& sheet) {
    RangeEdit edit(sheet, {look, rule});
    edit.enter(cell, text);
    note(edit);
  });
  entry.isKept = isEditing() && book.sheet().revision() != before;
  if (!isEditing()) tellRefused();
  showChangesLater();
}

// Where the program changed something since, there is no step to take back.
void GridSurface::Parts::takeEntryBack() {
  if (!std::exchange(entry.isKept, false)) return;
  const CellPlace cell = current();
  if (!edits.takeBack()) {
    edits.edit(u"输入"_qs, cell, [&](Sheet& sheet) {
      sheet.SetCellText(cell.col, cell.row, entry.before.text);
      sheet.SetCellTag(cell.col, cell.row, entry.before.tag);
    });
  }
  showChangesLater();
}

void GridSurface::Parts::note(const RangeEdit& edit) {
  if (refused == 0) firstRefused = edit.firstRefused();
  refused += edit.refused();
}

void GridSurface::Parts::tellRefused() {
  if (const int count = std::exchange(refused, 0)) emit grid.EntriesRefused(count, firstRefused);
}

// On a copy of the sheet: the grid goes on being painted while its user waits.
void GridSurface::Parts::edited(const QString& name, const Change& change) {
  if (!look.isEditable || current().isNone()) return;
  Sheet sheet = book.sheet();
  try {
    runWork(&grid, [&](const WorkProgress& progress) {
      RangeEdit edit(sheet, {look, rule, growsOnPaste}, progress);
      change(edit, progress);
      note(edit);
    });
  } catch (const WorkGivenUp&) {
    return;
  }
  edits.edit(name, current(), [&](Sheet& shown) { shown = sheet; });
  showChanges();
  tellRefused();
}

void GridSurface::Parts::copy() const {
  const CellRange range = selected();
  if (range.isEmpty()) return;
  QGuiApplication::clipboard()->setMimeData(new CopiedCells(book.sheet(), range));
}

void GridSurface::Parts::cut() {
  if (!look.isEditable) return;
  copy();
  emptySelection(u"剪切"_qs);
}

void GridSurface::Parts::empty() {
  emptySelection(u"清除"_qs);
}

void GridSurface::Parts::emptySelection(const QString& name) {
  edited(name, [range = selected()](RangeEdit& edit, const WorkProgress&) { edit.empty(range); });
}

bool GridSurface::Parts::isAnyOpen(const CellRange& range) const {
  bool isOpen = false;
  for (int col = range.col1; col <= range.col2; ++col) {
    isOpen = isOpen || look.isOpen(col, range.row2);
  }
  return isOpen;
}

bool GridSurface::Parts::canPaste() const {
  const QMimeData* data = look.isEditable && !selected().isEmpty() ? clipboardData() : nullptr;
  return data && (data->hasText() || data->hasHtml());
}

// Other programs change the clipboard while its content is pasted.
void GridSurface::Parts::paste() {
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
  if (lostRows > 0 || lostCols > 0) emit grid.PasteCut(lostRows, lostCols);
}

void GridSurface::Parts::duplicateRow() {
  edits.edit(u"重复本行"_qs, current(), [this](Sheet&) { emit grid.RowDuplicate(current().row); });
  showChanges();
}

}  // namespace vellora
