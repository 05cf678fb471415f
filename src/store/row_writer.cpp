#include "store/row_writer.h"

#include "store/connection.h"
#include "store/row_arena.h"
#include "store/store_error.h"
#include "store/translation.h"

#include <QStringList>

namespace vellora {
namespace {

constexpr QStringView kReturningRow = u" RETURNING _rowid_, *";

OwnedCell owned(const Cell& cell) {
  return {cell.kind, cell.integer, cell.real,
          QByteArray(cell.bytes.data(), static_cast<qsizetype>(cell.bytes.size()))};
}

QList<OwnedCell> valuesOf(const ColumnChanges& changes) {
  QList<OwnedCell> values;
  for (const ColumnChange& change : changes) values.append(change.value);
  return values;
}

// The row number and the cells that recognise a row.
QList<OwnedCell> identityOf(const RowArena& rows, qsizetype row, qsizetype columns) {
  QList<OwnedCell> identity{{Cell::Kind::Integer, rows.rowId(row), 0, {}}};
  for (qsizetype column = 0; column < columns; ++column) {
    identity.append(owned(rows.cell(row, column)));
  }
  return identity;
}

// A statement that touches one row or none. The row counts once the run has ended well.
std::optional<StoredRow> run(PreparedStatement& statement, const QList<OwnedCell>& values) {
  const StatementRun statementRun(statement);
  for (qsizetype i = 0; i < values.size(); ++i) {
    statement.bind(static_cast<int>(i) + 1, values[i].view());
  }
  std::optional<StoredRow> stored;
  while (statement.step()) {
    stored = StoredRow{statement.cell(0).integer, {}};
    for (int i = 1; i < statement.columnCount(); ++i)
      stored->cells.append(owned(statement.cell(i)));
  }
  return stored;
}

StoreError rowChanged() {
  return {StoreFault::RowChanged, u"这一行已被另一个窗口或程序修改或删除，请重新打开后再试。"_qs};
}

}  // namespace

StoredRow RowWriter::insert(const ColumnChanges& changes) {
  return run(insertion(changes, kReturningRow), valuesOf(changes)).value();
}

qint64 RowWriter::insertUnread(const ColumnChanges& changes) {
  run(insertion(changes, u""), valuesOf(changes));
  return connection_.lastInsertedRow();
}

StoredRow RowWriter::update(const RowArena& rows, qsizetype row, const ColumnChanges& changes) {
  QStringList assignments;
  for (const ColumnChange& change : changes) assignments.append(columnName(change.column) + u"=?");
  if (changes.isEmpty()) assignments.append(u"_rowid_=_rowid_"_qs);
  const QString sql = u"UPDATE %1 SET %2 WHERE %3"_qs.arg(quotedName(set_.table),
                                                          assignments.join(u','), unchangedRow());
  const std::optional<StoredRow> stored =
      run(prepared(sql + kReturningRow),
          valuesOf(changes) + identityOf(rows, row, set_.columns.size()));
  if (!stored) throw rowChanged();
  return *stored;
}

void RowWriter::remove(const RowArena& rows, qsizetype row) {
  const QString sql = u"DELETE FROM %1 WHERE %2"_qs.arg(quotedName(set_.table), unchangedRow());
  if (!run(prepared(sql + kReturningRow), identityOf(rows, row, set_.columns.size())))
    throw rowChanged();
}

QString RowWriter::columnName(qsizetype column) const {
  return quotedName(set_.columns[column].name);
}

PreparedStatement& RowWriter::insertion(const ColumnChanges& changes, QStringView returning) {
  QList<qsizetype> columns;
  for (const ColumnChange& change : changes) columns.append(change.column);
  if (last_.statement == nullptr || last_.columns != columns || last_.returning != returning) {
    last_ = {columns, returning, &prepared(insertionOf(changes) + returning)};
  }
  return *last_.statement;
}

QString RowWriter::insertionOf(const ColumnChanges& changes) const {
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

QString RowWriter::unchangedRow() const {
  QString condition = u"_rowid_=?"_qs;
  for (qsizetype i = 0; i < set_.columns.size(); ++i) {
    condition += u" AND " + columnName(i) + u" IS ?";
  }
  return condition;
}

PreparedStatement& RowWriter::prepared(const QString& sql) const {
  return connection_.statements().native(sql.toUtf8());
}

}  // namespace vellora
