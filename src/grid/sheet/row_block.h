#pragma once

#include "grid/sheet/cell_column.h"

#include <optional>
#include <vector>

namespace vellora {

// What is known of a row apart from its cells.
struct RowLook {
  std::optional<int> height;
  bool hidden = false;
};

// A few hundred neighbouring rows. How many they are is known to RowBlocks alone; rows beyond the
// last one written are empty and take no room.
class RowBlock {
 public:
  explicit RowBlock(TextPool& pool) : pool_(&pool) {}

  // Null when nothing was written in this column.
  const CellColumn* column(int col) const;
  CellColumn& writableColumn(int col);
  void keepColumns(int count);

  RowLook look(int index) const;
  RowLook& writableLook(int index);
  // The first row from index on that is hidden or has a height; beyond every row when there is
  // none.
  int nextSized(int index) const;

  void insert(int index, int count);
  void remove(int index, int count);
  RowBlock splitOff(int index);
  void append(int index, const RowBlock& other);

 private:
  // Only columns with content, in their order: a cell far to the right costs no more than others.
  struct NumberedColumn {
    int col;
    CellColumn cells;
  };
  std::size_t positionOf(int col) const;

  TextPool* pool_;
  std::vector<NumberedColumn> columns_;
  std::vector<RowLook> looks_;
};

}  // namespace vellora
