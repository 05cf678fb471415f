#pragma once

#include "routine/colour.h"

#include <array>
#include <cstddef>

namespace vellora {

// The 56 colours that a binary Excel file holds. It begins as the format's own; a colour that is
// not among them takes the place of one not asked for yet. When all are taken, the nearest stands
// in. Black and white are always there.
class ExcelPalette {
 public:
  static constexpr std::size_t kSize = 56;

  // The number that the format's records know the colour by: 8 to 63.
  unsigned indexOf(PackedColour colour);
  const std::array<PackedColour, kSize>& colours() const { return colours_; }

 private:
  std::array<PackedColour, kSize> colours_ = standardColours();
  std::array<bool, kSize> taken_{true, true};

  static std::array<PackedColour, kSize> standardColours();
  std::size_t nearest(PackedColour colour) const;
};

}  // namespace vellora
