#pragma once

#include <QItemSelection>

#include <algorithm>

namespace vellora {

// Column and row from 0; −1 and −1 where there is no cell.
struct CellPlace {
  int col = -1;
  int row = -1;
  bool isNone() const { return col < 0 || row < 0; }
  friend bool operator==(const CellPlace&, const CellPlace&) = default;
};

inline CellPlace placeOf(const QModelIndex& index) {
  return {index.column(), index.row()};
}

// A rectangle of cells, both corners included; empty where a first corner lies beyond the second.
struct CellRange {
  int col1 = 0;
  int row1 = 0;
  int col2 = -1;
  int row2 = -1;

  static CellRange between(CellPlace a, CellPlace b) {
    return {std::min(a.col, b.col), std::min(a.row, b.row), std::max(a.col, b.col),
            std::max(a.row, b.row)};
  }
  static CellRange of(const QItemSelectionRange& range) {
    return {range.left(), range.top(), range.right(), range.bottom()};
  }

  bool isEmpty() const { return col1 > col2 || row1 > row2; }
  bool isOneCell() const { return col1 == col2 && row1 == row2; }
  bool contains(CellPlace cell) const {
    return cell.col >= col1 && cell.col <= col2 && cell.row >= row1 && cell.row <= row2;
  }
  CellRange within(int cols, int rows) const {
    return {std::max(col1, 0), std::max(row1, 0), std::min(col2, cols - 1),
            std::min(row2, rows - 1)};
  }
  friend bool operator==(const CellRange&, const CellRange&) = default;
};

}  // namespace vellora
