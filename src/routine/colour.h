#pragma once

#include <cstdint>
#include <optional>

namespace vellora {

// A 24-bit colour packed as red + 256 × green + 65536 × blue, as the schedule stores it.
using PackedColour = std::uint32_t;

constexpr PackedColour packColour(int red, int green, int blue) {
  return static_cast<PackedColour>(red) | static_cast<PackedColour>(green) << 8U |
         static_cast<PackedColour>(blue) << 16U;
}

constexpr int redOf(PackedColour colour) {
  return static_cast<int>(colour & 0xFFU);
}
constexpr int greenOf(PackedColour colour) {
  return static_cast<int>(colour >> 8U & 0xFFU);
}
constexpr int blueOf(PackedColour colour) {
  return static_cast<int>(colour >> 16U & 0xFFU);
}

inline constexpr PackedColour kBlack = packColour(0, 0, 0);
inline constexpr PackedColour kWhite = packColour(255, 255, 255);
inline constexpr PackedColour kRed = packColour(255, 0, 0);
inline constexpr PackedColour kBlue = packColour(0, 0, 255);

// The contrast ratio of two colours, 1 to 21, and the least for texts: WCAG 2.1, 1.4.3. An edge
// around a text needs more, for it is finer than a text: on paper and in pages what 1.4.6 asks of
// texts; in a window, where most of it is blended with the paper, so much that texts of 8 points
// have the least contrast on the screen.
double contrastOf(PackedColour one, PackedColour other);
inline constexpr double kReadableContrast = 4.5;
inline constexpr double kEdgeContrast = 7;
inline constexpr double kBlendedEdgeContrast = 15;

// The shade of a text's colour, darker or lighter, that drawn around the text makes it readable on
// its paper by that contrast; none where the text is readable by itself.
std::optional<PackedColour> edgeFor(PackedColour text, PackedColour paper, double contrast);

}  // namespace vellora
