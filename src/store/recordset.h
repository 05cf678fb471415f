#pragma once

#include "store/row_reader.h"

#include <memory>

namespace vellora {

class Connection;

// A set of rows opened by ScheduleStore::open. Rows are read when they are first asked for, all at
// once; from then on the set holds no lock and does not change but through its own edits (rolling a
// transaction back does not take them out of the set again).
//
// Every operation may throw StoreError. A set must not outlive its store.
class Recordset final : public RowReader {
 public:
  Recordset(Connection& database, const Query& tableOrSelect);  // see ScheduleStore::open
  Recordset(Recordset&&) noexcept;
  Recordset& operator=(Recordset&&) noexcept;
  ~Recordset() override;

  qsizetype count();
  bool isEmpty();

  // The first row is current after opening. Moving past the last row, or to a position that is no
  // row, reaches the end, whose position is count(). Moving drops an edit that was not stored.
  void moveFirst();
  void moveNext();
  void moveLast();
  void moveTo(qsizetype position);
  qsizetype position();
  bool atEnd();
  // What tells the current row from every other of its table, also from one with equal columns.
  qint64 rowId();

  // Makes the first row that meets a condition such as "HDBH='001'" current: columns that equal
  // literals, joined by AND. Without a match, noMatch() reports true and the current row stays as
  // it was.
  bool findFirst(const Query& condition);
  bool noMatch() const;

  // addNew or edit, then set by name or by position, then update. The set must come from one table:
  // SELECT * or its name; StoreFault::NotUpdatable otherwise. After update the stored row is part
  // of the set and current. A value that its column cannot hold is refused by set; the columns set
  // before stay set. Dropping the set before update drops the changes; after an update that failed
  // it can be tried again. StoreFault::RowChanged when the row was changed or deleted elsewhere
  // since the set read it.
  //
  // Rows can be added to a whole table without its rows being read.
  void addNew();
  void edit();
  void set(QStringView name, const QVariant& value);
  void set(int position, const QVariant& value);
  void update();
  // Deletes the current row; the row that followed it becomes current.
  void remove();

 private:
  struct State;
  const QList<Column>& columns() const override;
  Cell cell(qsizetype column) override;
  void storeNew();
  void storeEdited();

  std::unique_ptr<State> state_;
};

}  // namespace vellora
