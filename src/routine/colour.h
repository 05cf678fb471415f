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
// around a text is so fine that most of it is blended with the paper: with less than this, texts of
// 8 points have not the least contrast on the screen.
double contrastOf(PackedColour one, PackedColour other);
inline constexpr double kReadableContrast = 4.5;
inline constexpr double kEdgeContrast = 15;

// The shade of a text's colour, darker or lighter, that drawn around the text makes it readable on
// its paper; none where the text is readable by itself.
std::optional<PackedColour> edgeFor(PackedColour text, PackedColour paper);

}  // namespace vellora
