#pragma once

#include "grid/sheet/style_table.h"
#include "grid/sheet/text_pool.h"

#include <functional>
#include <vector>

namespace vellora {

// Maps what was set on a cell to what is to be set on it.
using Restyle = std::function<StyleTable::Number(StyleTable::Number)>;

// The cells of one column in one block of rows, at twelve bytes each. Indices count from the
// block's first row; cells beyond the last one written are empty and take no room. The pool holds
// the texts and must outlive the column.
class CellColumn {
 public:
  explicit CellColumn(TextPool& pool) : pool_(&pool) {}
  CellColumn(const CellColumn& other);
  CellColumn(CellColumn&& other) noexcept = default;
  CellColumn& operator=(CellColumn other) noexcept;
  ~CellColumn();

  const QString& text(int index) const { return pool_->text(at(index).text); }
  const QString& tag(int index) const { return pool_->text(at(index).tag); }
  const CellNumbers& numbers(int index) const { return at(index); }

  void setText(int index, const QString& text);
  void setTag(int index, const QString& tag) { replace(writable(index).tag, tag); }
  StyleTable::Number& writableSettings(int index) { return writable(index).settings; }
  void restyle(int first, int last, const Restyle& map);

  void insert(int index, int count);
  void remove(int index, int count);
  // Moves the cells from index on into a column of their own.
  CellColumn splitOff(int index);
  // Puts the other's cells at index and after; there are none yet.
  void append(int index, const CellColumn& other);

 private:
  const CellNumbers& at(int index) const;
  CellNumbers& writable(int index);
  void replace(TextPool::Id& id, const QString& text);

  TextPool* pool_;
  std::vector<CellNumbers> cells_;
};

}  // namespace vellora
