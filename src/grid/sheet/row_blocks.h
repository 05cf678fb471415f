#pragma once

#include "grid/sheet/row_block.h"

#include <memory>
#include <vector>

namespace vellora {

// All rows of a sheet in chunks of a few hundred. A chunk never written has no block. Copies share
// their blocks; a block is copied when one of its sharers writes to it. So a snapshot of a million
// rows is a list of some thousand pointers, and inserting or deleting a row moves the cells of one
// block only.
class RowBlocks {
 public:
  int count() const { return count_; }
  void resize(int count);
  // Rows at 0 <= row <= count(); remove() takes rows that exist.
  void insert(int row, int count);
  void remove(int row, int count);
  void keepColumns(int count);

  // Rows at 0 <= row < count().
  const CellNumbers& cell(int col, int row) const;
  CellNumbers& writableCell(int col, int row);
  RowLayout layout(int row) const;
  RowLayout& writableLayout(int row);
  void restyle(int col, int firstRow, int lastRow, const Restyle& map);
  // The first row from row on that was ever written; count() when there is none.
  int nextWritten(int row) const;
  // Likewise for rows that are hidden or have a height.
  int nextSized(int row) const;

 private:
  struct Chunk {
    int first;
    int rows;
    std::shared_ptr<RowBlock> block;
    int end() const { return first + rows; }
  };

  std::size_t chunkOf(int row) const;
  RowBlock& own(Chunk& chunk);
  std::size_t splitBefore(int row);
  void renumber(std::size_t chunk);

  std::vector<Chunk> chunks_;
  int count_ = 0;
};

}  // namespace vellora
