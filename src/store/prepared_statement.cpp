#include "store/prepared_statement.h"

#include "routine/work_step.h"
#include "store/store_error.h"

#include <sqlite3.h>

namespace vellora {
namespace {

// The number of bytes is asked for first: a text of a schedule in UTF-16 becomes UTF-8 then, and
// moves.
std::string_view bytesOf(sqlite3_value* value) {
  const auto size = static_cast<std::size_t>(sqlite3_value_bytes(value));
  return {static_cast<const char*>(sqlite3_value_blob(value)), size};
}

}  // namespace

void PreparedStatement::Finalizer::operator()(sqlite3_stmt* statement) const {
  sqlite3_finalize(statement);
}

PreparedStatement::PreparedStatement(sqlite3* handle, const QByteArray& sql) {
  sqlite3_stmt* statement = nullptr;
  const int code = sqlite3_prepare_v3(handle, sql.constData(), static_cast<int>(sql.size()),
                                      SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
  statement_.reset(statement);
  if (code != SQLITE_OK) throw engineError(handle);
}

void PreparedStatement::check(int code) {
  if (code == SQLITE_INTERRUPT) throw WorkCancelled();
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

bool PreparedStatement::isRunning() const {
  return sqlite3_stmt_busy(statement_.get()) != 0;
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

// Through the column's value, which the engine leaves without a lock: the connection belongs to one
// thread, and three calls for each column would cost half a look-up.
Cell PreparedStatement::cell(int column) const {
  sqlite3_value* const value = sqlite3_column_value(statement_.get(), column);
  switch (sqlite3_value_type(value)) {
    case SQLITE_INTEGER:
      return {Cell::Kind::Integer, sqlite3_value_int64(value), 0, {}};
    case SQLITE_FLOAT:
      return {Cell::Kind::Real, 0, sqlite3_value_double(value), {}};
    case SQLITE_TEXT:
      return {Cell::Kind::Text, 0, 0, bytesOf(value)};
    case SQLITE_BLOB:
      return {Cell::Kind::Bytes, 0, 0, bytesOf(value)};
    default:
      return {};
  }
}

}  // namespace vellora
