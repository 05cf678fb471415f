#pragma once

#include "store/cell.h"

#include <QVarLengthArray>

#include <array>
#include <cstddef>
#include <memory_resource>
#include <span>

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

  // The cells are copied.
  void append(qint64 rowId, std::span<const Cell> cells);
  void replace(qsizetype row, qint64 rowId, std::span<const Cell> cells);
  void remove(qsizetype row);

 private:
  const char* packed(qint64 rowId, std::span<const Cell> cells);

  std::array<std::byte, 320> firstRows_;
  std::pmr::monotonic_buffer_resource memory_{firstRows_.data(), firstRows_.size()};
  QVarLengthArray<const char*, 4> rows_;
};

}  // namespace vellora
