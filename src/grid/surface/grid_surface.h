#pragma once

#include "grid/print/print_preview.h"
#include "grid/sheet/workbook.h"
#include "grid/surface/grid_look.h"
#include "grid/surface/range_edit.h"
#include "routine/work_step.h"

#include <QTableView>

#include <memory>
#include <vector>

class QKeyEvent;

namespace vellora {

// The spreadsheet that every window draws on: shows the current sheet of a workbook and offers the
// planner's grid operations and events by their names. Programmatic changes are shown together at
// the next Redraw() or when control returns to the event loop, whichever comes first.
class GridSurface : public QTableView {
  Q_OBJECT

 public:
  explicit GridSurface(QWidget* parent = nullptr);
  ~GridSurface() override;

  // The workbook shown. Rules may change it directly; call Redraw() afterwards.
  Workbook& workbook();
  const Workbook& workbook() const;
  Sheet& sheet() { return workbook().sheet(); }
  const Sheet& sheet() const { return workbook().sheet(); }

  int Cols() const;
  int Rows() const;
  void SetCols(int count);
  void SetRows(int count);
  void SetCellText(int col, int row, const QString& text);
  QString GetCellText(int col, int row) const;
  void SetCellTag(int col, int row, const QString& tag);
  QString CellTag(int col, int row) const;
  void SetCellValue(int col, int row, const QVariant& value);
  void SetCellAlign(int col, int row, int flags);
  void SetCellInput(int col, int row, int mode);
  void SetCellOption(int col, int row, int option);
  void SetCellWrap(int col, int row, bool on);
  void SetCellColors(int col, int row, PackedColour text, PackedColour back);
  void SetCellFont(int col, int row, int size, int style, const QString& face);
  void SetDefaultFont(int size, int style, const QString& face);
  void SetColumnWidth(int col, int width);
  void SetRowHeight(int row, int height);
  void SetDefaultRowHeight(int height);
  void InsertRows(int row, int count);
  void InsertRowsBelowCurrent(int count);
  void DeleteRows(int row, int count);
  void HideRow(int unused, int row);
  int CurrentRow() const;
  int CurrentCol() const;
  void SetCurrentCell(int col, int row);
  void SelectRange(int col1, int row1, int col2, int row2);
  void CopySelection();
  void PasteAtCell(int col, int row, int flag);
  void EndCopy();
  void SetRangeBorder(int col1, int row1, int col2, int row2, int kind, int width,
                      PackedColour colour);
  void Redraw();
  // Off: nothing is repainted until it is on again.
  void SetRedrawSwitch(bool on);
  bool RedrawSwitch() const;
  // Throw FileError and leave the workbook, or the file, as it was.
  void OpenFile(const QString& path);
  void SaveFile(const QString& path) const;
  // Write the current sheet, entitled with the file's name. 1 on success; otherwise the old file,
  // if any, stays and the reason, also that the work was given up, is told in a sentence.
  int ExportHtml(const QString& path, QString* reason = nullptr,
                 const WorkProgress& progress = {}) const;
  int ExportExcel(const QString& path, QString* reason = nullptr,
                  const WorkProgress& progress = {}) const;
  void PrintSheet(bool board);
  void PrintBoard(bool board);
  void AddSheet(const QString& name, int count);
  void SetSheetName(const QString& name, int sheet);
  void SetCurrentSheet(int sheet);
  int SheetCount() const;
  void Focus();

  // Named switches in place of the display properties.
  void setHeadingStripVisible(bool on);
  void setRowNumbersVisible(bool on);
  // Keeps the first rows and columns in view while the rest scrolls; they also serve as headings
  // for assistive tools. Made for grids without strips, which do not follow.
  void setFrozen(int cols, int rows);
  // Columns without a width of their own share what is left of the grid's width.
  void setSharesWidth(bool on);
  // False: cells can be selected and copied but not typed into.
  void setEditable(bool on);
  // Keeps the user from changing a column's cells; headings, which setFrozen() makes, are kept so
  // always. What the user does to other cells together with them is done to those alone.
  void setColumnLocked(int col, bool locked);
  // How texts that the user types, or pastes from another program, are understood. A text that the
  // rule refuses changes nothing in its cell: see EntriesRefused. Without a rule every text goes in
  // and the cell's tag goes. Emptying a cell empties its tag; cells copied in this program bring
  // their tags, and the rule is asked only where a tag would mean nothing: without one, and in a
  // column of another heading. All of it is undone as one step.
  void setEntryRule(const EntryRule& rule);
  // Whether a paste of more rows than there are adds rows, instead of raising PasteCut.
  void setGrowsOnPaste(bool on);
  // Gives the printed document's name when it is printed.
  void setDocumentName(const std::function<QString()>& name);
  // How printing, pasting and clearing tell that they take long; without one they do not.
  void setWorkRunner(const WorkRunner& run);
  void setColours(const GridColours& colours);
  // Sets one column apart (its frozen heading and its edges) without touching its cells' colours;
  // −1 for none.
  void markColumn(int col);
  // Sets rows, in ascending order, apart by a bar at their left end; the meanings are read by
  // assistive tools and shown over the bars. The marks do not move with their rows.
  void markRows(std::vector<RowMark> marks);
  const std::vector<RowMark>& markedRows() const;

  // Between the two calls every change to the sheet, the user's or the program's, becomes one undo
  // step. Rules that change several rows at once are wrapped in it.
  void beginUndoStep(const QString& name);
  void endUndoStep();
  void clearUndo();

 signals:
  void CellEntered(int previousRow, int row);
  // Before the editor reads the cell's text, so that a handler may set it first.
  void CellEditStart(int col, int row);
  void CellClick(int col, int row);
  // Enter or Space on the current cell of a grid that is not editable.
  void CellActivated(int col, int row);
  void RowDuplicate(int row);
  // Raised before the grid uses the key; accept the event to keep the grid from using it. A text
  // being typed is in its cell by then.
  void GridKeyDown(QKeyEvent* event);
  // The user pasted more than the sheet has room for; this many rows and columns were dropped.
  void PasteCut(int lostRows, int lostCols);
  // The entry rule refused texts, `firstText` the first of them. Once for all that the user did at
  // once, after the cell that was typed into has closed.
  void EntriesRefused(int count, const QString& firstText);

 public:
  QRect visualRect(const QModelIndex& index) const override;
  QModelIndex indexAt(const QPoint& point) const override;
  void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

 protected:
  bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
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
  bool event(QEvent* event) override;
  void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  class Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace vellora
