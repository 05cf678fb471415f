#pragma once

#include "grid/sheet/sheet.h"
#include "grid/surface/cell_range.h"

#include <Qt>

#include <optional>

namespace vellora {

// The cell to which a key leads from another, as in spreadsheets: arrows, with Ctrl to the edge of
// what is filled, Home, End, PageUp, PageDown, Tab and Enter with their Shift variants. Hidden rows
// are passed over. None for a key that does not move, and for Tab at the sheet's last cell and
// Shift+Tab at its first, which lead out of the sheet.
std::optional<CellPlace> targetOf(int key, Qt::KeyboardModifiers modifiers, CellPlace from,
                                  const Sheet& sheet, int pageRows);

// Tab and Enter move alone; Shift turns them round and selects nothing.
bool selectsWithShift(int key);

}  // namespace vellora
