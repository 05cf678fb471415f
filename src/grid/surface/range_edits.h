#pragma once

#include "grid/sheet/sheet.h"
#include "grid/surface/cell_range.h"
#include "grid/surface/clipboard_text.h"

namespace vellora {

// What users do to rectangles of cells. Hidden rows are neither read nor written. Only shown texts
// change; tags and looks stay, for the windows own them.

TextTable textsOf(const Sheet& sheet, const CellRange& range);
void emptyCells(Sheet& sheet, const CellRange& range);

// What a paste had no room for.
struct Lost {
  int rows = 0;
  int cols = 0;
};

// One text fills the whole range; more go in from its top left, beyond the range where they must.
Lost pasteTexts(Sheet& sheet, const CellRange& range, const TextTable& table);

// Cells with tags and looks, from one sheet to another place of the same or another.
void copyCells(const Sheet& from, const CellRange& range, Sheet& to, CellPlace place);

}  // namespace vellora
