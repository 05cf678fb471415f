#pragma once

#include "grid/sheet/row_block.h"

#include <memory>
#include <vector>

namespace vellora {

// All rows of a sheet as a list of blocks. A run of rows never written has no block, whatever its
// length. Copies share their blocks; a block is copied when one of its sharers writes to it. So a
// snapshot of a million rows is a list of some thousand pointers, and inserting or deleting a row
// moves the cells of one block only.
class RowBlocks {
 public:
  struct Place {
    const RowBlock* block;  // null: never written
    int index;
  };
  struct WritablePlace {
    RowBlock& block;
    int index;
  };

  int count() const { return count_; }
  void resize(int count);
  // Rows at 0 <= row <= count(); remove() takes rows that exist.
  void insert(int row, int count);
  void remove(int row, int count);
  void keepColumns(int count);

  // Rows at 0 <= row < count().
  Place find(int row) const;
  WritablePlace write(int row);
  // The first row from row on that was ever written; count() when there is none.
  int nextWritten(int row) const;
  // Likewise for rows that are hidden or have a height.
  int nextSized(int row) const;
  void restyle(int col, int firstRow, int lastRow, const Restyle& map);

 private:
  struct Run {
    int first;
    int rows;
    std::shared_ptr<RowBlock> block;
    bool has(int row) const { return row >= first && row - first < rows; }
    bool operator==(const Run&) const = default;
  };

  std::size_t runOf(int row) const;
  RowBlock& own(std::size_t run);
  std::size_t carve(std::size_t run, int row);
  std::size_t splitBefore(int row);
  void split(std::size_t run, int rows);
  void insertRun(std::size_t run, int rows);
  bool merge(std::size_t run);
  void renumber(std::size_t run);

  std::shared_ptr<TextPool> pool_ = std::make_shared<TextPool>();  // outlives the blocks
  std::vector<Run> runs_;
  int count_ = 0;
};

}  // namespace vellora
