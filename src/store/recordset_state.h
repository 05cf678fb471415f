#pragma once

#include "store/lazy_rows.h"
#include "store/recordset.h"
#include "store/row_writer.h"
#include "store/statement_cache.h"

#include <optional>

namespace vellora {

// A row being added or edited.
struct RowEdit {
  bool isNew;
  ColumnChanges changes;
};

struct Recordset::State {
  State(Connection& connection, const QString& tableOrSelect) : lazy(connection, tableOrSelect) {}

  // The rows, read; a row that was added before they were read is then current.
  RowArena& rows();
  // The current row, which must be one.
  qsizetype currentRow();
  RowWriter& writer();  // StoreFault::NotUpdatable when rows of the set cannot be changed

  LazyRows lazy;
  qsizetype position = 0;
  bool noMatch = false;
  std::optional<RowWriter> rowWriter;
  std::optional<RowEdit> edit;
  std::optional<qint64> addedUnread;  // row number of the row that is current though unread
};

}  // namespace vellora
