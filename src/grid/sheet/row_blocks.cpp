#include "grid/sheet/row_blocks.h"

#include <algorithm>

namespace vellora {
namespace {

constexpr int kNewChunkRows = 256;
constexpr int kMaxChunkRows = 512;

}  // namespace

void RowBlocks::resize(int count) {
  if (count < count_) {
    remove(count, count_ - count);
  } else {
    insert(count_, count - count_);
  }
}

void RowBlocks::insert(int row, int count) {
  if (count <= 0) return;
  count_ += count;
  if (!chunks_.empty()) {
    // The chunk above takes rows at its end as well, so that appended rows fill a started one.
    const std::size_t above = chunkOf(std::max(row - 1, 0));
    Chunk& chunk = chunks_[above];
    const bool isInside = row < chunk.end();
    if (chunk.rows + count <= (isInside ? kMaxChunkRows : kNewChunkRows)) {
      if (isInside && chunk.block) own(chunk).insert(row - chunk.first, count);
      chunk.rows += count;
      return renumber(above);
    }
  }
  const std::size_t place = splitBefore(row);
  std::vector<Chunk> added;
  for (; count > 0; count -= kNewChunkRows) {
    added.push_back({0, std::min(count, kNewChunkRows), nullptr});
  }
  chunks_.insert(chunks_.begin() + static_cast<std::ptrdiff_t>(place), added.begin(), added.end());
  renumber(place);
}

void RowBlocks::remove(int row, int count) {
  if (count <= 0) return;
  count_ -= count;
  const std::size_t place = chunkOf(row);
  Chunk& chunk = chunks_[place];
  if (row + count < chunk.end()) {
    if (chunk.block) own(chunk).remove(row - chunk.first, count);
    chunk.rows -= count;
    return renumber(place);
  }
  const auto first = static_cast<std::ptrdiff_t>(splitBefore(row));
  const auto end = static_cast<std::ptrdiff_t>(splitBefore(row + count));
  chunks_.erase(chunks_.begin() + first, chunks_.begin() + end);
  renumber(static_cast<std::size_t>(first));
}

void RowBlocks::keepColumns(int count) {
  for (Chunk& chunk : chunks_) {
    if (chunk.block) own(chunk).keepColumns(count);
  }
}

const CellNumbers& RowBlocks::cell(int col, int row) const {
  static constexpr CellNumbers kEmptyCell;
  const Chunk& chunk = chunks_[chunkOf(row)];
  return chunk.block ? chunk.block->cell(col, row - chunk.first) : kEmptyCell;
}

CellNumbers& RowBlocks::writableCell(int col, int row) {
  Chunk& chunk = chunks_[chunkOf(row)];
  return own(chunk).writableCell(col, row - chunk.first);
}

RowLayout RowBlocks::layout(int row) const {
  const Chunk& chunk = chunks_[chunkOf(row)];
  return chunk.block ? chunk.block->layout(row - chunk.first) : RowLayout();
}

RowLayout& RowBlocks::writableLayout(int row) {
  Chunk& chunk = chunks_[chunkOf(row)];
  return own(chunk).writableLayout(row - chunk.first);
}

void RowBlocks::restyle(int col, int firstRow, int lastRow, const Restyle& map) {
  const bool skipsEmpty = map(StyleTable::kNothingSet) == StyleTable::kNothingSet;
  for (int row = firstRow; row <= lastRow;) {
    Chunk& chunk = chunks_[chunkOf(row)];
    const int last = std::min(lastRow, chunk.end() - 1);
    if (chunk.block || !skipsEmpty) {
      own(chunk).restyle(col, row - chunk.first, last - chunk.first, map);
    }
    row = last + 1;
  }
}

int RowBlocks::nextWritten(int row) const {
  if (row >= count_) return count_;
  std::size_t place = chunkOf(row);
  while (place < chunks_.size() && !chunks_[place].block) ++place;
  return place < chunks_.size() ? std::max(row, chunks_[place].first) : count_;
}

int RowBlocks::nextSized(int row) const {
  if (row >= count_) return count_;
  for (std::size_t place = chunkOf(row); place < chunks_.size(); ++place) {
    const Chunk& chunk = chunks_[place];
    if (!chunk.block) continue;
    const int index = chunk.block->nextSized(std::max(row - chunk.first, 0));
    if (index < chunk.rows) return chunk.first + index;
  }
  return count_;
}

// Chunks are mostly as long as they were made, so a guess is nearly always right.
std::size_t RowBlocks::chunkOf(int row) const {
  const auto guess = static_cast<std::size_t>(row) / kNewChunkRows;
  if (guess < chunks_.size() && row >= chunks_[guess].first && row < chunks_[guess].end()) {
    return guess;
  }
  const auto after = std::upper_bound(chunks_.begin(), chunks_.end(), row,
                                      [](int r, const Chunk& chunk) { return r < chunk.first; });
  return static_cast<std::size_t>(after - chunks_.begin()) - 1;
}

// Makes the chunk writable without changing its block for those who share it.
RowBlock& RowBlocks::own(Chunk& chunk) {
  if (!chunk.block) {
    chunk.block = std::make_shared<RowBlock>();
  } else if (chunk.block.use_count() > 1) {
    chunk.block = std::make_shared<RowBlock>(*chunk.block);
  }
  return *chunk.block;
}

// The chunk that begins with the row, split off where the row is inside one; at the end of the
// sheet the number of chunks.
std::size_t RowBlocks::splitBefore(int row) {
  if (chunks_.empty() || row >= chunks_.back().end()) return chunks_.size();
  const std::size_t place = chunkOf(row);
  Chunk& chunk = chunks_[place];
  if (chunk.first == row) return place;
  const int kept = row - chunk.first;
  Chunk tail{row, chunk.rows - kept, nullptr};
  if (chunk.block) tail.block = std::make_shared<RowBlock>(own(chunk).splitOff(kept));
  chunk.rows = kept;
  chunks_.insert(chunks_.begin() + static_cast<std::ptrdiff_t>(place) + 1, std::move(tail));
  return place + 1;
}

void RowBlocks::renumber(std::size_t chunk) {
  for (; chunk < chunks_.size(); ++chunk) {
    chunks_[chunk].first = chunk == 0 ? 0 : chunks_[chunk - 1].end();
  }
}

}  // namespace vellora
