#pragma once

#include "grid/surface/cell_range.h"

#include <QPoint>

namespace vellora {

// What a grid's owner does while the user drags a cell with the mouse. Without one, dragging
// selects.
class CellDragHandler {
 public:
  virtual ~CellDragHandler() = default;
  // Whether the pressed cell is dragged; false lets the mouse select.
  virtual bool beginDrag(CellPlace cell) = 0;
  // The mouse is over a cell, or over none; Ctrl copies.
  virtual void dragOver(CellPlace cell, bool copies, QPoint globalPlace) = 0;
  // The mouse rests near the left (-1) or the right edge (1).
  virtual void dragBeyond(int direction) = 0;
  virtual void dropOn(CellPlace cell, bool copies) = 0;
  virtual void cancelDrag() = 0;
};

}  // namespace vellora
