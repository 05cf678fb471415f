#pragma once

#include "grid/surface/cell_drag.h"
#include "schedule/plan_moves.h"
#include "schedule/time_blocks.h"

namespace vellora {

class PlanCommands;

// Moves a planned block to where the mouse lets it go, or copies it there. What lies under the
// mouse says whether it is free or who holds it.
class PlanDrag : public CellDragHandler {
 public:
  // `step` turns the board by a day.
  PlanDrag(PlanCommands& commands, std::function<void(int days)> step)
      : commands_(commands), step_(std::move(step)) {}

  bool beginDrag(CellPlace cell) override;
  void dragOver(CellPlace cell, bool copies, QPoint globalPlace) override;
  void dragBeyond(int direction) override { step_(direction); }
  void dropOn(CellPlace cell, bool copies) override;
  void cancelDrag() override;

 private:
  PlanCommands& commands_;
  std::function<void(int days)> step_;
  std::optional<PlannedBlock> block_;
  TimeBlockList blocks_;
};

}  // namespace vellora
