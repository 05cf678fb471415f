#include "grid/sheet/row_block.h"

#include <algorithm>
#include <limits>

namespace vellora {

std::size_t RowBlock::positionOf(int col) const {
  const auto guess = static_cast<std::size_t>(col);
  if (guess < columns_.size() && columns_[guess].col == col) return guess;
  const auto position =
      std::lower_bound(columns_.begin(), columns_.end(), col,
                       [](const NumberedColumn& column, int c) { return column.col < c; });
  return static_cast<std::size_t>(position - columns_.begin());
}

const CellColumn* RowBlock::column(int col) const {
  const std::size_t position = positionOf(col);
  if (position == columns_.size() || columns_[position].col != col) return nullptr;
  return &columns_[position].cells;
}

CellColumn& RowBlock::writableColumn(int col) {
  const std::size_t position = positionOf(col);
  if (position == columns_.size() || columns_[position].col != col) {
    columns_.insert(columns_.begin() + static_cast<std::ptrdiff_t>(position),
                    {col, CellColumn(*pool_)});
  }
  return columns_[position].cells;
}

void RowBlock::keepColumns(int count) {
  columns_.erase(columns_.begin() + static_cast<std::ptrdiff_t>(positionOf(count)), columns_.end());
}

RowLook RowBlock::look(int index) const {
  const auto position = static_cast<std::size_t>(index);
  return position < looks_.size() ? looks_[position] : RowLook();
}

RowLook& RowBlock::writableLook(int index) {
  const auto position = static_cast<std::size_t>(index);
  if (position >= looks_.size()) looks_.resize(position + 1);
  return looks_[position];
}

int RowBlock::nextSized(int index) const {
  const auto isSized = [](const RowLook& look) { return look.hidden || look.height.has_value(); };
  if (static_cast<std::size_t>(index) >= looks_.size()) return std::numeric_limits<int>::max();
  const auto found = std::find_if(looks_.begin() + index, looks_.end(), isSized);
  if (found == looks_.end()) return std::numeric_limits<int>::max();
  return static_cast<int>(found - looks_.begin());
}

void RowBlock::insert(int index, int count) {
  for (NumberedColumn& column : columns_) column.cells.insert(index, count);
  if (static_cast<std::size_t>(index) >= looks_.size()) return;
  looks_.insert(looks_.begin() + index, static_cast<std::size_t>(count), RowLook());
}

void RowBlock::remove(int index, int count) {
  for (NumberedColumn& column : columns_) column.cells.remove(index, count);
  const int end = std::min(index + count, static_cast<int>(looks_.size()));
  if (index < end) looks_.erase(looks_.begin() + index, looks_.begin() + end);
}

RowBlock RowBlock::splitOff(int index) {
  RowBlock tail(*pool_);
  for (NumberedColumn& column : columns_) {
    tail.columns_.push_back({column.col, column.cells.splitOff(index)});
  }
  if (static_cast<std::size_t>(index) < looks_.size()) {
    tail.looks_.assign(looks_.begin() + index, looks_.end());
    looks_.resize(static_cast<std::size_t>(index));
  }
  return tail;
}

void RowBlock::append(int index, const RowBlock& other) {
  for (const NumberedColumn& column : other.columns_) {
    writableColumn(column.col).append(index, column.cells);
  }
  if (other.looks_.empty()) return;
  looks_.resize(static_cast<std::size_t>(index));
  looks_.insert(looks_.end(), other.looks_.begin(), other.looks_.end());
}

}  // namespace vellora
