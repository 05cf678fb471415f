#include "store/recordset.h"

#include "store/connection.h"
#include "store/find_condition.h"
#include "store/row_arena.h"
#include "store/row_writer.h"
#include "store/statement_cache.h"
#include "store/store_error.h"

#include <algorithm>
#include <optional>

namespace vellora {
namespace {

// A row being added or edited.
struct RowEdit {
  bool isNew;
  ColumnChanges changes;
};

qsizetype positionOf(const RowArena& rows, qint64 rowId) {
  qsizetype row = rows.rowCount();
  while (row > 0 && rows.rowId(row - 1) != rowId) --row;
  return row > 0 ? row - 1 : rows.rowCount();
}

// Begins a row of the set with what the database stored.
void begin(RowArena& rows, const StoredRow& stored) {
  rows.begin(stored.rowId);
  for (const OwnedCell& cell : stored.cells) rows.add(cell.view());
}

}  // namespace

struct Recordset::State {
  State(Connection& connection, const Query& tableOrSelect) : lazy(connection, tableOrSelect) {}

  // The rows, read; a row that was added before they were read is then current.
  RowArena& rows();
  // The current row, which must be one.
  qsizetype currentRow();
  RowWriter& writer();  // StoreFault::NotUpdatable when rows of the set cannot be changed

  LazyRows lazy;
  qsizetype position = 0;
  bool noMatch = false;
  std::optional<RowWriter> rowWriter;
  std::optional<RowEdit> edit;
  std::optional<qint64> addedUnread;  // row number of the row that is current though unread
};

RowArena& Recordset::State::rows() {
  RowArena& rows = lazy.rows();
  if (addedUnread) position = positionOf(rows, *addedUnread);
  addedUnread.reset();
  return rows;
}

qsizetype Recordset::State::currentRow() {
  if (position < rows().rowCount()) return position;
  throw StoreError(StoreFault::NoCurrentRow, u"没有当前记录。"_qs);
}

RowWriter& Recordset::State::writer() {
  if (rowWriter) return *rowWriter;
  if (!lazy.set().table.isEmpty()) return rowWriter.emplace(lazy.connection(), lazy.set());
  throw StoreError(StoreFault::NotUpdatable, u"这些记录不是来自一个表，不能修改。"_qs);
}

Recordset::Recordset(Connection& connection, const Query& tableOrSelect)
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

bool Recordset::findFirst(const Query& condition) {
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
  if (state_->lazy.set().isWholeTable && !state_->lazy.isRead()) {
    state_->addedUnread = state_->writer().insertUnread(changes);
    return;
  }
  RowArena& rows = state_->rows();
  const StoredRow stored = state_->writer().insert(changes);
  begin(rows, stored);
  rows.append();
  state_->position = rows.rowCount() - 1;
}

void Recordset::storeEdited() {
  const qsizetype row = state_->currentRow();
  RowArena& rows = state_->rows();
  const StoredRow stored = state_->writer().update(rows, row, state_->edit->changes);
  begin(rows, stored);
  rows.replace(row);
}

void Recordset::remove() {
  RowWriter& writer = state_->writer();
  const qsizetype row = state_->currentRow();
  writer.remove(state_->rows(), row);
  state_->rows().remove(row);
  state_->edit.reset();
}

}  // namespace vellora
