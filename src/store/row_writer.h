#pragma once

#include "store/cell.h"

#include <QList>

#include <memory>
#include <optional>

namespace vellora {

class Connection;
class PreparedStatement;
struct PreparedSet;

// Changes to one row: the columns that were set, by position.
struct ColumnChange {
  qsizetype column;
  OwnedCell value;
};
using ColumnChanges = QList<ColumnChange>;

// The table that a set stands for. Every operation throws StoreError and changes all or nothing.
class RowWriter {
 public:
  RowWriter(Connection& database, const PreparedSet& set) : connection_(database), set_(set) {}

  // Gives the row as the database stored it, defaults filled in.
  StoredRow insert(const ColumnChanges& changes);
  // The same when nobody needs the row yet, in half the time; gives its number.
  qint64 insertUnread(const ColumnChanges& changes);

  // Change or delete a row only while it still is as it was read: row numbers are given out again,
  // so a row of that number may be a different one by now. StoreFault::RowChanged if not.
  StoredRow update(const StoredRow& row, const ColumnChanges& changes);
  void remove(const StoredRow& row);

 private:
  // The columns that a statement writes, and the statement: a save writes the same ones again and
  // again.
  struct Prepared {
    QList<qsizetype> columns;
    std::shared_ptr<PreparedSet> set;
  };

  std::optional<StoredRow> run(PreparedStatement& statement);
  QString columnName(qsizetype column) const;
  PreparedStatement& prepared(Prepared& last, const ColumnChanges& changes,
                              QString (RowWriter::*sqlOf)(const ColumnChanges&) const);
  QString insertion(const ColumnChanges& changes) const;
  QString readInsertion(const ColumnChanges& changes) const;
  QString change(const ColumnChanges& changes) const;
  QString removal(const ColumnChanges& changes) const;
  QString whereUnchanged() const;

  Connection& connection_;
  const PreparedSet& set_;
  Prepared insertion_;
  Prepared readInsertion_;
  Prepared change_;
  Prepared removal_;
};

}  // namespace vellora
