#pragma once

#include "store/cell.h"

#include <QByteArray>

#include <memory>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace vellora {

// One statement of the engine, prepared once and run many times. It stands on the engine's own
// interface: SQLiteCpp's statement takes half as long again to read a row, of which a backup reads
// a million, and does not notice that another program has given a table more columns.
//
// Everything but reset() throws StoreError, and step() WorkCancelled when it was told to stop.
class PreparedStatement {
 public:
  PreparedStatement(sqlite3* handle, const QByteArray& sql);

  // Bound bytes are not copied: they must live until the statement is bound anew.
  void bindText(int index, std::string_view text);
  void bind(int index, const Cell& cell);

  // True when there is a row to read.
  bool step();
  // Ends the run and lets go of the file. Never throws: step() has reported what went wrong.
  void reset() noexcept;

  // True between the first row and the reset, unless the rows have come to their end.
  bool isRunning() const;

  int columnCount() const;
  QString columnName(int column) const;
  QString declaredType(int column) const;  // empty for an expression
  Cell cell(int column) const;             // valid until the next step

 private:
  struct Finalizer {
    void operator()(sqlite3_stmt* statement) const;
  };

  void check(int code);

  std::unique_ptr<sqlite3_stmt, Finalizer> statement_;
};

// Resets a statement when its run is over, however it ends.
class StatementRun {
 public:
  explicit StatementRun(PreparedStatement& statement) : statement_(statement) {}
  ~StatementRun() { statement_.reset(); }
  StatementRun(const StatementRun&) = delete;
  StatementRun& operator=(const StatementRun&) = delete;

 private:
  PreparedStatement& statement_;
};

}  // namespace vellora
