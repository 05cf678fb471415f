#pragma once

#include <cstdint>

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

}  // namespace vellora
