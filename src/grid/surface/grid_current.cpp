// How a GridSurface keeps track of its current cell.

#include "grid/surface/grid_surface_parts.h"

namespace vellora {

void GridSurface::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  const int left = previous.row();
  const int entered = current.row();
  QTableView::currentChanged(current, previous);
  viewport()->update();
  if (left != entered && !parts_->isQuiet) parts_->entered(left, entered);
}

void GridSurface::selectionChanged(const QItemSelection& selected,
                                   const QItemSelection& deselected) {
  QTableView::selectionChanged(selected, deselected);
  viewport()->update();
}

// A cell that is being typed into keeps what was typed so far.
void GridSurface::dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                              const QList<int>& roles) {
  if (!parts_->isEditing()) QTableView::dataChanged(topLeft, bottomRight, roles);
  viewport()->update();
}

}  // namespace vellora
