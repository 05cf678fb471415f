#pragma once

#include "store/cell.h"

#include <QList>

#include <optional>

namespace vellora {

class Connection;
class PreparedStatement;
class RowArena;
struct PreparedSet;

// Changes to one row: the columns that were set, by position.
struct ColumnChange {
  qsizetype column;
  OwnedCell value;
};
using ColumnChanges = QList<ColumnChange>;

// A row as the database stored it, defaults filled in.
struct StoredRow {
  qint64 rowId = 0;
  QList<OwnedCell> cells;
};

// The table that a set stands for. Every operation throws StoreError and changes all or nothing.
class RowWriter {
 public:
  RowWriter(Connection& connection, const PreparedSet& set) : connection_(connection), set_(set) {}

  StoredRow insert(const ColumnChanges& changes);
  // The same when nobody needs the row yet, in half the time; gives its number.
  qint64 insertUnread(const ColumnChanges& changes);

  // Change or delete a row only while it still is what the arena holds: row numbers are given out
  // again, so a row of that number may be a different one by now. StoreFault::RowChanged if not.
  StoredRow update(const RowArena& rows, qsizetype row, const ColumnChanges& changes);
  void remove(const RowArena& rows, qsizetype row);

 private:
  QString columnName(qsizetype column) const;
  PreparedStatement& insertion(const ColumnChanges& changes, QStringView returning);
  QString insertionOf(const ColumnChanges& changes) const;
  QString unchangedRow() const;
  PreparedStatement& prepared(const QString& sql) const;

  struct Insertion {
    QList<qsizetype> columns;
    QStringView returning;
    PreparedStatement* statement = nullptr;
  };

  Connection& connection_;
  const PreparedSet& set_;
  Insertion last_;  // a restore sets the same columns a million times
};

}  // namespace vellora
