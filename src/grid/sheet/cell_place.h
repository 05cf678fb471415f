#pragma once

namespace vellora {

// Row −1 is the heading strip above row 0; row −2 means every row of a column at once, now and
// when rows are added later.
inline constexpr int kHeadingRow = -1;
inline constexpr int kEveryRow = -2;

inline constexpr int kMaxCols = 32'767;
inline constexpr int kMaxRows = 10'000'000;

}  // namespace vellora
