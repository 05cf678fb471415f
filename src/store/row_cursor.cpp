#include "store/row_cursor.h"

#include "store/connection.h"
#include "store/lazy_rows.h"
#include "store/literals.h"
#include "store/store_error.h"

namespace vellora {
namespace {

PreparedSet slicedSet(Connection& connection, const QString& tableOrSelect, Literals& literals) {
  const QString select = selectOf(tableOrSelect);
  const StatementShape shape(select);
  PreparedSet set = preparedSet(connection.handle(), shape);
  shape.takeLiterals(select, literals);
  return set;
}

}  // namespace

// The statement is the cursor's own: one from the cache could be started again under it.
struct RowCursor::State {
  State(Connection& connection, const QString& tableOrSelect)
      : set(slicedSet(connection, tableOrSelect, literals)) {
    literals.bindTo(set.statement);
  }

  const Column& column(int position) const {
    if (position >= 0 && position < set.columns.size()) return set.columns[position];
    throw StoreError(StoreFault::ColumnMissing, u"没有第 %1 列。"_qs.arg(position + 1));
  }

  Cell cell(int position) const {
    if (!hasRow) throw StoreError(StoreFault::NoCurrentRow, u"没有当前记录。"_qs);
    column(position);
    return set.statement.cell(set.firstColumn() + position);
  }

  Literals literals;
  PreparedSet set;
  bool hasRow = false;
  bool isOver = false;
};

RowCursor::RowCursor(Connection& connection, const QString& tableOrSelect)
    : state_(std::make_unique<State>(connection, tableOrSelect)) {}

RowCursor::RowCursor(RowCursor&&) noexcept = default;
RowCursor& RowCursor::operator=(RowCursor&&) noexcept = default;
RowCursor::~RowCursor() = default;

bool RowCursor::next() {
  if (state_->isOver) return false;
  state_->hasRow = false;
  state_->hasRow = state_->set.statement.step();
  state_->isOver = !state_->hasRow;
  if (state_->isOver) state_->set.statement.reset();
  return state_->hasRow;
}

QVariant RowCursor::value(int position) {
  return cellValue(state_->cell(position), columnKind(position));
}

QString RowCursor::text(int position) {
  return cellText(state_->cell(position));
}

qint64 RowCursor::number(int position) {
  return cellNumber(state_->cell(position));
}

int RowCursor::columnCount() const {
  return static_cast<int>(state_->set.columns.size());
}

QString RowCursor::columnName(int position) const {
  return state_->column(position).name;
}

ColumnKind RowCursor::columnKind(int position) const {
  return state_->column(position).kind;
}

}  // namespace vellora
