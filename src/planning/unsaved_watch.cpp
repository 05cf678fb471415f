#include "planning/unsaved_watch.h"

#include "grid/surface/grid_surface.h"
#include "planning/unsaved_rows.h"

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
  count_ =
      markUnsavedRows(grid_.sheet(), [this](int row) { return is_unsaved_(grid_.sheet(), row); });
  seen_revision_ = grid_.sheet().revision();
  grid_.Redraw();
  notice_.setText(count_ == 0 ? QString() : u"浅黄色的 %1 行还没有保存"_qs.arg(count_));
}

bool UnsavedWatch::hasUnsaved() {
  catchUp();
  return count_ > 0;
}

void UnsavedWatch::catchUp() {
  if (grid_.sheet().revision() != seen_revision_) lookAgain();
}

}  // namespace vellora
