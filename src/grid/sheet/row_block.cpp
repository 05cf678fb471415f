#include "grid/sheet/row_block.h"

#include <algorithm>

namespace vellora {

const CellColumn* RowBlock::column(int col) const {
  const auto position = static_cast<std::size_t>(col);
  return position < columns_.size() ? &columns_[position] : nullptr;
}

CellColumn& RowBlock::writableColumn(int col) {
  const auto position = static_cast<std::size_t>(col);
  if (position >= columns_.size()) columns_.resize(position + 1, CellColumn(*pool_));
  return columns_[position];
}

void RowBlock::keepColumns(int count) {
  const auto kept = static_cast<std::size_t>(count);
  if (kept < columns_.size()) columns_.resize(kept, CellColumn(*pool_));
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

void RowBlock::insert(int index, int count) {
  for (CellColumn& column : columns_) column.insert(index, count);
  if (static_cast<std::size_t>(index) >= looks_.size()) return;
  looks_.insert(looks_.begin() + index, static_cast<std::size_t>(count), RowLook());
}

void RowBlock::remove(int index, int count) {
  for (CellColumn& column : columns_) column.remove(index, count);
  const int end = std::min(index + count, static_cast<int>(looks_.size()));
  if (index < end) looks_.erase(looks_.begin() + index, looks_.begin() + end);
}

RowBlock RowBlock::splitOff(int index) {
  RowBlock tail(*pool_);
  for (CellColumn& column : columns_) tail.columns_.push_back(column.splitOff(index));
  if (static_cast<std::size_t>(index) < looks_.size()) {
    tail.looks_.assign(looks_.begin() + index, looks_.end());
    looks_.resize(static_cast<std::size_t>(index));
  }
  return tail;
}

void RowBlock::append(int index, const RowBlock& other) {
  for (std::size_t col = 0; col < other.columns_.size(); ++col) {
    writableColumn(static_cast<int>(col)).append(index, other.columns_[col]);
  }
  if (other.looks_.empty()) return;
  looks_.resize(static_cast<std::size_t>(index));
  looks_.insert(looks_.end(), other.looks_.begin(), other.looks_.end());
}

}  // namespace vellora
