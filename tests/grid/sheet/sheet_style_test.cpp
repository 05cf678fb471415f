#include "grid/sheet/sheet.h"
#include "support/text_output.h"

#include <gtest/gtest.h>

namespace vellora {
namespace {

class SheetStyle : public testing::Test {
 protected:
  SheetStyle() {
    sheet.SetCols(3);
    sheet.SetRows(4);
  }
  int align(int col, int row) const { return sheet.StyleAt(col, row).align; }

  Sheet sheet;
};

}  // namespace

TEST_F(SheetStyle, AColumnSettingHoldsForPresentAndLaterRows) {
  sheet.SetCellAlign(1, kEveryRow, kAlignCentred);
  sheet.SetCellInput(1, kEveryRow, 1);
  sheet.SetRows(2'000);
  EXPECT_EQ(align(1, 3), kAlignCentred);
  EXPECT_EQ(align(1, 1'999), kAlignCentred);
  EXPECT_EQ(sheet.StyleAt(1, 1'999).inputMode, 1);
  EXPECT_EQ(align(0, 3), kAlignLeftMiddle);
}

TEST_F(SheetStyle, TheLaterOfCellAndColumnSettingWinsPropertyByProperty) {
  sheet.SetCellAlign(1, 2, kAlignRight);
  sheet.SetCellColors(1, 2, kRed, kWhite);
  sheet.SetCellAlign(1, kEveryRow, kAlignCentred);
  EXPECT_EQ(align(1, 2), kAlignCentred);
  EXPECT_EQ(sheet.StyleAt(1, 2).textColour, kRed);
  sheet.SetCellAlign(1, 2, kAlignLeft);
  EXPECT_EQ(align(1, 2), kAlignLeft);
  EXPECT_EQ(align(1, 3), kAlignCentred);
}

TEST_F(SheetStyle, TheDefaultFontReachesOnlyCellsWithoutAFont) {
  const CellFont heading{u"黑体"_qs, 12, kFontBold};
  sheet.SetCellFont(0, 0, heading.size, heading.style, heading.face);
  sheet.SetCellColors(1, 0, kRed, kWhite);
  sheet.SetDefaultFont(10, kFontRegular, u"楷体_GB2312"_qs);
  EXPECT_EQ(sheet.StyleAt(0, 0).font, heading);
  EXPECT_EQ(sheet.StyleAt(1, 0).font.face, u"楷体_GB2312"_qs);
  EXPECT_EQ(sheet.StyleAt(2, kHeadingRow).font.size, 10);
  EXPECT_EQ(sheet.StyleAt(9, 9).font.size, 10);
}

TEST_F(SheetStyle, HeadingsAreCentredAndDoNotFollowTheirColumn) {
  sheet.SetCellAlign(0, kEveryRow, kAlignRight);
  EXPECT_EQ(align(0, kHeadingRow), kAlignCentred);
  sheet.SetCellAlign(0, kHeadingRow, kAlignLeftMiddle);
  sheet.SetCellColors(0, kHeadingRow, kBlue, kWhite);
  EXPECT_EQ(align(0, kHeadingRow), kAlignLeftMiddle);
  EXPECT_EQ(sheet.StyleAt(0, kHeadingRow).textColour, kBlue);
  EXPECT_EQ(align(0, 0), kAlignRight);
}

TEST_F(SheetStyle, ARangeBorderReachesEveryCellOfTheRangeAndNoOther) {
  sheet.SetRangeBorder(0, 1, 1, 99, 0, 2, kBlue);
  const CellStyle& inside = sheet.StyleAt(1, 3);
  EXPECT_TRUE(inside.border);
  EXPECT_EQ(inside.borderWidth, 2);
  EXPECT_EQ(inside.borderColour, kBlue);
  EXPECT_FALSE(sheet.StyleAt(1, 0).border);
  EXPECT_FALSE(sheet.StyleAt(2, 1).border);
  sheet.SetRangeBorder(0, 0, 2, 3, 0, 0, kBlue);
  EXPECT_FALSE(sheet.StyleAt(1, 3).border);
}

TEST_F(SheetStyle, EqualLooksShareANumberHoweverTheyWereMade) {
  sheet.SetCellAlign(0, kEveryRow, kAlignCentred);
  sheet.SetCellColors(0, 0, kRed, kWhite);
  sheet.SetCellColors(1, 0, kRed, kWhite);
  sheet.SetCellAlign(1, 0, kAlignCentred);
  EXPECT_EQ(sheet.StyleNumberAt(0, 0), sheet.StyleNumberAt(1, 0));
  EXPECT_NE(sheet.StyleNumberAt(0, 0), sheet.StyleNumberAt(0, 1));
}

TEST_F(SheetStyle, SettingsCarryWhatACellHasOfItsOwnToAnother) {
  sheet.SetCellAlign(0, kEveryRow, kAlignCentred);
  sheet.SetCellFont(0, 0, 14, kFontBold, u"黑体"_qs);
  sheet.SetCellColors(0, 0, kRed, kBlue);
  sheet.SetCellWrap(0, 0, false);
  sheet.SetRangeBorder(0, 0, 0, 0, 0, 3, kRed);
  sheet.SetCellOption(0, 0, 1);
  const CellSettings settings = sheet.SettingsAt(0, 0);
  EXPECT_EQ(settings.wrap, false);
  EXPECT_FALSE(settings.align);

  Sheet other;
  other.SetCols(1);
  other.SetRows(1);
  other.SetCellInput(0, 0, 7);
  other.SetCellSettings(0, 0, settings);
  EXPECT_EQ(other.SettingsAt(0, 0), settings);
  CellStyle expected = sheet.StyleAt(0, 0);
  expected.align = kAlignLeftMiddle;
  EXPECT_EQ(other.StyleAt(0, 0), expected);
}

TEST_F(SheetStyle, ColumnSettingsAsAWholeLeaveWhatCellsHaveOfTheirOwn) {
  sheet.SetCellAlign(0, 1, kAlignRight);
  CellSettings settings;
  settings.align = kAlignCentred;
  sheet.SetCellSettings(0, kEveryRow, settings);
  EXPECT_EQ(sheet.SettingsAt(0, kEveryRow), settings);
  EXPECT_EQ(align(0, 0), kAlignCentred);
  EXPECT_EQ(align(0, 1), kAlignRight);
}

}  // namespace vellora
