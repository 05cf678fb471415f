#pragma once

#include "grid/print/print_preview.h"
#include "grid/surface/cell_editor.h"
#include "grid/surface/range_edit.h"
#include "grid/surface/sheet_view.h"
#include "routine/work_step.h"

class QMenu;

namespace vellora {

struct PageTitle {
  QString title;
  QString note;
};

// The spreadsheet that every window draws on: the planner's grid operations and events by their
// names, and what the user does to cells, typed, pasted, emptied and undone.
class GridSurface : public SheetView {
  Q_OBJECT

 public:
  explicit GridSurface(QWidget* parent = nullptr);
  ~GridSurface() override;

  void SetCellText(int col, int row, const QString& text) {
    changing().SetCellText(col, row, text);
  }
  QString GetCellText(int col, int row) const { return sheet().GetCellText(col, row); }
  QString CellTag(int col, int row) const { return sheet().CellTag(col, row); }
  void SetCellInput(int col, int row, int mode) { sheet().SetCellInput(col, row, mode); }
  void SetCellFont(int col, int row, int size, int style, const QString& face) {
    changing().SetCellFont(col, row, size, style, face);
  }
  void SetDefaultFont(int size, int style, const QString& face) {
    changing().SetDefaultFont(size, style, face);
  }
  void SetDefaultRowHeight(int height) { changing().SetDefaultRowHeight(height); }
  void HideRow(int /*unused*/, int row) { changing().HideRow(row); }
  void SetRangeBorder(int col1, int row1, int col2, int row2, int kind, int width,
                      PackedColour colour) {
    changing().SetRangeBorder(col1, row1, col2, row2, kind, width, colour);
  }
  // Throws FileError and leaves the file as it was.
  void SaveFile(const QString& path) const;
  // Write the current sheet, entitled with the file's name. 1 on success; otherwise the old file,
  // if any, stays and the reason, also that the work was given up, is told in a sentence.
  int ExportHtml(const QString& path, QString* reason = nullptr,
                 const WorkProgress& progress = {}) const;
  int ExportExcel(const QString& path, QString* reason = nullptr,
                  const WorkProgress& progress = {}) const;
  void PrintSheet(bool board);
  void PrintBoard(bool board);

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
  void setEntryRule(const EntryRule& rule) { rule_ = rule; }
  // Whether a paste of more rows than there are adds rows, instead of raising PasteCut.
  void setGrowsOnPaste(bool on) { growsOnPaste_ = on; }
  // Gives the printed document's name when it is printed.
  void setDocumentName(const std::function<QString()>& name) { documentName_ = name; }
  // Gives what stands on top of every printed page; without it nothing does.
  void setPageTitle(const std::function<PageTitle()>& title) { pageTitle_ = title; }
  // How printing, pasting and clearing tell that they take long; without one they do not.
  void setWorkRunner(const WorkRunner& run) { runWork_ = run; }

  // What the context menu offers instead of the grid's own commands.
  void setMenu(const std::function<void(QMenu& menu)>& fill) { fillMenu_ = fill; }
  CellPlace currentPlace() const { return current(); }
  CellRange selectedCells() const { return selected(); }
  // The selected cells' texts, for other programs too.
  void copy() const;

  void clearUndo() { edits_.clear(); }

 signals:
  // Before the editor reads the cell's text, so that a handler may set it first.
  void CellEditStart(int col, int row);
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

 protected:
  bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
  void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
  void openCell(CellPlace cell) override;
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  friend class UndoStep;

  // One entry of the context menu, with the keys that do the same.
  struct Command {
    QString text;
    QList<QKeySequence> keys;
    std::function<bool()> isEnabled;
    std::function<void()> run;
    bool endsGroup = false;
  };
  std::vector<Command> commands();
  void fillOwnMenu(QMenu& menu);
  // Whether the user may change a cell of the range.
  bool isAnyOpen(const CellRange& range) const;
  bool canPaste() const;
  bool canDuplicate() const;
  void cut();
  void paste();
  void empty(const QString& name);
  void duplicateRow();
  void print();
  void printAs(const PageSetup& setup, PrintOptions options);
  void goTo(CellPlace place);

  // True when the open cell has got the key.
  bool passToEditor(QKeyEvent& event);
  bool useCommandKey(const QKeyEvent& event);
  bool useMoveKey(const QKeyEvent& event);
  bool useEditKey(QKeyEvent& event);
  bool moveBy(int key, Qt::KeyboardModifiers modifiers);
  bool leaveBy(int key, Qt::KeyboardModifiers modifiers);

  // Null while no cell is being typed into.
  CellEditor* editor() const;
  // For keys that do something else while a cell is open; a text that is refused closes it.
  void keepTypedText();
  void enter(CellPlace cell, const QString& text);
  void revertEntry();
  // One step of the user's, which may take long: it is given up whole.
  using Change = std::function<void(RangeEdit&, const WorkProgress&)>;
  void edited(const QString& name, const Change& change);
  void note(const RangeEdit& edit);
  // Raises EntriesRefused for what was refused since the last time.
  void reportRefused();

  CellDelegate delegate_{appearance_};
  EntryRule rule_;
  bool growsOnPaste_ = false;
  std::function<void(QMenu& menu)> fillMenu_;
  std::function<PageTitle()> pageTitle_ = [] { return PageTitle(); };
  std::function<QString()> documentName_ = [] { return QString(); };
  WorkRunner runWork_ = runWithoutProgress;
  bool isPassing_ = false;  // a key is with the open cell's editor

  // What the open cell held when it was opened. A part of its text that was kept meanwhile is one
  // step with the rest.
  struct Entry {
    CellEntry before;
    bool isKept = false;
  };
  Entry entry_;
  int refused_ = 0;
  QString firstRefused_;
};

// Makes every change to a grid's sheet until it goes, the user's or the program's, one undo step.
// Rules that change several rows at once are wrapped in it.
class UndoStep {
 public:
  UndoStep(GridSurface& grid, const QString& name) : grid_(grid) {
    grid_.edits_.begin(name, grid_.current());
  }
  ~UndoStep() { grid_.edits_.end(); }
  UndoStep(const UndoStep&) = delete;
  UndoStep& operator=(const UndoStep&) = delete;

 private:
  GridSurface& grid_;
};

}  // namespace vellora
