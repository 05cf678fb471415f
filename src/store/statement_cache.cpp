#include "store/statement_cache.h"

#include "store/dialect.h"
#include "store/schema_tables.h"
#include "store/store_error.h"

#include <algorithm>

namespace vellora {
namespace {

constexpr std::size_t kMostKept = 64;  // twice as many as a day's work with every window needs

PreparedSet translatedSet(sqlite3* handle, const QString& statement) {
  Translation translation = vellora::translated(statement);
  PreparedSet set{statement,
                  PreparedStatement(handle, translation.sql),
                  translation.placeCount,
                  std::move(translation.literals),
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

PreparedSet nativeSet(sqlite3* handle, const QString& sql) {
  return {sql, PreparedStatement(handle, sql.toUtf8()), 0, {}, {}, {}, false};
}

std::string_view viewOf(const QByteArray& bytes) {
  return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

}  // namespace

void PreparedSet::requireValues(const Query& query) const {
  if (query.valueCount() == placeCount) return;
  throw StoreError(StoreFault::Syntax, u"语句中的“?”没有对应的值。"_qs);
}

void PreparedSet::bind(const Query& query) {
  int index = 1;
  for (int place = 0; place < placeCount; ++place) {
    statement.bindText(index++, viewOf(query.value(place)));
  }
  for (const QByteArray& literal : literals) statement.bindText(index++, viewOf(literal));
}

std::shared_ptr<PreparedSet> StatementCache::translated(const QString& statement) {
  return kept(statement, translatedSet);
}

// Its quoted names tell it from every statement of the dialect.
std::shared_ptr<PreparedSet> StatementCache::native(const QString& sql) {
  return kept(sql, nativeSet);
}

std::shared_ptr<PreparedSet> StatementCache::kept(const QString& text, Prepare prepare) {
  auto found = std::find_if(kept_.begin(), kept_.end(), [&](const auto& set) {
    return set->text == text && !set->statement.isRunning();
  });
  if (found == kept_.end()) {
    if (kept_.size() == kMostKept) kept_.pop_back();
    kept_.push_back(std::make_shared<PreparedSet>(prepare(handle_, text)));
    found = kept_.end() - 1;
  }
  std::rotate(kept_.begin(), found, found + 1);
  return kept_.front();
}

}  // namespace vellora
