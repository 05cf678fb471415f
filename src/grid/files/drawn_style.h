#pragma once

#include "grid/sheet/cell_style.h"

#include <QColor>
#include <QFont>

namespace vellora {

// A cell's colour, font and place as they are drawn, on the screen and on paper. The face is one
// that is installed; without a flag a text is on the left, or in the middle between above and
// below.
QColor colourOf(PackedColour colour);
QFont fontOf(const CellFont& font);
Qt::Alignment alignmentOf(int flags);

}  // namespace vellora
