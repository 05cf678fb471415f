#include "store/opened_set.h"

#include "store/connection.h"
#include "store/store_error.h"

namespace vellora {
namespace {

bool isSelect(QStringView text) {
  return text.size() > 6 && isSameName(text.first(6), u"SELECT") && !text[6].isLetterOrNumber();
}

QString selectOf(const QString& tableOrSelect) {
  if (isSelect(tableOrSelect)) return tableOrSelect;
  return u"SELECT * FROM ["_qs + QStringView(tableOrSelect).trimmed() + u']';
}

}  // namespace

OpenedSet::OpenedSet(Connection& connection, const QString& tableOrSelect)
    : connection_(connection),
      select_(selectOf(tableOrSelect)),
      set_(&connection.statements().setOf(select_, literals_)) {}

PreparedStatement& OpenedSet::start() {
  if (set_->statement.isRunning()) set_ = &connection_.statements().setOf(select_, literals_);
  literals_.bindTo(set_->statement);
  return set_->statement;
}

Cell OpenedSet::cell(qsizetype column) const {
  return set_->statement.cell(set_->firstColumn() + static_cast<int>(column));
}

qint64 OpenedSet::rowId() const {
  return set_->table.isEmpty() ? 0 : set_->statement.cell(0).integer;
}

void OpenedSet::requireSameColumns() const {
  if (set_->statement.columnCount() == set_->firstColumn() + set_->columns.size()) return;
  throw StoreError(StoreFault::Other, u"日程文件的表结构已被另一个程序改变，请重新启动。"_qs);
}

}  // namespace vellora
