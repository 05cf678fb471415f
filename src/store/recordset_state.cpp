#include "store/recordset_state.h"

#include "store/connection.h"
#include "store/store_error.h"

namespace vellora {
namespace {

qsizetype positionOf(const RowArena& rows, qint64 rowId) {
  qsizetype row = rows.rowCount();
  while (row > 0 && rows.rowId(row - 1) != rowId) --row;
  return row > 0 ? row - 1 : rows.rowCount();
}

}  // namespace

RowArena& Recordset::State::rows() {
  RowArena& rows = lazy.rows();
  if (addedUnread) position = positionOf(rows, *addedUnread);
  addedUnread.reset();
  return rows;
}

qsizetype Recordset::State::currentRow() {
  if (position < rows().rowCount()) return position;
  throw StoreError(StoreFault::NoCurrentRow, u"没有当前记录。"_qs);
}

RowWriter& Recordset::State::writer() {
  if (rowWriter) return *rowWriter;
  if (!lazy.set().table.isEmpty()) return rowWriter.emplace(lazy.connection(), lazy.set());
  throw StoreError(StoreFault::NotUpdatable, u"这些记录不是来自一个表，不能修改。"_qs);
}

}  // namespace vellora
