#pragma once

#include "store/column.h"
#include "store/query.h"
#include "store/statement_cache.h"

#include <QDate>
#include <QList>
#include <QString>
#include <QTime>
#include <QVariant>

#include <memory>

namespace vellora {

class Connection;

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

// A SELECT statement with its values, ready to run.
class OpenedSet {
 public:
  // A table by its name or a SELECT statement. Throws StoreError when it cannot be prepared.
  OpenedSet(Connection& database, const Query& tableOrSelect);

  Connection& database() const { return connection_; }
  const PreparedSet& set() const { return *set_; }

  // Binds the values. The statement is shared with every other set of its text: it must be reset
  // when the run is over, and before the bound values go. While a cursor runs on it, another one is
  // prepared.
  PreparedStatement& start();

  // The row that the statement stands on, or one cell of it.
  StoredRow row() const;
  Cell cell(qsizetype column) const;
  // Throws StoreError when another program has given the table more or fewer columns.
  void requireSameColumns() const;

 private:
  Connection& connection_;
  Query select_;
  std::shared_ptr<PreparedSet> set_;
};

// Reads rows once, from the first to the last, straight from the file: the quickest way to look
// something up, and a way through a million rows in a memory that does not grow. From the first
// next() until it has passed the last row or is gone, other programs cannot save. A cursor must not
// outlive its store.
//
// Every operation may throw StoreError.
class RowCursor final : public RowReader {
 public:
  RowCursor(Connection& database, const Query& tableOrSelect);  // see ScheduleStore::readOnce
  RowCursor(RowCursor&&) noexcept;
  RowCursor& operator=(RowCursor&&) noexcept;
  ~RowCursor() override;

  // Goes to the next row, at first to the first; false when there is none any more. Before the
  // first call and after the last row no row is current.
  bool next();

 private:
  struct State;
  const QList<Column>& columns() const override;
  Cell cell(qsizetype column) override;

  std::unique_ptr<State> state_;
};

}  // namespace vellora
