#include "store/recordset.h"

#include "store/connection.h"
#include "store/find_condition.h"
#include "store/row_writer.h"
#include "store/statement_cache.h"
#include "store/store_error.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace vellora {
namespace {

// A row being added or edited.
struct RowEdit {
  bool isNew;
  ColumnChanges changes;
};

using Rows = std::vector<StoredRow>;

// The end when there is no row of that number.
qsizetype positionOf(const Rows& rows, qint64 rowId) {
  const auto found = std::find_if(rows.rbegin(), rows.rend(),
                                  [rowId](const StoredRow& row) { return row.rowId == rowId; });
  return found == rows.rend() ? std::ssize(rows) : rows.rend() - found - 1;
}

}  // namespace

struct Recordset::State {
  State(Connection& database, const Query& tableOrSelect) : opened(database, tableOrSelect) {}

  // The rows, read when that has not been done; a failure leaves them unread. A row that was added
  // before is then current.
  Rows& rows();
  void read();
  // StoreFault::NoCurrentRow at the end.
  StoredRow& currentRow();
  RowWriter& writer();  // StoreFault::NotUpdatable when rows of the set cannot be changed

  OpenedSet opened;
  std::optional<Rows> readRows;
  qsizetype position = 0;
  bool noMatch = false;
  std::optional<RowWriter> rowWriter;
  std::optional<RowEdit> edit;
  std::optional<qint64> addedUnread;  // row number of the row that is current though unread
};

Rows& Recordset::State::rows() {
  if (!readRows) read();
  return *readRows;
}

void Recordset::State::read() {
  Rows rows;
  PreparedStatement& statement = opened.start();
  const StatementRun run(statement);
  while (statement.step()) {
    opened.requireSameColumns();
    rows.push_back(opened.row());
  }
  if (addedUnread) position = positionOf(rows, *addedUnread);
  addedUnread.reset();
  readRows = std::move(rows);
}

StoredRow& Recordset::State::currentRow() {
  if (position < std::ssize(rows())) return rows()[static_cast<std::size_t>(position)];
  throw StoreError(StoreFault::NoCurrentRow, u"没有当前记录。"_qs);
}

RowWriter& Recordset::State::writer() {
  if (rowWriter) return *rowWriter;
  if (!opened.set().table.isEmpty()) return rowWriter.emplace(opened.database(), opened.set());
  throw StoreError(StoreFault::NotUpdatable, u"这些记录不是来自一个表，不能修改。"_qs);
}

Recordset::Recordset(Connection& database, const Query& tableOrSelect)
    : state_(std::make_unique<State>(database, tableOrSelect)) {}

Recordset::Recordset(Recordset&&) noexcept = default;
Recordset& Recordset::operator=(Recordset&&) noexcept = default;
Recordset::~Recordset() = default;

qsizetype Recordset::count() {
  return std::ssize(state_->rows());
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
  return state_->currentRow().rowId;
}

bool Recordset::findFirst(const Query& condition) {
  const FindCondition wanted(condition, columns());
  const Rows& rows = state_->rows();
  const auto found = std::find_if(rows.begin(), rows.end(),
                                  [&](const StoredRow& row) { return wanted.isMetBy(row); });
  state_->noMatch = found == rows.end();
  if (!state_->noMatch) moveTo(found - rows.begin());
  return !state_->noMatch;
}

bool Recordset::noMatch() const {
  return state_->noMatch;
}

const QList<Column>& Recordset::columns() const {
  return state_->opened.set().columns;
}

Cell Recordset::cell(qsizetype column) {
  return state_->currentRow().cells[column].view();
}

void Recordset::addNew() {
  state_->writer();
  state_->edit = RowEdit{true, {}};
  state_->edit->changes.reserve(columns().size());
}

void Recordset::edit() {
  state_->writer();
  state_->currentRow();
  state_->edit = RowEdit{false, {}};
}

void Recordset::set(QStringView name, const QVariant& value) {
  set(static_cast<int>(columnPosition(columns(), name)), value);
}

void Recordset::set(int position, const QVariant& value) {
  if (!state_->edit) {
    throw StoreError(StoreFault::NotUpdatable, u"要先新增或编辑一条记录，才能填写内容。"_qs);
  }
  const qsizetype column = position;
  OwnedCell cell = columnCell(columnAt(columns(), position), value);
  ColumnChanges& changes = state_->edit->changes;
  const auto before = std::find_if(changes.begin(), changes.end(), [column](const auto& change) {
    return change.column == column;
  });
  if (before != changes.end()) {
    before->value = std::move(cell);
  } else {
    changes.append({column, std::move(cell)});
  }
}

void Recordset::update() {
  if (!state_->edit) {
    throw StoreError(StoreFault::NotUpdatable, u"没有正在新增或编辑的记录，不能保存。"_qs);
  }
  state_->edit->isNew ? storeNew() : storeEdited();
  state_->edit.reset();
}

// A row added to a whole table belongs to the set by itself when the rows are read later. In any
// other set the rows are read first, so that the new one is not read twice.
void Recordset::storeNew() {
  const ColumnChanges& changes = state_->edit->changes;
  if (state_->opened.set().isWholeTable && !state_->readRows) {
    state_->addedUnread = state_->writer().insertUnread(changes);
    return;
  }
  Rows& rows = state_->rows();
  rows.push_back(state_->writer().insert(changes));
  state_->position = std::ssize(rows) - 1;
}

void Recordset::storeEdited() {
  StoredRow& row = state_->currentRow();
  row = state_->writer().update(row, state_->edit->changes);
}

void Recordset::remove() {
  RowWriter& writer = state_->writer();
  writer.remove(state_->currentRow());
  state_->rows().erase(state_->rows().begin() + state_->position);
  state_->edit.reset();
}

}  // namespace vellora
