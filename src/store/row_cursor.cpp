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

const QList<Column>& RowCursor::columns() const {
  return state_->opened.set().columns;
}

Cell RowCursor::cell(qsizetype column) {
  if (state_->place == State::Place::OnRow) return state_->opened.cell(column);
  throw StoreError(StoreFault::NoCurrentRow, u"没有当前记录。"_qs);
}

}  // namespace vellora
