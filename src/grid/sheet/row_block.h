#pragma once

#include "grid/sheet/style_table.h"

#include <functional>
#include <map>
#include <optional>
#include <vector>

namespace vellora {

// Maps what was set on a cell to what is to be set on it.
using Restyle = std::function<StyleTable::Number(StyleTable::Number)>;

// What is known of a row apart from its cells.
struct RowLayout {
  std::optional<int> height;
  bool hidden = false;
};

// A few hundred neighbouring rows, at twelve bytes for a cell. How many they are is known to
// RowBlocks alone; cells and rows beyond the last one written are empty and take no room.
class RowBlock {
 public:
  const CellNumbers& cell(int col, int index) const;
  CellNumbers& writableCell(int col, int index);
  void restyle(int col, int first, int last, const Restyle& map);
  void keepColumns(int count);

  RowLayout layout(int index) const;
  RowLayout& writableLayout(int index);
  // The first row from index on that is hidden or has a height; beyond every row when there is
  // none.
  int nextSized(int index) const;

  void insert(int index, int count);
  void remove(int index, int count);
  // Moves the rows from index on into a block of their own.
  RowBlock splitOff(int index);

 private:
  // By column, those with content only: a cell far to the right costs no more than others.
  std::map<int, std::vector<CellNumbers>> columns_;
  std::vector<RowLayout> looks_;
};

}  // namespace vellora
