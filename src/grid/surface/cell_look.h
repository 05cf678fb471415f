#pragma once

#include "grid/sheet/cell_style.h"
#include "grid/surface/grid_colours.h"

#include <QColor>

namespace vellora {

struct InkAndPaper {
  QColor ink;
  QColor paper;
};

// Explicit colours show as they stand, except black on white: that is ink on paper, and every skin
// has its own.
InkAndPaper inkAndPaper(const CellStyle& style, const GridColours& colours, bool isHeading);

}  // namespace vellora
