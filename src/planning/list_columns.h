#pragma once

#include "grid/sheet/sheet.h"

#include <span>

namespace vellora {

struct ListColumn {
  const char16_t* heading;
  int width;  // pixels at 100 %
};

// The look that the planning lists share: two-line rows, headings and cells centred, texts wrapped,
// cells open to typing.
inline void setUpListColumns(Sheet& sheet, std::span<const ListColumn> columns) {
  constexpr int kTwoLineRow = 38;  // pixels
  sheet.SetDefaultFont(8, kFontRegular, u"宋体"_qs);
  sheet.SetDefaultRowHeight(kTwoLineRow);
  int col = 0;
  for (const auto& [heading, width] : columns) {
    sheet.SetCellText(col, kHeadingRow, QString::fromUtf16(heading));
    sheet.SetCellAlign(col, kHeadingRow, kAlignCentred);
    sheet.SetCellAlign(col, kEveryRow, kAlignCentred);
    sheet.SetCellInput(col, kEveryRow, 1);
    sheet.SetCellWrap(col, kEveryRow, true);
    sheet.SetColumnWidth(col++, width);
  }
}

}  // namespace vellora
