#pragma once

#include "grid/sheet/sheet.h"

#include <span>

namespace vellora {

struct ListColumn {
  const char16_t* heading;
  int width;  // pixels at 100 %
};

// The look that all lists share: small letters, headings and cells centred.
inline void setUpList(Sheet& sheet, std::span<const ListColumn> columns, int rowHeight) {
  sheet.SetCols(static_cast<int>(columns.size()));
  sheet.SetDefaultFont(8, kFontRegular, u"宋体"_qs);
  sheet.SetDefaultRowHeight(rowHeight);
  int col = 0;
  for (const auto& [heading, width] : columns) {
    sheet.SetCellText(col, kHeadingRow, QString::fromUtf16(heading));
    sheet.SetCellAlign(col, kHeadingRow, kAlignCentred);
    sheet.SetCellAlign(col, kEveryRow, kAlignCentred);
    sheet.SetColumnWidth(col++, width);
  }
}

// A plan's list, to type into: its rows have room for two lines.
inline void setUpPlanList(Sheet& sheet, std::span<const ListColumn> columns) {
  constexpr int kTwoLineRow = 38;  // pixels
  setUpList(sheet, columns, kTwoLineRow);
  for (int col = 0; col < sheet.Cols(); ++col) {
    sheet.SetCellInput(col, kEveryRow, 1);
    sheet.SetCellWrap(col, kEveryRow, true);
  }
}

}  // namespace vellora
