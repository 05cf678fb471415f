#include "grid/sheet/cell_column.h"

#include <algorithm>

namespace vellora {

const CellColumn::Cell& CellColumn::at(int index) const {
  static constexpr Cell kEmptyCell;
  const auto position = static_cast<std::size_t>(index);
  return position < cells_.size() ? cells_[position] : kEmptyCell;
}

CellColumn::Cell& CellColumn::writable(int index) {
  const auto position = static_cast<std::size_t>(index);
  if (position >= cells_.size()) cells_.resize(position + 1);
  return cells_[position];
}

void CellColumn::replace(TextPool::Id& id, const QString& text) {
  const TextPool::Id old = id;
  id = texts_.take(text);
  texts_.release(old);
}

void CellColumn::restyle(int first, int last, const Restyle& map) {
  if (map(StyleTable::kNothingSet) == StyleTable::kNothingSet) {
    last = std::min(last, static_cast<int>(cells_.size()) - 1);
  }
  StyleTable::Number from = StyleTable::kNothingSet;
  StyleTable::Number to = map(from);
  for (int index = last; index >= first; --index) {
    Cell& cell = writable(index);
    if (cell.style != from) to = map(from = cell.style);
    cell.style = to;
  }
}

void CellColumn::insert(int index, int count) {
  const auto position = static_cast<std::size_t>(index);
  if (position >= cells_.size()) return;
  cells_.insert(cells_.begin() + index, static_cast<std::size_t>(count), Cell());
}

void CellColumn::remove(int index, int count) {
  const int end = std::min(index + count, static_cast<int>(cells_.size()));
  if (index >= end) return;
  const auto from = cells_.begin() + index;
  const auto to = cells_.begin() + end;
  std::for_each(from, to, [this](const Cell& cell) {
    texts_.release(cell.text);
    texts_.release(cell.tag);
  });
  cells_.erase(from, to);
}

CellColumn CellColumn::splitOff(int index) {
  CellColumn tail;
  const int count = static_cast<int>(cells_.size()) - index;
  for (int i = 0; i < count; ++i) {
    const Cell& cell = at(index + i);
    tail.cells_.push_back({tail.texts_.take(texts_.text(cell.text)),
                           tail.texts_.take(texts_.text(cell.tag)), cell.style});
  }
  remove(index, count);
  return tail;
}

void CellColumn::append(int index, const CellColumn& other) {
  if (other.isEmpty()) return;
  cells_.resize(static_cast<std::size_t>(index));
  for (const Cell& cell : other.cells_) {
    cells_.push_back({texts_.take(other.texts_.text(cell.text)),
                      texts_.take(other.texts_.text(cell.tag)), cell.style});
  }
}

}  // namespace vellora
