#include "planning/unsaved_watch.h"

#include "grid/surface/grid_surface.h"

#include <QLabel>

namespace vellora {

UnsavedWatch::UnsavedWatch(GridSurface& grid, QLabel& notice, Question isUnsaved)
    : QObject(&grid), grid_(grid), notice_(notice), is_unsaved_(std::move(isUnsaved)) {
  later_.setSingleShot(true);
  connect(&later_, &QTimer::timeout, this, &UnsavedWatch::catchUp);
  const auto start = qOverload<>(&QTimer::start);
  const auto* model = grid.model();
  connect(model, &QAbstractItemModel::dataChanged, &later_, start);
  connect(model, &QAbstractItemModel::rowsInserted, &later_, start);
  connect(model, &QAbstractItemModel::rowsRemoved, &later_, start);
  connect(model, &QAbstractItemModel::modelReset, &later_, start);
}

void UnsavedWatch::lookAgain() {
  found_ = {};
  catchUp();
}

bool UnsavedWatch::hasUnsaved() {
  catchUp();
  return !found_.rows.empty();
}

void UnsavedWatch::catchUp() {
  const Sheet& sheet = grid_.sheet();
  findUnsavedRows(
      sheet, [&](int row) { return is_unsaved_(sheet, row); }, found_);
  std::vector<RowMark> marks;
  for (const int row : found_.rows) marks.push_back({row, u"未保存"_qs});
  if (marks == grid_.markedRows()) return;
  grid_.markRows(std::move(marks));
  const auto count = found_.rows.size();
  notice_.setText(count == 0 ? QString() : u"左边有橙色标记的 %1 行还没有保存"_qs.arg(count));
}

}  // namespace vellora
