#pragma once

#include "grid/sheet/cell_style.h"
#include "grid/surface/grid_colours.h"

#include <QColor>

namespace vellora {

struct InkAndPaper {
  QColor ink;
  QColor paper;
};

// Colours that a cell was given stand in every skin, for they tell a category. Black on white
// without a text tells nothing and is the skin's own paper.
InkAndPaper inkAndPaper(const CellStyle& style, const GridColours& colours, bool isHeading,
                        bool isEmpty);

}  // namespace vellora
