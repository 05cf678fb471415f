#include "store/row_writer.h"

#include "store/connection.h"
#include "store/dialect.h"
#include "store/store_error.h"

#include <QStringList>

#include <algorithm>

namespace vellora {
namespace {

constexpr QStringView kReturningRow = u" RETURNING _rowid_, *";

// Binds the values from the first place on; returns the place behind them.
int bindValues(PreparedStatement& statement, const ColumnChanges& changes) {
  int index = 1;
  for (const ColumnChange& change : changes) statement.bind(index++, change.value.view());
  return index;
}

// A row of as many columns as the set has, even where another program has just changed the table.
StoredRow returnedRow(const PreparedStatement& statement, int columnCount) {
  StoredRow stored{statement.cell(0).integer, {}};
  stored.cells.reserve(columnCount);
  for (int i = 1; i <= columnCount; ++i) stored.cells.append(owned(statement.cell(i)));
  return stored;
}

// Without those that the row holds already: what is not written need not be sorted into an index.
ColumnChanges differences(const ColumnChanges& changes, const StoredRow& row) {
  ColumnChanges different;
  for (const ColumnChange& change : changes) {
    if (change.value.view() != row.cells[change.column].view()) different.append(change);
  }
  return different;
}

// The values that whereUnchanged() compares.
void bindIdentity(PreparedStatement& statement, int index, const StoredRow& row) {
  statement.bind(index++, Cell{Cell::Kind::Integer, row.rowId, 0, {}});
  for (const OwnedCell& cell : row.cells) statement.bind(index++, cell.view());
}

StoreError rowChanged() {
  return {StoreFault::RowChanged, u"这一行已被另一个窗口或程序修改或删除。"_qs};
}

}  // namespace

StoredRow RowWriter::insert(const ColumnChanges& changes) {
  PreparedStatement& statement = prepared(readInsertion_, changes, &RowWriter::readInsertion);
  const StatementRun statementRun(statement);
  bindValues(statement, changes);
  return run(statement).value();
}

qint64 RowWriter::insertUnread(const ColumnChanges& changes) {
  PreparedStatement& statement = prepared(insertion_, changes, &RowWriter::insertion);
  const StatementRun statementRun(statement);
  bindValues(statement, changes);
  run(statement);
  return connection_.lastInsertedRow();
}

StoredRow RowWriter::update(const StoredRow& row, const ColumnChanges& changes) {
  const ColumnChanges different = differences(changes, row);
  PreparedStatement& statement = prepared(change_, different, &RowWriter::change);
  const StatementRun statementRun(statement);
  bindIdentity(statement, bindValues(statement, different), row);
  const std::optional<StoredRow> stored = run(statement);
  if (!stored) throw rowChanged();
  return *stored;
}

void RowWriter::remove(const StoredRow& row) {
  PreparedStatement& statement = prepared(removal_, {}, &RowWriter::removal);
  const StatementRun statementRun(statement);
  bindIdentity(statement, 1, row);
  const qint64 before = connection_.changeCount();
  run(statement);
  if (connection_.changeCount() == before) throw rowChanged();
}

// Runs a statement that touches one row or none. The row counts once the run has ended well.
std::optional<StoredRow> RowWriter::run(PreparedStatement& statement) {
  std::optional<StoredRow> stored;
  const int columnCount = static_cast<int>(set_.columns.size());
  connection_.save([&] {
    while (statement.step()) stored = returnedRow(statement, columnCount);
  });
  return stored;
}

PreparedStatement& RowWriter::prepared(Prepared& last, const ColumnChanges& changes,
                                       QString (RowWriter::*sqlOf)(const ColumnChanges&) const) {
  const bool isSame = std::equal(
      changes.begin(), changes.end(), last.columns.begin(), last.columns.end(),
      [](const ColumnChange& change, qsizetype column) { return change.column == column; });
  if (last.set && isSame) return last.set->statement;
  last.set = connection_.statements().native((this->*sqlOf)(changes));
  last.columns.clear();
  for (const ColumnChange& change : changes) last.columns.append(change.column);
  return last.set->statement;
}

QString RowWriter::columnName(qsizetype column) const {
  return quotedName(set_.columns[column].name);
}

QString RowWriter::insertion(const ColumnChanges& changes) const {
  QStringList names;
  QStringList places;
  for (const ColumnChange& change : changes) {
    names.append(columnName(change.column));
    places.append(u"?"_qs);
  }
  const QString columns = names.isEmpty()
                              ? u"DEFAULT VALUES"_qs
                              : u"(%1) VALUES (%2)"_qs.arg(names.join(u','), places.join(u','));
  return u"INSERT INTO %1 %2"_qs.arg(quotedName(set_.table), columns);
}

QString RowWriter::readInsertion(const ColumnChanges& changes) const {
  return insertion(changes) + kReturningRow;
}

QString RowWriter::change(const ColumnChanges& changes) const {
  QStringList assignments;
  for (const ColumnChange& change : changes) assignments.append(columnName(change.column) + u"=?");
  if (changes.isEmpty()) assignments.append(u"_rowid_=_rowid_"_qs);
  return u"UPDATE %1 SET %2"_qs.arg(quotedName(set_.table), assignments.join(u',')) +
         whereUnchanged() + kReturningRow;
}

QString RowWriter::removal(const ColumnChanges& /*none*/) const {
  return u"DELETE FROM "_qs + quotedName(set_.table) + whereUnchanged();
}

// The row number and the cells that recognise a row.
QString RowWriter::whereUnchanged() const {
  QString condition = u" WHERE _rowid_=?"_qs;
  for (qsizetype i = 0; i < set_.columns.size(); ++i) {
    condition += u" AND " + columnName(i) + u" IS ?";
  }
  return condition;
}

}  // namespace vellora
