#include "store/statement_cache.h"

#include "store/literals.h"
#include "store/schema_tables.h"
#include "store/translation.h"

#include <algorithm>

namespace vellora {
namespace {

PreparedSet preparedSet(sqlite3* connection, const StatementShape& shape) {
  const Translation translation = translated(shape.text());
  PreparedSet set{PreparedStatement(connection, translation.sql),
                  {},
                  translation.table,
                  translation.isWholeTable};
  for (int column = set.firstColumn(); column < set.statement.columnCount(); ++column) {
    const QString name = set.statement.columnName(column);
    set.columns.append(
        describedColumn(name, set.statement.declaredType(column), shownColumn(set.table, name)));
  }
  return set;
}

}  // namespace

PreparedSet& StatementCache::setOf(QStringView statement, Literals& literals) {
  const auto fits = [&](const auto& known) {
    return !known->set.statement.isRunning() && known->shape.takeLiterals(statement, literals);
  };
  auto found = std::find_if(known_.begin(), known_.end(), fits);
  if (found == known_.end()) {
    const StatementShape shape(statement);
    PreparedSet set = preparedSet(connection_, shape);
    shape.takeLiterals(statement, literals);
    known_.push_back(std::make_unique<Known>(Known{shape, std::move(set)}));
    found = known_.end() - 1;
  }
  std::rotate(known_.begin(), found, found + 1);
  return known_.front()->set;
}

PreparedStatement& StatementCache::native(const QByteArray& sql) {
  std::shared_ptr<PreparedStatement>& statement = native_[sql];
  if (!statement) statement = std::make_shared<PreparedStatement>(connection_, sql);
  return *statement;
}

}  // namespace vellora
