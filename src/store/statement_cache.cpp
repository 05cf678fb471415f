#include "store/statement_cache.h"

#include "store/translation.h"

namespace vellora {

PreparedSet preparedSet(sqlite3* connection, QStringView statement) {
  const Translation translation = translated(statement);
  PreparedSet set{PreparedStatement(connection, translation.sql),
                  {},
                  translation.table,
                  translation.isWholeTable};
  for (int column = set.firstColumn(); column < set.statement.columnCount(); ++column) {
    set.columns.append(
        describedColumn(set.statement.columnName(column), set.statement.declaredType(column)));
  }
  return set;
}

PreparedSet& StatementCache::setOf(QStringView shape) {
  const std::u16string_view key(shape.utf16(), static_cast<std::size_t>(shape.size()));
  const auto known = sets_.find(key);
  if (known != sets_.end()) return known->second;
  return sets_.emplace(std::u16string(key), preparedSet(connection_, shape)).first->second;
}

PreparedStatement& StatementCache::native(const QByteArray& sql) {
  std::shared_ptr<PreparedStatement>& statement = native_[sql];
  if (!statement) statement = std::make_shared<PreparedStatement>(connection_, sql);
  return *statement;
}

}  // namespace vellora
