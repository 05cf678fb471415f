#pragma once

#include "store/column_kind.h"

#include <QDate>
#include <QList>
#include <QString>
#include <QTime>
#include <QVariant>

namespace vellora {

struct Cell;
struct Column;

// Reads the current row of an opened set, a column by its name, without regard to case, or by its
// position. An empty column gives an invalid QVariant, an empty text, an invalid date or time, 0.
// As a QVariant a date, a time of day or both read as QDate, QTime or QDateTime, a yes/no column as
// bool, integers as qint64.
//
// Every operation may throw StoreError; reading throws StoreFault::NoCurrentRow without a row.
class RowReader {
 public:
  virtual ~RowReader() = default;

  QVariant value(QStringView name);
  QVariant value(int position);
  QString text(QStringView name);
  QString text(int position);
  QDate date(QStringView name);
  QDate date(int position);
  QTime time(QStringView name);
  qint64 number(QStringView name);
  qint64 number(int position);

  int columnCount() const;
  QString columnName(int position) const;
  QString shownName(int position) const;  // what the user knows the column by
  ColumnKind columnKind(int position) const;
  // Where a column of this name is; StoreFault::ColumnMissing when there is none.
  int columnNamed(QStringView name) const;
  // Whether a text, or the number, date or time that it says, could be stored in the column.
  bool canHold(int position, const QString& text) const;

 private:
  virtual const QList<Column>& columns() const = 0;
  // Of the current row.
  virtual Cell cell(qsizetype column) = 0;
  Cell cellNamed(QStringView name);
  Cell cellAt(int position);
};

}  // namespace vellora
