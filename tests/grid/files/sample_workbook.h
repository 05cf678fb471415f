#pragma once

#include "grid/files/sample_list.h"
#include "grid/sheet/workbook.h"

namespace vellora::test {

// A small workbook with something in every field that a file keeps.
inline Workbook sampleWorkbook() {
  Workbook workbook;
  workbook.pageSetup = {true, true, 10.5, 11, 12, 13.25};
  workbook.SetSheetName(u"SJ"_qs, 0);
  workbook.AddSheet(u"活动"_qs);
  workbook.SetCurrentSheet(1);
  Sheet& sheet = workbook.sheet();
  sheet = sampleList();
  sheet.SetCellTag(1, kHeadingRow, u"key"_qs);
  sheet.SetCellTag(0, 0, u"A01"_qs);
  sheet.SetCellInput(0, kEveryRow, 1);
  return workbook;
}

}  // namespace vellora::test
