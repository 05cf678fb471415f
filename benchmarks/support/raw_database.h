#pragma once

#include <QByteArray>
#include <QString>

#include <sqlite3.h>
#include <stdexcept>

namespace vellora::bench {

// The engine's own interface, as bare as it can be used: what the store is compared with.
class RawStatement {
 public:
  RawStatement(sqlite3* connection, const char* sql) {
    if (sqlite3_prepare_v2(connection, sql, -1, &statement_, nullptr) != SQLITE_OK) {
      throw std::runtime_error(sqlite3_errmsg(connection));
    }
  }
  ~RawStatement() { sqlite3_finalize(statement_); }
  RawStatement(const RawStatement&) = delete;
  RawStatement& operator=(const RawStatement&) = delete;

  void bind(int index, const QByteArray& text) {
    sqlite3_bind_text(statement_, index, text.constData(), static_cast<int>(text.size()),
                      SQLITE_STATIC);
  }
  void bind(int index, qint64 number) { sqlite3_bind_int64(statement_, index, number); }
  bool step() { return sqlite3_step(statement_) == SQLITE_ROW; }
  void reset() { sqlite3_reset(statement_); }
  int columnCount() { return sqlite3_column_count(statement_); }
  bool isNumber(int column) { return sqlite3_column_type(statement_, column) == SQLITE_INTEGER; }
  qint64 number(int column) { return sqlite3_column_int64(statement_, column); }
  QString text(int column) {
    const auto* const bytes =
        reinterpret_cast<const char*>(sqlite3_column_text(statement_, column));
    return QString::fromUtf8(bytes, sqlite3_column_bytes(statement_, column));
  }
  QByteArray bytes(int column) {
    const auto* const bytes =
        reinterpret_cast<const char*>(sqlite3_column_text(statement_, column));
    return {bytes, sqlite3_column_bytes(statement_, column)};
  }

 private:
  sqlite3_stmt* statement_ = nullptr;
};

class RawDatabase {
 public:
  explicit RawDatabase(const QString& path) {
    if (sqlite3_open_v2(path.toUtf8().constData(), &connection_,
                        SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr) != SQLITE_OK) {
      throw std::runtime_error(sqlite3_errmsg(connection_));
    }
  }
  ~RawDatabase() { sqlite3_close_v2(connection_); }
  RawDatabase(const RawDatabase&) = delete;
  RawDatabase& operator=(const RawDatabase&) = delete;

  sqlite3* connection() { return connection_; }
  void run(const char* sql) { sqlite3_exec(connection_, sql, nullptr, nullptr, nullptr); }

 private:
  sqlite3* connection_ = nullptr;
};

}  // namespace vellora::bench
