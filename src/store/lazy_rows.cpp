#include "store/lazy_rows.h"

#include "store/connection.h"
#include "store/store_error.h"

namespace vellora {
namespace {

bool isSelect(QStringView text) {
  return text.size() > 6 && isSameName(text.first(6), u"SELECT") && !text[6].isLetterOrNumber();
}

}  // namespace

QString selectOf(const QString& tableOrSelect) {
  if (isSelect(tableOrSelect)) return tableOrSelect;
  return u"SELECT * FROM ["_qs + QStringView(tableOrSelect).trimmed() + u']';
}

LazyRows::LazyRows(Connection& connection, const QString& tableOrSelect, RowsWanted wanted)
    : connection_(connection),
      set_(&connection.statements().setOf(selectOf(tableOrSelect), literals_)),
      wanted_(wanted) {}

bool LazyRows::isWholeTable() const {
  return set_->isWholeTable && wanted_ == RowsWanted::All;
}

RowArena& LazyRows::rows() {
  if (!rows_) read();
  return *rows_;
}

void LazyRows::read() {
  RowArena& rows = rows_.emplace();
  try {
    PreparedStatement& statement = set_->statement;
    const StatementRun run(statement);
    literals_.bindTo(statement);
    while (statement.step()) {
      const Cells cells = currentCells(*set_);
      const qint64 rowId = set_->table.isEmpty() ? 0 : statement.cell(0).integer;
      rows.append(rowId, {cells.data(), static_cast<std::size_t>(cells.size())});
      if (wanted_ == RowsWanted::First) break;
    }
  } catch (...) {
    rows_.reset();
    throw;
  }
}

Cells currentCells(const PreparedSet& set) {
  const int first = set.firstColumn();
  if (set.statement.columnCount() != first + set.columns.size()) {
    throw StoreError(StoreFault::Other, u"日程文件的表结构已被另一个程序改变，请重新启动。"_qs);
  }
  Cells cells;
  for (int column = 0; column < set.columns.size(); ++column) {
    cells.append(set.statement.cell(first + column));
  }
  return cells;
}

}  // namespace vellora
