#pragma once

#include "store/column_kind.h"

#include <QString>
#include <QVariant>

#include <memory>

namespace vellora {

class Connection;

// Reads the rows of a table or a SELECT statement once, from the first to the last, in a memory
// that does not grow with their number. The file stays locked against saves of other programs until
// the cursor has passed the last row or is gone. A cursor must not outlive its store.
//
// Every operation may throw StoreError.
class RowCursor {
 public:
  RowCursor(Connection& connection, const QString& tableOrSelect);  // see ScheduleStore::readOnce
  RowCursor(RowCursor&&) noexcept;
  RowCursor& operator=(RowCursor&&) noexcept;
  ~RowCursor();

  // Goes to the next row, at first to the first; false when there is none any more.
  bool next();

  // Read the current row as Recordset does; StoreFault::NoCurrentRow before the first next() and
  // after the last.
  QVariant value(int position);
  QString text(int position);
  qint64 number(int position);

  int columnCount() const;
  QString columnName(int position) const;
  ColumnKind columnKind(int position) const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace vellora
