#include "shell/grid_keys.h"

#include "grid/surface/grid_surface.h"

#include <QKeyEvent>

namespace vellora {

GridKeys::GridKeys(GridSurface& grid, ApplicationState& /*state*/,
                   std::function<QString()> baseName)
    : QObject(&grid), grid_(grid), base_name_(std::move(baseName)) {
  connect(&grid, &GridSurface::GridKeyDown, this, &GridKeys::handle);
}

void GridKeys::handle(QKeyEvent* event) {
  if (event->key() != Qt::Key_F3) return;
  event->accept();
  grid_.setDocumentName(base_name_());
  grid_.PrintSheet(false);
}

}  // namespace vellora
