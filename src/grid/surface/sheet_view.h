#pragma once

#include "grid/surface/cell_drag.h"
#include "grid/surface/cell_range.h"
#include "grid/surface/frozen_axis.h"
#include "grid/surface/header_sizes.h"
#include "grid/surface/sheet_edits.h"
#include "grid/surface/sheet_model.h"
#include "grid/surface/text_layouts.h"

#include <QBasicTimer>
#include <QTableView>
#include <QTimer>

namespace vellora {

// Shows the current sheet of a workbook: its cells in the skin's colours, the first rows and
// columns kept in view, the current cell, the selection and sizes that the mouse drags.
// Programmatic changes are shown together at the next Redraw() or when control returns to the event
// loop, whichever comes first.
class SheetView : public QTableView {
  Q_OBJECT

 public:
  ~SheetView() override;

  // The workbook shown. Rules may change it directly; call Redraw() afterwards.
  Workbook& workbook() { return book_; }
  const Workbook& workbook() const { return book_; }
  Sheet& sheet() { return book_.sheet(); }
  const Sheet& sheet() const { return book_.sheet(); }

  int Cols() const { return sheet().Cols(); }
  int Rows() const { return sheet().Rows(); }
  void SetCols(int count);
  void SetRows(int count);
  void InsertRows(int row, int count);
  // The current cell stays at its row's index when its row is deleted.
  void DeleteRows(int row, int count);
  // −1 where there is no current cell.
  int CurrentRow() const;
  void SetCurrentCell(int col, int row);
  void Redraw();
  // Off: nothing is repainted until it is on again.
  void SetRedrawSwitch(bool on) { setUpdatesEnabled(on); }
  void Focus() { setFocus(Qt::OtherFocusReason); }

  // Named switches in place of the display properties.
  void setHeadingStripVisible(bool on) { colHeader_.setVisible(on); }
  void setRowNumbersVisible(bool on) { rowHeader_.setVisible(on); }
  // Keeps the first rows and columns in view while the rest scrolls; they also serve as headings
  // for assistive tools. Made for grids without strips, which do not follow.
  void setFrozen(int cols, int rows);
  // Columns without a width of their own share what is left of the grid's width.
  void setSharesWidth(bool on);
  // Rows below the first so many without a height of their own share what is left of the height.
  void setSharesHeight(int firstRow);
  // Shows texts and sizes this many times as large.
  void setZoom(qreal zoom);
  qreal zoom() const { return zoom_; }
  void setColours(const GridColours& colours);
  // Null for none. It must outlive the view or be taken away.
  void setCellDrag(CellDragHandler* handler) { cellDrag_ = handler; }
  // Sets one column apart (its frozen heading and its edges) without touching its cells' colours;
  // −1 for none.
  void markColumn(int col);
  // Marks cells of the first row, by column, with a corner; the notes are shown over them and read
  // by assistive tools.
  void setHeadingNotes(std::map<int, QString> notes);
  // Sets rows, in ascending order, apart by a bar at their left end; the meanings are read by
  // assistive tools and shown over the bars. The marks do not move with their rows.
  void markRows(std::vector<RowMark> marks);
  // What to do, in grey, where no cell below the headings has a text.
  void setEmptyHint(const QString& hint) { emptyHint_ = hint; }
  // A column in which "0" is drawn faintly, as nothing that matters.
  void setFaintZeros(int col) { appearance_.faintZeros = col; }
  const std::vector<RowMark>& markedRows() const { return appearance_.markedRows; }

  QRect visualRect(const QModelIndex& index) const override;
  QModelIndex indexAt(const QPoint& point) const override { return indexOf(cellAt(point)); }
  void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

 signals:
  void CellEntered(int previousRow, int row);
  void CellClick(int col, int row);

 protected:
  explicit SheetView(QWidget* parent);

  // The double-clicked cell is to be typed into.
  virtual void openCell(CellPlace cell) = 0;

  // Tells the views how many rows and columns there are now. A current cell that is gone leaves
  // none.
  void sync();
  // Shows pending changes of the sheet: counts, sizes, and everything painted, once.
  void showChanges();
  // Shows them when control returns to the event loop.
  void showChangesLater();
  // The sheet, for a change that is shown later.
  Sheet& changing();

  CellPlace current() const { return placeOf(currentIndex()); }
  void makeCurrent(CellPlace place);
  // The rectangle of selected cells, or the current cell.
  CellRange selected() const;
  void extendSelection(CellPlace corner);
  // The corner of the selection that Shift moves: the one opposite to the current cell.
  CellPlace movingCorner() const;
  int rowsPerPage() const;
  QModelIndex indexOf(CellPlace place) const { return model_.index(place.row, place.col); }
  CellPlace cellAt(QPoint point) const {
    return {cols_.sectionAt(point.x()), rows_.sectionAt(point.y())};
  }
  bool has(CellPlace place) const { return cols_.has(place.col) && rows_.has(place.row); }
  bool isEditing() const { return state() == EditingState; }
  // True when a cell was being dragged.
  bool cancelCellDrag();

  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
  void dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                   const QList<int>& roles) override;
  QRegion visualRegionForSelection(const QItemSelection& selection) const override;
  int sizeHintForColumn(int column) const override;
  int sizeHintForRow(int row) const override;
  void scrollContentsBy(int dx, int dy) override;
  bool viewportEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void timerEvent(QTimerEvent* event) override;

 private:
  Workbook book_;
  mutable TextLayouts texts_;

 protected:
  GridAppearance appearance_;
  SheetEdits edits_{book_};
  SheetModel model_{book_, appearance_};

 private:
  QHeaderView& addHeader(Qt::Orientation orientation);
  // A size is no edit of the content.
  void writeSize(void (Sheet::*set)(int, int), int section, int size);
  void enterRow(int previousRow, int row);
  CellPlace loseCurrentIn(int firstRow, int lastRow);
  void dragCell(const QMouseEvent& event);
  QString hintAt(CellPlace cell, const QRect& rect) const;
  bool isEmpty() const;
  void paintEmptyHint(QPainter& painter) const;

  QHeaderView& colHeader_;
  QHeaderView& rowHeader_;
  FrozenAxis cols_{colHeader_};
  FrozenAxis rows_{rowHeader_};
  HeaderSizes sizes_;
  EdgeDrag edgeDrag_{colHeader_, rowHeader_, cols_, rows_};
  QTimer later_;
  quint64 shownRevision_ = 0;
  qreal zoom_ = 1;
  QString emptyHint_;
  bool hasSkin_ = false;
  bool isQuiet_ = false;  // the current cell moves without CellEntered

  // Where the left button went down; a click as long as the mouse stays there.
  CellPlace pressed_;
  bool isClick_ = false;
  // Where it last did, which is the first half of a double click.
  CellPlace lastPressed_;
  QBasicTimer dragScroll_;
  CellDragHandler* cellDrag_ = nullptr;
  bool isCellDragged_ = false;
  QBasicTimer beyondEdge_;  // runs while a dragged cell is near the left or the right edge
};

}  // namespace vellora
