#pragma once

#include "store/column.h"
#include "store/prepared_statement.h"
#include "store/query.h"

#include <QByteArrayList>
#include <QList>
#include <QString>

#include <memory>
#include <vector>

namespace vellora {

// A prepared statement and what its rows look like.
struct PreparedSet {
  QString text;  // as it was asked for
  PreparedStatement statement;
  int placeCount = 0;
  QByteArrayList literals;
  QList<Column> columns;
  QString table;  // empty when the rows cannot be changed
  bool isWholeTable = false;

  // Rows that can be changed begin with a result column more, their row number.
  int firstColumn() const { return table.isEmpty() ? 0 : 1; }
  // StoreFault::Syntax when there are not as many values as places.
  void requireValues(const Query& query) const;
  // The statement goes on pointing at the query's values until it is bound anew.
  void bind(const Query& query);
};

// The statements that were used last on a connection, ready to run again. One that is thrown away
// stays with whoever still uses it.
class StatementCache {
 public:
  explicit StatementCache(sqlite3* handle) : handle_(handle) {}

  // A statement of the dialect, or one in the engine's own words, that is not running. Throws
  // StoreError.
  std::shared_ptr<PreparedSet> translated(const QString& statement);
  std::shared_ptr<PreparedSet> native(const QString& sql);

 private:
  using Prepare = PreparedSet (*)(sqlite3*, const QString&);
  std::shared_ptr<PreparedSet> kept(const QString& text, Prepare prepare);

  sqlite3* handle_;
  // The one used last comes first: a board fill goes to and fro between two, which are found faster
  // by comparing than by any hash.
  std::vector<std::shared_ptr<PreparedSet>> kept_;
};

}  // namespace vellora
