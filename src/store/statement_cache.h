#pragma once

#include "store/column.h"
#include "store/prepared_statement.h"

#include <QHash>
#include <QList>

#include <string>
#include <unordered_map>

namespace vellora {

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

  // A statement of the dialect, by its shape. Throws StoreError when it cannot be prepared.
  PreparedSet& setOf(QStringView shape);

  // A statement in the engine's own words.
  PreparedStatement& native(const QByteArray& sql);

 private:
  struct ShapeHash {
    using is_transparent = void;
    std::size_t operator()(std::u16string_view shape) const {
      return qHashBits(shape.data(), shape.size() * sizeof(char16_t));
    }
  };

  sqlite3* connection_;
  std::unordered_map<std::u16string, PreparedSet, ShapeHash, std::equal_to<>> sets_;
  QHash<QByteArray, std::shared_ptr<PreparedStatement>> native_;
};

// Prepares a statement of the dialect or its shape outside any cache.
PreparedSet preparedSet(sqlite3* connection, QStringView statement);

}  // namespace vellora
