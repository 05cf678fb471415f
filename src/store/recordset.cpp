#include "store/recordset.h"

#include "store/find_condition.h"
#include "store/recordset_state.h"

namespace vellora {

Recordset::Recordset(Connection& connection, const QString& tableOrSelect)
    : state_(std::make_unique<State>(connection, tableOrSelect)) {}

Recordset::Recordset(Recordset&&) noexcept = default;
Recordset& Recordset::operator=(Recordset&&) noexcept = default;
Recordset::~Recordset() = default;

qsizetype Recordset::count() {
  return state_->rows().rowCount();
}

bool Recordset::isEmpty() {
  return count() == 0;
}

void Recordset::moveFirst() {
  moveTo(0);
}

void Recordset::moveNext() {
  moveTo(position() + 1);
}

void Recordset::moveLast() {
  moveTo(count() - 1);
}

void Recordset::moveTo(qsizetype position) {
  const qsizetype end = count();
  state_->position = position >= 0 && position < end ? position : end;
  state_->edit.reset();
}

qsizetype Recordset::position() {
  state_->rows();
  return state_->position;
}

bool Recordset::atEnd() {
  return position() == count();
}

bool Recordset::findFirst(const QString& condition) {
  const FindCondition wanted(condition, state_->lazy.set().columns);
  const RowArena& rows = state_->rows();
  qsizetype row = 0;
  while (row < rows.rowCount() && !wanted.isMetBy(rows, row)) ++row;
  state_->noMatch = row == rows.rowCount();
  if (!state_->noMatch) moveTo(row);
  return !state_->noMatch;
}

bool Recordset::noMatch() const {
  return state_->noMatch;
}

QVariant Recordset::value(QStringView name) {
  return value(static_cast<int>(columnPosition(state_->lazy.set().columns, name)));
}

QVariant Recordset::value(int position) {
  return cellValue(state_->cell(position), columnKind(position));
}

QString Recordset::text(QStringView name) {
  return cellText(state_->cell(name));
}

QString Recordset::text(int position) {
  return cellText(state_->cell(position));
}

QDate Recordset::date(QStringView name) {
  return cellDate(state_->cell(name));
}

QTime Recordset::time(QStringView name) {
  return cellTime(state_->cell(name));
}

qint64 Recordset::number(QStringView name) {
  return cellNumber(state_->cell(name));
}

qint64 Recordset::number(int position) {
  return cellNumber(state_->cell(position));
}

int Recordset::columnCount() {
  return static_cast<int>(state_->lazy.set().columns.size());
}

QString Recordset::columnName(int position) {
  return columnAt(state_->lazy.set().columns, position).name;
}

ColumnKind Recordset::columnKind(int position) {
  return columnAt(state_->lazy.set().columns, position).kind;
}

}  // namespace vellora
