#include "store/row_cursor.h"

#include "store/column.h"
#include "store/opened_set.h"
#include "store/store_error.h"

namespace vellora {

struct RowCursor::State {
  enum class Place { BeforeFirst, OnRow, Over };

  State(Connection& connection, const QString& tableOrSelect) : opened(connection, tableOrSelect) {}
  ~State() { end(); }
  State(const State&) = delete;
  State& operator=(const State&) = delete;

  void end() {
    if (statement != nullptr) statement->reset();
    statement = nullptr;
    place = Place::Over;
  }

  Cell cell(qsizetype position) const {
    if (place == Place::OnRow) return opened.cell(position);
    throw StoreError(StoreFault::NoCurrentRow, u"没有当前记录。"_qs);
  }

  Cell cell(QStringView name) const { return cell(columnPosition(opened.set().columns, name)); }

  OpenedSet opened;
  PreparedStatement* statement = nullptr;  // while it runs
  Place place = Place::BeforeFirst;
};

RowCursor::RowCursor(Connection& connection, const QString& tableOrSelect)
    : state_(std::make_unique<State>(connection, tableOrSelect)) {}

RowCursor::RowCursor(RowCursor&&) noexcept = default;
RowCursor& RowCursor::operator=(RowCursor&&) noexcept = default;
RowCursor::~RowCursor() = default;

bool RowCursor::next() {
  if (state_->place == State::Place::Over) return false;
  if (state_->statement == nullptr) state_->statement = &state_->opened.start();
  state_->place = State::Place::Over;  // also when the step fails: the engine would start again
  if (!state_->statement->step()) {
    state_->end();
    return false;
  }
  state_->opened.requireSameColumns();
  state_->place = State::Place::OnRow;
  return true;
}

QVariant RowCursor::value(int position) {
  const ColumnKind kind = columnKind(position);
  return cellValue(state_->cell(position), kind);
}

QString RowCursor::text(QStringView name) {
  return cellText(state_->cell(name));
}

QString RowCursor::text(int position) {
  columnKind(position);
  return cellText(state_->cell(position));
}

QDate RowCursor::date(QStringView name) {
  return cellDate(state_->cell(name));
}

QTime RowCursor::time(QStringView name) {
  return cellTime(state_->cell(name));
}

qint64 RowCursor::number(QStringView name) {
  return cellNumber(state_->cell(name));
}

qint64 RowCursor::number(int position) {
  columnKind(position);
  return cellNumber(state_->cell(position));
}

int RowCursor::columnCount() const {
  return static_cast<int>(state_->opened.set().columns.size());
}

QString RowCursor::columnName(int position) const {
  return columnAt(state_->opened.set().columns, position).name;
}

ColumnKind RowCursor::columnKind(int position) const {
  return columnAt(state_->opened.set().columns, position).kind;
}

}  // namespace vellora
