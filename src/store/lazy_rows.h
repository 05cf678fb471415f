#pragma once

#include "store/literals.h"
#include "store/recordset.h"
#include "store/row_arena.h"

#include <QStringView>

#include <optional>

namespace vellora {

class Connection;
struct PreparedSet;

// The rows of one statement, read all at once when they are first asked for.
class LazyRows {
 public:
  // A table by its name or a SELECT statement. Throws StoreError when it cannot be prepared.
  LazyRows(Connection& connection, const QString& tableOrSelect, RowsWanted wanted);

  Connection& connection() { return connection_; }
  const PreparedSet& set() const { return *set_; }
  // True when a row added to the table is sure to be among the rows that are read later.
  bool isWholeTable() const;
  bool isRead() const { return rows_.has_value(); }

  // Reads the rows when that has not been done. A failure leaves them unread.
  RowArena& rows();

 private:
  void read();

  Connection& connection_;
  Literals literals_;
  PreparedSet* set_;
  RowsWanted wanted_;
  std::optional<RowArena> rows_;
};

// A SELECT statement as it stands, a table's name as the statement that opens it.
QString selectOf(const QString& tableOrSelect);

// The cells of the row that a set's statement stands on, valid until its next step.
using Cells = QVarLengthArray<Cell, 8>;
Cells currentCells(const PreparedSet& set);

}  // namespace vellora
