#pragma once

#include "store/column.h"
#include "store/prepared_statement.h"
#include "store/statement_shape.h"

#include <QHash>
#include <QList>

#include <memory>
#include <vector>

namespace vellora {

class Literals;

// A prepared statement and what its rows look like.
struct PreparedSet {
  PreparedStatement statement;
  QList<Column> columns;
  QString table;  // empty when the rows cannot be changed
  bool isWholeTable = false;

  // Rows that can be changed begin with a result column more, their row number.
  int firstColumn() const { return table.isEmpty() ? 0 : 1; }
};

// Every statement that was used on a connection, ready to run again. The planner has a few dozen
// shapes, so nothing is ever thrown away and references stay valid.
class StatementCache {
 public:
  explicit StatementCache(sqlite3* connection) : connection_(connection) {}

  // A statement of the dialect that is not running; its literals are put into `literals`. Throws
  // StoreError.
  PreparedSet& setOf(QStringView statement, Literals& literals);

  // A statement in the engine's own words.
  PreparedStatement& native(const QByteArray& sql);

 private:
  struct Known {
    StatementShape shape;
    PreparedSet set;
  };

  sqlite3* connection_;
  // The one used last comes first: a board fill goes to and fro between two, which are found faster
  // by comparing than by any hash.
  std::vector<std::unique_ptr<Known>> known_;
  QHash<QByteArray, std::shared_ptr<PreparedStatement>> native_;
};

}  // namespace vellora
