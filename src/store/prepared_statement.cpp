#include "store/prepared_statement.h"

#include "store/engine_error.h"

#include <sqlite3.h>

namespace vellora {
namespace {

std::string_view columnBytes(sqlite3_stmt* statement, int column) {
  const void* const bytes = sqlite3_column_blob(statement, column);
  const int size = sqlite3_column_bytes(statement, column);
  return {static_cast<const char*>(bytes), static_cast<std::size_t>(size)};
}

}  // namespace

void PreparedStatement::Finalizer::operator()(sqlite3_stmt* statement) const {
  sqlite3_finalize(statement);
}

PreparedStatement::PreparedStatement(sqlite3* connection, const QByteArray& sql) {
  sqlite3_stmt* statement = nullptr;
  const int code = sqlite3_prepare_v3(connection, sql.constData(), static_cast<int>(sql.size()),
                                      SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
  statement_.reset(statement);
  if (code != SQLITE_OK) throw engineError(connection);
}

void PreparedStatement::check(int code) {
  if (code != SQLITE_OK) throw engineError(sqlite3_db_handle(statement_.get()));
}

void PreparedStatement::bindText(int index, std::string_view text) {
  check(sqlite3_bind_text64(statement_.get(), index, text.empty() ? "" : text.data(), text.size(),
                            SQLITE_STATIC, SQLITE_UTF8));
}

void PreparedStatement::bind(int index, const Cell& cell) {
  sqlite3_stmt* const statement = statement_.get();
  switch (cell.kind) {
    case Cell::Kind::Null:
      return check(sqlite3_bind_null(statement, index));
    case Cell::Kind::Integer:
      return check(sqlite3_bind_int64(statement, index, cell.integer));
    case Cell::Kind::Real:
      return check(sqlite3_bind_double(statement, index, cell.real));
    case Cell::Kind::Text:
      return bindText(index, cell.bytes);
    case Cell::Kind::Bytes:
      return check(sqlite3_bind_blob64(statement, index, cell.bytes.data(), cell.bytes.size(),
                                       SQLITE_STATIC));
  }
}

bool PreparedStatement::step() {
  const int code = sqlite3_step(statement_.get());
  if (code != SQLITE_ROW && code != SQLITE_DONE) check(code);
  return code == SQLITE_ROW;
}

void PreparedStatement::reset() noexcept {
  sqlite3_reset(statement_.get());
}

int PreparedStatement::columnCount() const {
  return sqlite3_column_count(statement_.get());
}

QString PreparedStatement::columnName(int column) const {
  return QString::fromUtf8(sqlite3_column_name(statement_.get(), column));
}

QString PreparedStatement::declaredType(int column) const {
  return QString::fromUtf8(sqlite3_column_decltype(statement_.get(), column));
}

Cell PreparedStatement::cell(int column) const {
  sqlite3_stmt* const statement = statement_.get();
  switch (sqlite3_column_type(statement, column)) {
    case SQLITE_INTEGER:
      return {Cell::Kind::Integer, sqlite3_column_int64(statement, column), 0, {}};
    case SQLITE_FLOAT:
      return {Cell::Kind::Real, 0, sqlite3_column_double(statement, column), {}};
    case SQLITE_TEXT:
      return {Cell::Kind::Text, 0, 0, columnBytes(statement, column)};
    case SQLITE_BLOB:
      return {Cell::Kind::Bytes, 0, 0, columnBytes(statement, column)};
    default:
      return {};
  }
}

}  // namespace vellora
