#pragma once

namespace vellora {

// What repeats on every page: the heading strip of a list, or row 0 of the board.
enum class PrintHeadings { HeadingStrip, FirstRow };

}  // namespace vellora
