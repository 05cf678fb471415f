#include "board/plan_drag.h"

#include "board/plan_commands.h"
#include "board/plan_dialogs.h"
#include "routine/text.h"

#include <QToolTip>

namespace vellora {

bool PlanDrag::beginDrag(CellPlace cell) {
  block_.reset();
  commands_.guarded([&] {
    block_ = commands_.blockAt(cell);
    blocks_ = TimeBlockList(commands_.store());
  });
  return block_.has_value();
}

void PlanDrag::dragOver(CellPlace cell, bool copies, QPoint globalPlace) {
  const auto place = commands_.placeAt(cell.col, cell.row);
  if (!place || *place == block_->place) return QToolTip::hideText();
  const QString holder = commands_.shownActivity(cell);
  const QString where = placeText(*place, blocks_, commands_.firstDay());
  const QString state = holder.isEmpty() ? u"空闲"_qs : u"已安排"_qs + quoted(holder);
  QToolTip::showText(globalPlace,
                     (copies ? u"复制到 "_qs : u"移到 "_qs) + where + u"："_qs + state);
}

void PlanDrag::dropOn(CellPlace cell, bool copies) {
  QToolTip::hideText();
  const auto to = commands_.placeAt(cell.col, cell.row);
  if (!to || *to == block_->place) return;
  commands_.guarded([&] { commands_.put(*block_, *to, copies); });
}

void PlanDrag::cancelDrag() {
  QToolTip::hideText();
}

}  // namespace vellora
