#include "grid/sheet/cell_column.h"

#include <algorithm>
#include <utility>

namespace vellora {

CellColumn::CellColumn(const CellColumn& other) : pool_(other.pool_) {
  append(0, other);
}

CellColumn& CellColumn::operator=(CellColumn other) noexcept {
  std::swap(pool_, other.pool_);
  cells_.swap(other.cells_);
  return *this;
}

CellColumn::~CellColumn() {
  remove(0, static_cast<int>(cells_.size()));
}

const CellNumbers& CellColumn::at(int index) const {
  static constexpr CellNumbers kEmptyCell;
  const auto position = static_cast<std::size_t>(index);
  return position < cells_.size() ? cells_[position] : kEmptyCell;
}

CellNumbers& CellColumn::writable(int index) {
  const auto position = static_cast<std::size_t>(index);
  if (position >= cells_.size()) cells_.resize(position + 1);
  return cells_[position];
}

// A list's rows often repeat the text above, which is found sooner than by the pool's own search.
void CellColumn::setText(int index, const QString& text) {
  const TextPool::Id above = index > 0 ? at(index - 1).text : TextPool::kEmpty;
  TextPool::Id& id = writable(index).text;
  if (pool_->text(above) != text) return replace(id, text);
  pool_->retain(above);
  pool_->release(id);
  id = above;
}

void CellColumn::replace(TextPool::Id& id, const QString& text) {
  const TextPool::Id old = id;
  id = pool_->take(text);
  pool_->release(old);
}

void CellColumn::restyle(int first, int last, const Restyle& map) {
  if (map(StyleTable::kNothingSet) == StyleTable::kNothingSet) {
    last = std::min(last, static_cast<int>(cells_.size()) - 1);
  }
  StyleTable::Number from = StyleTable::kNothingSet;
  StyleTable::Number to = map(from);
  for (int index = last; index >= first; --index) {
    CellNumbers& cell = writable(index);
    if (cell.settings != from) to = map(from = cell.settings);
    cell.settings = to;
  }
}

void CellColumn::insert(int index, int count) {
  const auto position = static_cast<std::size_t>(index);
  if (position >= cells_.size()) return;
  cells_.insert(cells_.begin() + index, static_cast<std::size_t>(count), CellNumbers());
}

void CellColumn::remove(int index, int count) {
  const int end = std::min(index + count, static_cast<int>(cells_.size()));
  if (index >= end) return;
  const auto from = cells_.begin() + index;
  const auto to = cells_.begin() + end;
  std::for_each(from, to, [this](const CellNumbers& cell) {
    pool_->release(cell.text);
    pool_->release(cell.tag);
  });
  cells_.erase(from, to);
}

CellColumn CellColumn::splitOff(int index) {
  CellColumn tail(*pool_);
  if (static_cast<std::size_t>(index) >= cells_.size()) return tail;
  tail.cells_.assign(cells_.begin() + index, cells_.end());
  cells_.resize(static_cast<std::size_t>(index));
  return tail;
}

void CellColumn::append(int index, const CellColumn& other) {
  if (other.cells_.empty()) return;
  cells_.reserve(static_cast<std::size_t>(index) + other.cells_.size());
  cells_.resize(static_cast<std::size_t>(index));
  cells_.insert(cells_.end(), other.cells_.begin(), other.cells_.end());
  for (const CellNumbers& cell : other.cells_) {
    pool_->retain(cell.text);
    pool_->retain(cell.tag);
  }
}

}  // namespace vellora
