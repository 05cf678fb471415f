#include "fuzz/fuzz_target.h"
#include "routine/number_text.h"

#include <cmath>
#include <cstring>

namespace vellora::test {
namespace {

void requireRoundTrip(double number) {
  const QString text = numberText(number);
  require(text.toDouble() == number, "a number's text means the number");
  require(number < 0 || numericValue(text) == number, "a number's text reads back as the number");
  require(!text.contains(u'e') && !text.contains(u','), "a number's text is plain");
}

void requireNearestEven(double number) {
  const double rounded = roundHalfEven(number);
  require(rounded == std::floor(rounded), "a rounded number is whole");
  require(std::abs(rounded - number) <= 0.5, "a rounded number is the nearest");
  const bool isHalf = std::abs(rounded - number) == 0.5;
  require(!isHalf || std::fmod(rounded, 2) == 0, "a half goes to the even neighbour");
}

}  // namespace

// A text, and its first eight bytes as a number.
void fuzzNumber(Bytes bytes) {
  const double typed = numericValue(textOf(bytes));
  require(std::isfinite(typed) && typed >= 0, "a text's number is a number");
  double raw = 0;
  std::memcpy(&raw, bytes.data(), std::min(bytes.size(), sizeof raw));
  for (const double number : {typed, raw}) {
    if (!std::isfinite(number)) continue;
    requireRoundTrip(number);
    requireNearestEven(number);
  }
}

std::vector<QByteArray> numberSeeds() {
  return {"3", "2.5x", "7.", "005", "1.2.3", "99999999999", "0.1", QByteArray(400, '9'), "-0.0000"};
}

}  // namespace vellora::test
