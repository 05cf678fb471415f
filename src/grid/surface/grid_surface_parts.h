#pragma once

#include "grid/surface/cell_delegate.h"
#include "grid/surface/edge_drag.h"
#include "grid/surface/frozen_axis.h"
#include "grid/surface/grid_commands.h"
#include "grid/surface/grid_surface.h"
#include "grid/surface/header_sizes.h"
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

  bool isEditing() const { return grid.state() == EditingState; }
  // Null while no cell is being typed into.
  CellEditor* editor() const;
  void keepTypedText();
  void edited(const QString& name, const std::function<void(Sheet&)>& change);
  void undo();
  void redo();
  void copy() const;
  void cut();
  void paste();
  void empty();
  void duplicateRow();
  void print();

  GridCommands commands();
  bool canPaste() const;
  bool canDuplicate() const;
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
  bool isQuiet = false;  // the current cell moves without CellEntered
  QString documentName;
  WorkRunner runWork = runUntold;

  // Cells of the last CopySelection.
  Sheet copied;
  CellRange copiedRange;

  // Where the left button went down; a click as long as the mouse stays there.
  CellPlace pressed;
  bool isClick = false;
  QBasicTimer dragScroll;

 private:
  void setUpHeaders();
  void writeSize(void (Sheet::*set)(int, int), int section, int size);
  void goTo(CellPlace place);
  CellPlace loseCurrentIn(int firstRow, int lastRow);
};

}  // namespace vellora
