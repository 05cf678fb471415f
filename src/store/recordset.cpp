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

qint64 Recordset::rowId() {
  const qsizetype row = state_->currentRow();
  return state_->rows().rowId(row);
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

const QList<Column>& Recordset::columns() const {
  return state_->lazy.set().columns;
}

Cell Recordset::cell(qsizetype column) {
  const qsizetype row = state_->currentRow();
  return state_->rows().cell(row, column);
}

}  // namespace vellora
