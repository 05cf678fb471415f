#include "grid/sheet/row_block.h"

#include <algorithm>
#include <limits>

namespace vellora {
namespace {

// Lists whose entries beyond the last are empty.

template <typename Entry>
Entry& grownTo(std::vector<Entry>& list, int index) {
  const auto place = static_cast<std::size_t>(index);
  if (place >= list.size()) list.resize(place + 1);
  return list[place];
}

template <typename Entry>
void insertInto(std::vector<Entry>& list, int index, int count) {
  if (index >= std::ssize(list)) return;
  list.insert(list.begin() + index, static_cast<std::size_t>(count), Entry());
}

template <typename Entry>
void removeFrom(std::vector<Entry>& list, int index, int count) {
  const auto end = std::min(std::ptrdiff_t{index} + count, std::ssize(list));
  if (index < end) list.erase(list.begin() + index, list.begin() + end);
}

template <typename Entry>
std::vector<Entry> splitFrom(std::vector<Entry>& list, int index) {
  if (index >= std::ssize(list)) return {};
  std::vector<Entry> tail(list.begin() + index, list.end());
  list.resize(static_cast<std::size_t>(index));
  return tail;
}

}  // namespace

const CellNumbers& RowBlock::cell(int col, int index) const {
  static constexpr CellNumbers kEmptyCell;
  const auto column = columns_.find(col);
  if (column == columns_.end() || index >= std::ssize(column->second)) return kEmptyCell;
  return column->second[static_cast<std::size_t>(index)];
}

CellNumbers& RowBlock::writableCell(int col, int index) {
  return grownTo(columns_[col], index);
}

void RowBlock::restyle(int col, int first, int last, const Restyle& map) {
  std::vector<CellNumbers>& cells = columns_[col];
  StyleTable::Number from = StyleTable::kNothingSet;
  StyleTable::Number to = map(from);
  if (to != from) grownTo(cells, last);
  for (auto index = first; index <= last && index < std::ssize(cells); ++index) {
    CellNumbers& cell = cells[static_cast<std::size_t>(index)];
    if (cell.settings != from) to = map(from = cell.settings);
    cell.settings = to;
  }
}

void RowBlock::keepColumns(int count) {
  columns_.erase(columns_.lower_bound(count), columns_.end());
}

RowLayout RowBlock::layout(int index) const {
  return index < std::ssize(looks_) ? looks_[static_cast<std::size_t>(index)] : RowLayout();
}

RowLayout& RowBlock::writableLayout(int index) {
  return grownTo(looks_, index);
}

int RowBlock::nextSized(int index) const {
  const auto isSized = [](const RowLayout& layout) {
    return layout.hidden || layout.height.has_value();
  };
  const auto begin = looks_.begin() + std::min(std::ptrdiff_t{index}, std::ssize(looks_));
  const auto found = std::find_if(begin, looks_.end(), isSized);
  if (found == looks_.end()) return std::numeric_limits<int>::max();
  return static_cast<int>(found - looks_.begin());
}

void RowBlock::insert(int index, int count) {
  for (auto& [col, cells] : columns_) insertInto(cells, index, count);
  insertInto(looks_, index, count);
}

void RowBlock::remove(int index, int count) {
  for (auto& [col, cells] : columns_) removeFrom(cells, index, count);
  removeFrom(looks_, index, count);
}

RowBlock RowBlock::splitOff(int index) {
  RowBlock tail;
  for (auto& [col, cells] : columns_) tail.columns_[col] = splitFrom(cells, index);
  tail.looks_ = splitFrom(looks_, index);
  return tail;
}

}  // namespace vellora
