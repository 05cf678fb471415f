#include "grid/files/excel_palette.h"

#include <algorithm>

namespace vellora {
namespace {

constexpr unsigned kFirstIndex = 8;

// As red, green, blue.
constexpr std::array<unsigned, ExcelPalette::kSize> kStandard{
    0x000000, 0xFFFFFF, 0xFF0000, 0x00FF00, 0x0000FF, 0xFFFF00, 0xFF00FF, 0x00FFFF,
    0x800000, 0x008000, 0x000080, 0x808000, 0x800080, 0x008080, 0xC0C0C0, 0x808080,
    0x9999FF, 0x993366, 0xFFFFCC, 0xCCFFFF, 0x660066, 0xFF8080, 0x0066CC, 0xCCCCFF,
    0x000080, 0xFF00FF, 0xFFFF00, 0x00FFFF, 0x800080, 0x800000, 0x008080, 0x0000FF,
    0x00CCFF, 0xCCFFFF, 0xCCFFCC, 0xFFFF99, 0x99CCFF, 0xFF99CC, 0xCC99FF, 0xFFCC99,
    0x3366FF, 0x33CCCC, 0x99CC00, 0xFFCC00, 0xFF9900, 0xFF6600, 0x666699, 0x969696,
    0x003366, 0x339966, 0x003300, 0x333300, 0x993300, 0x993366, 0x333399, 0x333333};

int distance(PackedColour one, PackedColour other) {
  const int red = redOf(one) - redOf(other);
  const int green = greenOf(one) - greenOf(other);
  const int blue = blueOf(one) - blueOf(other);
  return red * red + green * green + blue * blue;
}

}  // namespace

std::array<PackedColour, ExcelPalette::kSize> ExcelPalette::standardColours() {
  std::array<PackedColour, kSize> packed{};
  std::transform(kStandard.begin(), kStandard.end(), packed.begin(),
                 [](unsigned rgb) { return (rgb & 0xFFU) << 16U | (rgb & 0xFF00U) | rgb >> 16U; });
  return packed;
}

unsigned ExcelPalette::indexOf(PackedColour colour) {
  colour &= 0xFF'FFFFU;
  std::size_t place = nearest(colour);
  if (colours_[place] != colour) {
    // From the end: the first colours are the ones that people know.
    const auto free = std::find(taken_.rbegin(), taken_.rend(), false);
    if (free != taken_.rend()) {
      place = static_cast<std::size_t>(taken_.rend() - free) - 1;
      colours_[place] = colour;
    }
  }
  taken_[place] = true;
  return kFirstIndex + static_cast<unsigned>(place);
}

std::size_t ExcelPalette::nearest(PackedColour colour) const {
  const auto found = std::min_element(colours_.begin(), colours_.end(),
                                      [colour](PackedColour one, PackedColour other) {
                                        return distance(one, colour) < distance(other, colour);
                                      });
  return static_cast<std::size_t>(found - colours_.begin());
}

}  // namespace vellora
