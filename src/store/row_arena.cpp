#include "store/row_arena.h"

#include <cstdint>
#include <cstring>

namespace vellora {
namespace {

using Length = std::uint32_t;  // no single value of the engine is longer

std::size_t packedSize(const Cell& cell) {
  switch (cell.kind) {
    case Cell::Kind::Null:
      return 1;
    case Cell::Kind::Integer:
    case Cell::Kind::Real:
      return 1 + sizeof(qint64);
    case Cell::Kind::Text:
    case Cell::Kind::Bytes:
      break;
  }
  return 1 + sizeof(Length) + cell.bytes.size();
}

template <typename Value>
char* write(char* to, const Value& value) {
  std::memcpy(to, &value, sizeof(Value));
  return to + sizeof(Value);
}

template <typename Value>
Value read(const char* from) {
  Value value;
  std::memcpy(&value, from, sizeof(Value));
  return value;
}

char* writeCell(char* to, const Cell& cell) {
  to = write(to, cell.kind);
  switch (cell.kind) {
    case Cell::Kind::Null:
      return to;
    case Cell::Kind::Integer:
      return write(to, cell.integer);
    case Cell::Kind::Real:
      return write(to, cell.real);
    case Cell::Kind::Text:
    case Cell::Kind::Bytes:
      break;
  }
  to = write(to, static_cast<Length>(cell.bytes.size()));
  return std::copy(cell.bytes.begin(), cell.bytes.end(), to);
}

Cell readCell(const char* from) {
  const auto kind = read<Cell::Kind>(from++);
  switch (kind) {
    case Cell::Kind::Null:
      return {};
    case Cell::Kind::Integer:
      return {kind, read<qint64>(from), 0, {}};
    case Cell::Kind::Real:
      return {kind, 0, read<double>(from), {}};
    case Cell::Kind::Text:
    case Cell::Kind::Bytes:
      break;
  }
  return {kind, 0, 0, {from + sizeof(Length), read<Length>(from)}};
}

// Takes the row that the statement stands on.
void appendCurrentRow(RowArena& rows, const OpenedSet& opened) {
  opened.requireSameColumns();
  rows.begin(opened.rowId());
  for (qsizetype column = 0; column < opened.set().columns.size(); ++column) {
    rows.add(opened.cell(column));
  }
  rows.append();
}

}  // namespace

qint64 RowArena::rowId(qsizetype row) const {
  return read<qint64>(rows_[row]);
}

Cell RowArena::cell(qsizetype row, qsizetype column) const {
  const char* at = rows_[row] + sizeof(qint64);
  for (; column > 0; --column) at += packedSize(readCell(at));
  return readCell(at);
}

void RowArena::begin(qint64 rowId) {
  begun_.resize(sizeof(rowId));
  write(begun_.data(), rowId);
}

void RowArena::add(const Cell& cell) {
  const qsizetype size = begun_.size();
  begun_.resize(size + static_cast<qsizetype>(packedSize(cell)));
  writeCell(begun_.data() + size, cell);
}

void RowArena::append() {
  rows_.append(keptRow());
}

void RowArena::replace(qsizetype row) {
  rows_[row] = keptRow();
}

void RowArena::remove(qsizetype row) {
  rows_.remove(row);
}

const char* RowArena::keptRow() {
  const auto size = static_cast<std::size_t>(begun_.size());
  return static_cast<char*>(std::memcpy(memory_.allocate(size, 1), begun_.constData(), size));
}

RowArena& LazyRows::rows() {
  if (!rows_) read();
  return *rows_;
}

void LazyRows::read() {
  PreparedStatement& statement = opened_.start();
  const StatementRun run(statement);
  RowArena& rows = rows_.emplace();
  try {
    while (statement.step()) appendCurrentRow(rows, opened_);
  } catch (...) {
    rows_.reset();
    throw;
  }
}

}  // namespace vellora
