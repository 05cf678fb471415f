#pragma once

#include "store/cell.h"

#include <QList>

#include <memory>

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
  // The columns that a statement writes, and the statement: a save writes the same ones again and
  // again.
  struct Prepared {
    QList<qsizetype> columns;
    std::shared_ptr<PreparedSet> set;
  };

  QString columnName(qsizetype column) const;
  PreparedStatement& prepared(Prepared& last, const ColumnChanges& changes,
                              QString (RowWriter::*sqlOf)(const ColumnChanges&) const);
  QString insertion(const ColumnChanges& changes) const;
  QString readInsertion(const ColumnChanges& changes) const;
  QString change(const ColumnChanges& changes) const;
  QString removal(const ColumnChanges& changes) const;
  QString whereUnchanged() const;
  void bindIdentity(PreparedStatement& statement, int index, const RowArena& rows,
                    qsizetype row) const;

  Connection& connection_;
  const PreparedSet& set_;
  Prepared insertion_;
  Prepared readInsertion_;
  Prepared change_;
  Prepared removal_;
};

}  // namespace vellora
