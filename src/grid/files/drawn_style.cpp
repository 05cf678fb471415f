#include "grid/files/drawn_style.h"

#include "grid/files/installed_face.h"

#include <algorithm>

namespace vellora {

QColor colourOf(PackedColour colour) {
  return {redOf(colour), greenOf(colour), blueOf(colour)};
}

QFont fontOf(const CellFont& font) {
  QFont drawn(installedFace(font.face));
  drawn.setPointSize(std::max(font.size, 1));
  drawn.setBold(isBold(font));
  return drawn;
}

Qt::Alignment alignmentOf(int flags) {
  Qt::Alignment horizontal = Qt::AlignLeft;
  if ((flags & kAlignCentre) != 0) horizontal = Qt::AlignHCenter;
  if ((flags & kAlignRight) != 0) horizontal = Qt::AlignRight;
  Qt::Alignment vertical = Qt::AlignVCenter;
  if ((flags & kAlignTop) != 0) vertical = Qt::AlignTop;
  if ((flags & kAlignBottom) != 0) vertical = Qt::AlignBottom;
  return horizontal | vertical;
}

}  // namespace vellora
