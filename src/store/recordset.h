#pragma once

#include "store/column_kind.h"

#include <QDate>
#include <QString>
#include <QTime>
#include <QVariant>

#include <memory>

namespace vellora {

// A set of rows opened by ScheduleStore::open. Rows are read when they are first asked for, all at
// once; from then on the set holds no lock and does not change but through its own edits. Column
// names match without regard to case.
//
// Every operation may throw StoreError. A set must not outlive its store.
class Recordset {
 public:
  Recordset(Recordset&&) noexcept;
  Recordset& operator=(Recordset&&) noexcept;
  ~Recordset();

  qsizetype count();
  bool isEmpty();

  // The first row is current after opening. Moving past the last row reaches the end.
  void moveFirst();
  void moveNext();
  void moveLast();
  void moveTo(qsizetype position);
  qsizetype position();
  bool atEnd();

  // Makes the first row that meets a condition such as "HDBH='001'" current. Without a match,
  // noMatch() reports true and the current row stays as it was.
  bool findFirst(const QString& condition);
  bool noMatch() const;

  // Read the current row; StoreFault::NoCurrentRow when there is none. An empty column gives an
  // invalid QVariant, an empty text, an invalid date or time, 0.
  QVariant value(QStringView name);
  QVariant value(int position);
  QString text(QStringView name);
  QDate date(QStringView name);
  QTime time(QStringView name);
  qint64 number(QStringView name);

  int columnCount();
  QString columnName(int position);
  ColumnKind columnKind(int position);

  // addNew or edit, then set, then update. The set must come from one table: SELECT * or its name.
  // After update the stored row is part of the set and current. A value that its column cannot hold
  // is refused by set. Dropping the set before update drops the changes.
  void addNew();
  void edit();
  void set(QStringView name, const QVariant& value);
  void update();
  // Deletes the current row; the row that followed it becomes current.
  void remove();

 private:
  friend class ScheduleStore;
  class Rows;
  explicit Recordset(std::unique_ptr<Rows> rows);
  std::unique_ptr<Rows> rows_;
};

}  // namespace vellora
