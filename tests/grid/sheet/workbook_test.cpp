#include "grid/sheet/workbook.h"

#include "support/text_output.h"

#include <gtest/gtest.h>

namespace vellora {

TEST(Workbook, HasOneSheetFromTheStartAndAddsFurtherOnesBehindIt) {
  Workbook workbook;
  workbook.AddSheet(u"1"_qs);
  workbook.SetSheetName(u"SJ"_qs, 0);
  EXPECT_EQ(workbook.SheetCount(), 2);
  EXPECT_EQ(workbook.SheetName(0), u"SJ"_qs);
  EXPECT_EQ(workbook.SheetName(1), u"1"_qs);
  EXPECT_EQ(workbook.CurrentSheet(), 0);
}

TEST(Workbook, ChangesTheCurrentSheetOnly) {
  Workbook workbook;
  workbook.AddSheet(u"1"_qs);
  workbook.SetCurrentSheet(1);
  workbook.sheet().SetRows(7);
  EXPECT_EQ(workbook.sheetAt(1).Rows(), 7);
  EXPECT_EQ(workbook.sheetAt(0).Rows(), 0);
}

TEST(Workbook, IgnoresSheetsThatDoNotExist) {
  Workbook workbook;
  for (const int sheet : {-1, 1}) {
    workbook.SetCurrentSheet(sheet);
    workbook.SetSheetName(u"x"_qs, sheet);
    EXPECT_EQ(workbook.SheetName(sheet), QString());
  }
  EXPECT_EQ(workbook.CurrentSheet(), 0);
}

}  // namespace vellora
