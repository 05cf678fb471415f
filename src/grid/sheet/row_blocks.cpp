#include "grid/sheet/row_blocks.h"

#include <algorithm>

namespace vellora {
namespace {

constexpr int kNewBlockRows = 256;
constexpr int kMaxBlockRows = 512;

}  // namespace

void RowBlocks::resize(int count) {
  if (count < count_) {
    remove(count, count_ - count);
  } else if (count > count_) {
    insert(count_, count - count_);
  }
}

void RowBlocks::insert(int row, int count) {
  if (count <= 0) return;
  count_ += count;
  // The run above takes rows at its end as well, so that appended rows fill a started block.
  std::size_t run = runs_.empty() ? 0 : runOf(std::max(row - 1, 0));
  if (runs_.empty()) {
    insertRun(0, count);
  } else if (!runs_[run].block) {
    runs_[run].rows += count;
  } else if (runs_[run].rows + count > kMaxBlockRows ||
             (row == runs_[run].first + runs_[run].rows &&
              runs_[run].rows + count > kNewBlockRows)) {
    run = splitBefore(row);
    insertRun(run, count);
    if (run + 1 < runs_.size()) merge(run);
  } else {
    if (row < runs_[run].first + runs_[run].rows) own(run).insert(row - runs_[run].first, count);
    runs_[run].rows += count;
  }
  renumber(run);
}

void RowBlocks::remove(int row, int count) {
  if (count <= 0) return;
  count_ -= count;
  std::size_t run = runOf(row);
  if (row + count < runs_[run].first + runs_[run].rows) {
    if (runs_[run].block) own(run).remove(row - runs_[run].first, count);
    runs_[run].rows -= count;
  } else {
    run = splitBefore(row);
    const std::size_t end = splitBefore(row + count);
    runs_.erase(runs_.begin() + static_cast<std::ptrdiff_t>(run),
                runs_.begin() + static_cast<std::ptrdiff_t>(end));
  }
  renumber(run);
  if (run > 0 && merge(run - 1)) --run;
  merge(run);
}

void RowBlocks::keepColumns(int count) {
  for (std::size_t run = 0; run < runs_.size(); ++run) {
    if (runs_[run].block) own(run).keepColumns(count);
  }
}

RowBlocks::Place RowBlocks::find(int row) const {
  const Run& run = runs_[runOf(row)];
  return {run.block.get(), row - run.first};
}

RowBlocks::WritablePlace RowBlocks::write(int row) {
  std::size_t run = runOf(row);
  if (!runs_[run].block) run = carve(run, row);
  return {own(run), row - runs_[run].first};
}

int RowBlocks::nextWritten(int row) const {
  if (row >= count_) return count_;
  std::size_t run = runOf(row);
  while (run < runs_.size() && !runs_[run].block) ++run;
  return run < runs_.size() ? std::max(row, runs_[run].first) : count_;
}

int RowBlocks::nextSized(int row) const {
  if (row >= count_) return count_;
  for (std::size_t run = runOf(row); run < runs_.size(); ++run) {
    const Run& here = runs_[run];
    if (!here.block) continue;
    const int index = here.block->nextSized(std::max(row - here.first, 0));
    if (index < here.rows) return here.first + index;
  }
  return count_;
}

void RowBlocks::restyle(int col, int firstRow, int lastRow, const Restyle& map) {
  const bool skipsEmpty = map(StyleTable::kNothingSet) == StyleTable::kNothingSet;
  for (int row = firstRow; row <= lastRow;) {
    std::size_t run = runOf(row);
    const RowBlock* block = runs_[run].block.get();
    const CellColumn* column = block ? block->column(col) : nullptr;
    if (!skipsEmpty || column) {
      if (!block) run = carve(run, row);
      const int last = std::min(lastRow, runs_[run].first + runs_[run].rows - 1);
      own(run).writableColumn(col).restyle(row - runs_[run].first, last - runs_[run].first, map);
    }
    row = runs_[run].first + runs_[run].rows;
  }
}

// Rows written from the first on lie in runs of equal length, so a guess is nearly always right.
std::size_t RowBlocks::runOf(int row) const {
  const auto guess = static_cast<std::size_t>(row) / kNewBlockRows;
  if (guess < runs_.size() && runs_[guess].has(row)) return guess;
  const auto after = std::upper_bound(runs_.begin(), runs_.end(), row,
                                      [](int r, const Run& run) { return r < run.first; });
  return static_cast<std::size_t>(after - runs_.begin()) - 1;
}

// Makes the block writable without changing it for those who share it.
RowBlock& RowBlocks::own(std::size_t run) {
  std::shared_ptr<RowBlock>& block = runs_[run].block;
  if (block.use_count() > 1) block = std::make_shared<RowBlock>(*block);
  return *block;
}

// Gives the row of a run without a block a block of its own.
std::size_t RowBlocks::carve(std::size_t run, int row) {
  const int first = runs_[run].first;
  const int start = first + (row - first) / kNewBlockRows * kNewBlockRows;
  const int end = std::min(start + kNewBlockRows, first + runs_[run].rows);
  run = splitBefore(start);
  splitBefore(end);
  runs_[run].block = std::make_shared<RowBlock>(*pool_);
  return run;
}

// The run that begins with the row, split off where the row is inside a run; at the end of the
// sheet the number of runs.
std::size_t RowBlocks::splitBefore(int row) {
  if (runs_.empty() || row >= runs_.back().first + runs_.back().rows) return runs_.size();
  const std::size_t run = runOf(row);
  if (runs_[run].first == row) return run;
  split(run, row - runs_[run].first);
  return run + 1;
}

void RowBlocks::split(std::size_t run, int rows) {
  Run tail{runs_[run].first + rows, runs_[run].rows - rows, nullptr};
  if (runs_[run].block) tail.block = std::make_shared<RowBlock>(own(run).splitOff(rows));
  runs_[run].rows = rows;
  runs_.insert(runs_.begin() + static_cast<std::ptrdiff_t>(run) + 1, std::move(tail));
}

void RowBlocks::insertRun(std::size_t run, int rows) {
  runs_.insert(runs_.begin() + static_cast<std::ptrdiff_t>(run), Run{0, rows, nullptr});
}

// Joins a run with the one after it where that keeps blocks from growing ever smaller.
bool RowBlocks::merge(std::size_t run) {
  if (run + 1 >= runs_.size()) return false;
  Run& upper = runs_[run];
  const Run& lower = runs_[run + 1];
  const bool bothEmpty = !upper.block && !lower.block;
  if (!bothEmpty && upper.rows > kNewBlockRows - lower.rows) return false;
  if (lower.block) {
    if (!upper.block) upper.block = std::make_shared<RowBlock>(*pool_);
    own(run).append(upper.rows, *lower.block);
  }
  upper.rows += lower.rows;
  runs_.erase(runs_.begin() + static_cast<std::ptrdiff_t>(run) + 1);
  return true;
}

void RowBlocks::renumber(std::size_t run) {
  for (; run < runs_.size(); ++run) {
    runs_[run].first = run == 0 ? 0 : runs_[run - 1].first + runs_[run - 1].rows;
  }
}

}  // namespace vellora
