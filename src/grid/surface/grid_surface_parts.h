#pragma once

#include "grid/surface/cell_editor.h"
#include "grid/surface/frozen_axis.h"
#include "grid/surface/grid_commands.h"
#include "grid/surface/grid_surface.h"
#include "grid/surface/header_sizes.h"
#include "grid/surface/range_edit.h"
#include "grid/surface/sheet_edits.h"
#include "grid/surface/sheet_model.h"
#include "grid/surface/text_layouts.h"

#include <QBasicTimer>
#include <QTimer>

namespace vellora {

class CellEditor;

// What a GridSurface consists of, and the steps that several of its events share.
class GridSurface::Parts {
 public:
  explicit Parts(GridSurface& surface);

  // Tells the views how many rows and columns there are now. A current cell that is gone leaves
  // none.
  void sync();
  void rowsInserted(int row, int count);
  // The current cell stays at its row's index when its row is deleted.
  void rowsDeleted(int row, int count);
  // Shows pending changes of the sheet: counts, sizes, and everything painted, once.
  void showChanges();
  // Shows them when control returns to the event loop.
  void showChangesLater();

  CellPlace current() const { return placeOf(grid.currentIndex()); }
  void makeCurrent(CellPlace place);
  // Raises CellEntered.
  void entered(int previousRow, int row);
  void dropCurrent();
  // The rectangle of selected cells, or the current cell.
  CellRange selected() const;
  void extendSelection(CellPlace corner);
  // The corner of the selection that Shift moves: the one opposite to the current cell.
  CellPlace movingCorner() const;
  int rowsPerPage() const;
  QModelIndex indexOf(CellPlace place) const { return model.index(place.row, place.col); }
  CellPlace cellAt(QPoint point) const {
    return {cols.sectionAt(point.x()), rows.sectionAt(point.y())};
  }

  QString hintAt(CellPlace cell, const QRect& rect);

  bool isEditing() const { return grid.state() == EditingState; }
  // Null while no cell is being typed into.
  CellEditor* editor() const;
  // Makes the cell current and opens it; null where it does not open.
  CellEditor* openEditor(CellPlace cell);
  // For keys that do something else while a cell is open; a text that is refused closes it.
  void keepTypedText();
  void beginEntry(CellPlace cell);
  void enter(CellPlace cell, const QString& text);
  void takeEntryBack();
  // Raises EntriesRefused for what was refused since the last time.
  void tellRefused();
  // One step of the user's, which may take long: it is given up whole.
  using Change = std::function<void(RangeEdit&, const WorkProgress&)>;
  void edited(const QString& name, const Change& change);
  void undo();
  void redo();
  void copy() const;
  void cut();
  void paste();
  void empty();
  void duplicateRow();
  void print();

  GridCommands commands();
  // Whether the user may change a cell of the range.
  bool isAnyOpen(const CellRange& range) const;
  bool canPaste() const;
  bool canDuplicate() const;
  // True when the open cell has got the key.
  bool passToEditor(QKeyEvent& event);
  bool useCommandKey(const QKeyEvent& event);
  bool useMoveKey(const QKeyEvent& event);
  bool useEditKey(QKeyEvent& event);
  bool moveBy(int key, Qt::KeyboardModifiers modifiers);
  bool leaveBy(int key, Qt::KeyboardModifiers modifiers);

  GridSurface& grid;
  Workbook book;
  GridLook look;
  SheetEdits edits{book};
  TextLayouts texts;
  SheetModel model;
  CellDelegate delegate;
  FrozenAxis cols;
  FrozenAxis rows;
  HeaderSizes sizes;
  EdgeDrag edgeDrag;
  QTimer later;
  quint64 shownRevision = 0;
  bool hasSkin = false;
  bool isPassing = false;  // a key is with the open cell's editor
  bool isQuiet = false;    // the current cell moves without CellEntered
  EntryRule rule;
  bool growsOnPaste = false;
  std::function<QString()> documentName = [] { return QString(); };
  WorkRunner runWork = runUntold;

  // Cells of the last CopySelection.
  Sheet copied;
  CellRange copiedRange;

  // What the open cell held when it was opened. A part of its text that was kept meanwhile is one
  // step with the rest.
  struct Entry {
    CellEntry before;
    bool isKept = false;
  };
  Entry entry;
  int refused = 0;
  QString firstRefused;

  // Where the left button went down; a click as long as the mouse stays there.
  CellPlace pressed;
  bool isClick = false;
  // Where it last did, which is the first half of a double click.
  CellPlace lastPressed;
  QBasicTimer dragScroll;

 private:
  void note(const RangeEdit& edit);
  void emptySelection(const QString& name);
  void setUpHeaders();
  void writeSize(void (Sheet::*set)(int, int), int section, int size);
  void goTo(CellPlace place);
  CellPlace loseCurrentIn(int firstRow, int lastRow);
};

}  // namespace vellora
