#pragma once

#include "store/cell.h"
#include "store/row_reader.h"

#include <QVarLengthArray>

#include <array>
#include <cstddef>
#include <memory_resource>
#include <optional>

namespace vellora {

// Rows packed one behind the other: a million plan entries take about a hundred bytes each, and a
// row or two need no memory beyond the arena itself.
class RowArena {
 public:
  RowArena() = default;
  RowArena(const RowArena&) = delete;
  RowArena& operator=(const RowArena&) = delete;

  qsizetype rowCount() const { return rows_.size(); }
  qint64 rowId(qsizetype row) const;
  // Valid as long as the arena.
  Cell cell(qsizetype row, qsizetype column) const;

  // A row is begun, takes its cells in their order, and then becomes the last row or takes the
  // place of another. The cells are copied.
  void begin(qint64 rowId);
  void add(const Cell& cell);
  void append();
  void replace(qsizetype row);

  void remove(qsizetype row);

 private:
  const char* keptRow();

  std::array<std::byte, 192> firstRows_;
  std::pmr::monotonic_buffer_resource memory_{firstRows_.data(), firstRows_.size()};
  QVarLengthArray<const char*, 4> rows_;
  QVarLengthArray<char, 160> begun_;
};

// The rows of one statement, read all at once when they are first asked for.
class LazyRows {
 public:
  LazyRows(Connection& connection, const Query& tableOrSelect)
      : opened_(connection, tableOrSelect) {}

  Connection& connection() const { return opened_.connection(); }
  const PreparedSet& set() const { return opened_.set(); }
  bool isRead() const { return rows_.has_value(); }

  // Reads the rows when that has not been done. A failure leaves them unread.
  RowArena& rows();

 private:
  void read();

  OpenedSet opened_;
  std::optional<RowArena> rows_;
};

}  // namespace vellora
