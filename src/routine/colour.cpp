#include "routine/colour.h"

#include <algorithm>
#include <cmath>

namespace vellora {
namespace {

double linear(int channel) {
  const double part = channel / 255.0;
  return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double luminance(PackedColour colour) {
  return 0.2126 * linear(redOf(colour)) + 0.7152 * linear(greenOf(colour)) +
         0.0722 * linear(blueOf(colour));
}

// The colour mixed with another, of which there are so many percent.
PackedColour mixed(PackedColour colour, PackedColour other, int percent) {
  const auto mix = [percent](int one, int two) { return one + (two - one) * percent / 100; };
  return packColour(mix(redOf(colour), redOf(other)), mix(greenOf(colour), greenOf(other)),
                    mix(blueOf(colour), blueOf(other)));
}

}  // namespace

double contrastOf(PackedColour one, PackedColour other) {
  const auto [low, high] = std::minmax({luminance(one), luminance(other)});
  return (high + 0.05) / (low + 0.05);
}

std::optional<PackedColour> edgeFor(PackedColour text, PackedColour paper, double contrast) {
  constexpr int kStep = 5;  // percent
  if (contrastOf(text, paper) >= kReadableContrast) return std::nullopt;
  const PackedColour end = contrastOf(kBlack, paper) >= contrastOf(kWhite, paper) ? kBlack : kWhite;
  int percent = kStep;
  while (percent < 100 && contrastOf(mixed(text, end, percent), paper) < contrast) {
    percent += kStep;
  }
  return mixed(text, end, percent);
}

}  // namespace vellora
