#pragma once

#include "store/column_kind.h"

#include <QDate>
#include <QString>
#include <QTime>
#include <QVariant>

#include <memory>

namespace vellora {

class Connection;

// Reads rows once, from the first to the last, straight from the file: the quickest way to look
// something up, and a way through a million rows in a memory that does not grow. From the first
// next() until it has passed the last row or is gone, other programs cannot save. A cursor must not
// outlive its store.
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
  QString text(QStringView name);
  QString text(int position);
  QDate date(QStringView name);
  QTime time(QStringView name);
  qint64 number(QStringView name);
  qint64 number(int position);

  int columnCount() const;
  QString columnName(int position) const;
  ColumnKind columnKind(int position) const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace vellora
