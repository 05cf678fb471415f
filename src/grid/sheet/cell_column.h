#pragma once

#include "grid/sheet/style_table.h"
#include "grid/sheet/text_pool.h"

#include <functional>
#include <vector>

namespace vellora {

// Maps what was set on a cell to what is to be set on it.
using Restyle = std::function<StyleTable::Number(StyleTable::Number)>;

// The cells of one column in one block of rows, at eight bytes each. Indices count from the block's
// first row; cells beyond the last one written are empty and take no room.
class CellColumn {
 public:
  bool isEmpty() const { return cells_.empty(); }
  QString text(int index) const { return texts_.text(at(index).text); }
  QString tag(int index) const { return texts_.text(at(index).tag); }
  StyleTable::Number style(int index) const { return at(index).style; }

  void setText(int index, const QString& text) { replace(writable(index).text, text); }
  void setTag(int index, const QString& tag) { replace(writable(index).tag, tag); }
  void setStyle(int index, StyleTable::Number style) { writable(index).style = style; }
  void restyle(int first, int last, const Restyle& map);

  void insert(int index, int count);
  void remove(int index, int count);
  // Moves the cells from index on into a column of their own.
  CellColumn splitOff(int index);
  // Puts the other's cells at index and after; there are none yet.
  void append(int index, const CellColumn& other);

 private:
  struct Cell {
    TextPool::Id text = TextPool::kEmpty;
    TextPool::Id tag = TextPool::kEmpty;
    StyleTable::Number style = StyleTable::kNothingSet;
  };

  const Cell& at(int index) const;
  Cell& writable(int index);
  void replace(TextPool::Id& id, const QString& text);

  std::vector<Cell> cells_;
  TextPool texts_;
};

}  // namespace vellora
