#pragma once

#include <QString>

#include <functional>
#include <optional>

namespace vellora {

// What a cell holds after the user put a text into it; lines are separated by character 13.
struct CellEntry {
  QString text;
  QString tag;
};

// How a window understands a text that the user types, or pastes from another program, into a cell:
// what the cell is to hold, or nothing where the text means nothing there. Asked for texts that are
// not empty, while the grid still holds what was there before.
using EntryRule = std::function<std::optional<CellEntry>(int col, int row, const QString& text)>;

}  // namespace vellora
