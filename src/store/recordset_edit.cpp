#include "store/find_condition.h"
#include "store/recordset.h"
#include "store/recordset_state.h"
#include "store/store_error.h"

#include <algorithm>

namespace vellora {
namespace {

// Begins a row of the set with what the database stored.
void begin(RowArena& rows, const StoredRow& stored) {
  rows.begin(stored.rowId);
  for (const OwnedCell& cell : stored.cells) rows.add(cell.view());
}

}  // namespace

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
