#pragma once

#include "grid/sheet/workbook.h"
#include "grid/surface/cell_range.h"

#include <deque>
#include <functional>

namespace vellora {

// What the user did to a workbook's current sheet, to be undone and done again. Each state is a
// copy of the sheet, which shares what did not change. A change that the program makes outside a
// step makes the history worthless, for its rows may mean other things now: it is dropped.
class SheetEdits {
 public:
  explicit SheetEdits(Workbook& book) : book_(book) {}

  // Steps may be nested; the outermost counts. The place is where the step is seen.
  void begin(const QString& name, CellPlace place);
  void end();
  // A step of the user's own.
  void edit(const QString& name, CellPlace place, const std::function<void(Sheet&)>& change);
  // Raises an event whose handler may change the sheet in answer to what the user just did; undoing
  // that undoes the answer too.
  void raise(const std::function<void()>& event);

  bool canUndo() const { return isCurrent() && at_ > 0; }
  bool canRedo() const { return isCurrent() && at_ + 1 < states_.size(); }
  // Names of the steps; empty when there is none.
  QString undoName() const { return canUndo() ? states_[at_].name : QString(); }
  QString redoName() const { return canRedo() ? states_[at_ + 1].name : QString(); }
  // Both return where the step is seen; nothing happens, and there is no place, when it cannot be.
  CellPlace undo();
  CellPlace redo();
  // Undoes the last step as if it had never been; false when it cannot be undone.
  bool revert();
  void clear();

 private:
  struct State {
    Sheet sheet;
    QString name;  // of the step that led here
    CellPlace place;
  };
  bool isCurrent() const;
  void push();
  CellPlace show(std::size_t state, CellPlace place);

  Workbook& book_;
  std::deque<State> states_;
  std::size_t at_ = 0;
  int sheet_ = 0;
  int depth_ = 0;
  QString name_;
  CellPlace place_;
};

}  // namespace vellora
