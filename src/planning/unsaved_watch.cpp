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
  const Sheet& sheet = grid_.sheet();
  grid_.markRows(unsavedRows(sheet, [&](int row) { return is_unsaved_(sheet, row); }),
                 u"未保存"_qs);
  seen_revision_ = sheet.revision();
  const auto count = grid_.markedRows().size();
  notice_.setText(count == 0 ? QString() : u"左边有橙色标记的 %1 行还没有保存"_qs.arg(count));
}

bool UnsavedWatch::hasUnsaved() {
  catchUp();
  return !grid_.markedRows().empty();
}

void UnsavedWatch::catchUp() {
  if (grid_.sheet().revision() != seen_revision_) lookAgain();
}

}  // namespace vellora
