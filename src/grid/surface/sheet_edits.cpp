#include "grid/surface/sheet_edits.h"

namespace vellora {
namespace {

constexpr std::size_t kMostStates = 200;

}  // namespace

bool SheetEdits::isCurrent() const {
  return !states_.empty() && sheet_ == book_.CurrentSheet() &&
         states_[at_].sheet.revision() == book_.sheet().revision();
}

void SheetEdits::begin(const QString& name, CellPlace place) {
  if (depth_++ > 0) return;
  name_ = name;
  place_ = place;
  if (isCurrent()) return;
  sheet_ = book_.CurrentSheet();
  states_.assign(1, {book_.sheet(), QString(), {}});
  at_ = 0;
}

void SheetEdits::end() {
  if (depth_ == 0 || --depth_ > 0 || isCurrent()) return;
  push();
}

void SheetEdits::push() {
  if (states_.empty()) return;  // cleared meanwhile
  states_.erase(states_.begin() + static_cast<std::ptrdiff_t>(at_) + 1, states_.end());
  states_.push_back({book_.sheet(), name_, place_});
  if (states_.size() > kMostStates) states_.pop_front();
  at_ = states_.size() - 1;
}

void SheetEdits::edit(const QString& name, CellPlace place,
                      const std::function<void(Sheet&)>& change) {
  begin(name, place);
  change(book_.sheet());
  end();
}

void SheetEdits::raise(const std::function<void()>& event) {
  const bool wasCurrent = isCurrent();
  event();
  if (!wasCurrent || depth_ > 0 || states_.empty()) return;
  if (sheet_ == book_.CurrentSheet()) states_[at_].sheet = book_.sheet();
}

CellPlace SheetEdits::undo() {
  if (!canUndo()) return {};
  return show(at_ - 1, states_[at_].place);
}

CellPlace SheetEdits::redo() {
  if (!canRedo()) return {};
  return show(at_ + 1, states_[at_ + 1].place);
}

bool SheetEdits::revert() {
  if (undo().isNone()) return false;
  states_.resize(at_ + 1);
  return true;
}

// Column widths stay as the user last dragged them.
CellPlace SheetEdits::show(std::size_t state, CellPlace place) {
  const Sheet left = book_.sheet();
  at_ = state;
  Sheet& sheet = book_.sheet();
  sheet = states_[at_].sheet;
  for (int col = 0; col < sheet.Cols(); ++col) {
    const std::optional<int> width = left.ColumnWidth(col);
    if (width && width != sheet.ColumnWidth(col)) sheet.SetColumnWidth(col, *width);
  }
  states_[at_].sheet = sheet;
  return place;
}

void SheetEdits::clear() {
  states_.clear();
  at_ = 0;
}

}  // namespace vellora
