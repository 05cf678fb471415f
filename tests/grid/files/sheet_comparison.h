#pragma once

#include "grid/sheet/workbook.h"

namespace vellora::test {

inline bool areEqual(const Sheet& a, const Sheet& b, int col, int row) {
  return a.GetCellText(col, row) == b.GetCellText(col, row) &&
         a.CellTag(col, row) == b.CellTag(col, row) &&
         a.SettingsAt(col, row) == b.SettingsAt(col, row) &&
         a.StyleAt(col, row) == b.StyleAt(col, row) &&
         a.CellNumber(col, row) == b.CellNumber(col, row);
}

// The first thing in which two sheets differ, in words; "" when they are equal.
inline QString difference(const Sheet& a, const Sheet& b) {
  if (a.Cols() != b.Cols() || a.Rows() != b.Rows()) return u"size"_qs;
  if (a.DefaultRowHeight() != b.DefaultRowHeight()) return u"default row height"_qs;
  if (a.DefaultFont() != b.DefaultFont()) return u"default font"_qs;
  for (int col = 0; col < a.Cols(); ++col) {
    if (a.ColumnWidth(col) != b.ColumnWidth(col)) return u"width of column %1"_qs.arg(col);
    for (int row = kEveryRow; row < a.Rows(); ++row) {
      if (!areEqual(a, b, col, row)) return u"cell (%1,%2)"_qs.arg(col).arg(row);
    }
  }
  for (int row = 0; row < a.Rows(); ++row) {
    if (a.RowHeight(row) != b.RowHeight(row)) return u"height of row %1"_qs.arg(row);
    if (a.IsRowHidden(row) != b.IsRowHidden(row)) return u"hiding of row %1"_qs.arg(row);
  }
  return {};
}

inline QString difference(const Workbook& a, const Workbook& b) {
  if (a.SheetCount() != b.SheetCount()) return u"number of sheets"_qs;
  if (a.CurrentSheet() != b.CurrentSheet()) return u"current sheet"_qs;
  if (!(a.pageSetup == b.pageSetup)) return u"page setup"_qs;
  for (int sheet = 0; sheet < a.SheetCount(); ++sheet) {
    if (a.SheetName(sheet) != b.SheetName(sheet)) return u"name of sheet %1"_qs.arg(sheet);
    const QString found = difference(a.sheetAt(sheet), b.sheetAt(sheet));
    if (!found.isEmpty()) return u"sheet %1: %2"_qs.arg(sheet).arg(found);
  }
  return {};
}

}  // namespace vellora::test
