#pragma once

#include "store/literals.h"
#include "store/statement_cache.h"

#include <QString>

namespace vellora {

class Connection;

// A SELECT statement with the values of its literals, ready to run.
class OpenedSet {
 public:
  // A table by its name or a SELECT statement. Throws StoreError when it cannot be prepared.
  OpenedSet(Connection& connection, const QString& tableOrSelect);

  Connection& connection() const { return connection_; }
  const PreparedSet& set() const { return *set_; }

  // Binds the values. The statement is shared with every other set of its shape: it must be reset
  // when the run is over, and before the bound values go. While a cursor runs on it, another one is
  // prepared.
  PreparedStatement& start();

  // A cell of the row that the statement stands on.
  Cell cell(qsizetype column) const;
  qint64 rowId() const;  // 0 when rows of the set cannot be changed
  // Throws StoreError when another program has given the table more or fewer columns.
  void requireSameColumns() const;

 private:
  Connection& connection_;
  QString select_;
  Literals literals_;
  PreparedSet* set_;
};

}  // namespace vellora
