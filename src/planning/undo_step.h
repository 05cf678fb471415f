#pragma once

#include "grid/surface/grid_surface.h"

namespace vellora {

// Makes every change to a grid until it goes one undo step.
class UndoStep {
 public:
  UndoStep(GridSurface& grid, const QString& name) : grid_(grid) { grid_.beginUndoStep(name); }
  ~UndoStep() { grid_.endUndoStep(); }
  UndoStep(const UndoStep&) = delete;
  UndoStep& operator=(const UndoStep&) = delete;

 private:
  GridSurface& grid_;
};

}  // namespace vellora
