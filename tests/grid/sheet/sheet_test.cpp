#include "grid/sheet/sheet.h"

#include "support/text_output.h"

#include <QDateTime>

#include <gtest/gtest.h>
#include <limits>

namespace vellora {
namespace {

Sheet sheetOf(int cols, int rows) {
  Sheet sheet;
  sheet.SetCols(cols);
  sheet.SetRows(rows);
  return sheet;
}

}  // namespace

TEST(Sheet, KeepsTextsAndTagsOfCellsAndHeadings) {
  Sheet sheet = sheetOf(2, 3);
  sheet.SetCellText(1, 2, u"08:00-09:30\r早读"_qs);
  sheet.SetCellTag(1, 2, u"A01"_qs);
  sheet.SetCellText(1, kHeadingRow, u"时间"_qs);
  EXPECT_EQ(sheet.GetCellText(1, 2), u"08:00-09:30\r早读"_qs);
  EXPECT_EQ(sheet.CellTag(1, 2), u"A01"_qs);
  EXPECT_EQ(sheet.GetCellText(1, kHeadingRow), u"时间"_qs);
  EXPECT_EQ(sheet.CellTag(0, 0), QString());
  EXPECT_EQ(sheet.GetCellText(1, 1), QString());
}

TEST(Sheet, DropsWritesOutsideAndReadsNothingThere) {
  Sheet sheet = sheetOf(2, 3);
  const quint64 before = sheet.revision();
  const int places[][2]{{2, 0}, {-1, 0}, {0, 3}, {0, -3}, {5, kHeadingRow}, {2, kEveryRow}};
  for (const auto& [col, row] : places) {
    sheet.SetCellText(col, row, u"x"_qs);
    sheet.SetCellTag(col, row, u"x"_qs);
    sheet.SetCellColors(col, row, kRed, kBlue);
    sheet.SetCellFont(col, row, 20, kFontBold, u"黑体"_qs);
    EXPECT_EQ(sheet.GetCellText(col, row), QString());
    EXPECT_EQ(sheet.StyleAt(col, row), CellStyle());
  }
  sheet.SetRowHeight(3, 9);
  sheet.HideRow(-1);
  sheet.SetColumnWidth(2, 9);
  sheet.InsertRows(4, 1);
  sheet.InsertRows(0, -1);
  sheet.DeleteRows(3, 1);
  sheet.SetRangeBorder(2, 0, 5, 5, 0, 1, kRed);
  EXPECT_EQ(sheet.revision(), before);
  EXPECT_EQ(sheet.Rows(), 3);
}

TEST(Sheet, BringsCountsIntoRange) {
  Sheet sheet = sheetOf(-1, -1);
  EXPECT_EQ(sheet.Cols(), 0);
  EXPECT_EQ(sheet.Rows(), 0);
  sheet = sheetOf(1, std::numeric_limits<int>::max());
  EXPECT_EQ(sheet.Rows(), kMaxRows);
  sheet.InsertRows(5, std::numeric_limits<int>::max());
  EXPECT_EQ(sheet.Rows(), kMaxRows);
  sheet.DeleteRows(5, std::numeric_limits<int>::max());
  EXPECT_EQ(sheet.Rows(), 5);
}

TEST(Sheet, ForgetsCellsBeyondASmallerSize) {
  Sheet sheet = sheetOf(3, 300);
  for (const int row : {0, 299}) sheet.SetCellText(2, row, u"x"_qs);
  sheet.SetCellText(2, kHeadingRow, u"等级"_qs);
  sheet.SetRows(0);
  sheet.SetRows(300);
  EXPECT_EQ(sheet.GetCellText(2, 0), QString());
  EXPECT_EQ(sheet.GetCellText(2, 299), QString());
  EXPECT_EQ(sheet.GetCellText(2, kHeadingRow), u"等级"_qs);
  sheet.SetCellText(2, 7, u"x"_qs);
  sheet.SetCols(2);
  sheet.SetCols(3);
  EXPECT_EQ(sheet.GetCellText(2, 7), QString());
  EXPECT_EQ(sheet.GetCellText(2, kHeadingRow), QString());
}

TEST(Sheet, WritesTextsOfAWholeColumnIntoThePresentRows) {
  Sheet sheet = sheetOf(2, 3);
  sheet.SetCellText(1, kEveryRow, u"未完成"_qs);
  sheet.SetRows(4);
  EXPECT_EQ(sheet.GetCellText(1, 2), u"未完成"_qs);
  EXPECT_EQ(sheet.GetCellText(0, 2), QString());
  EXPECT_EQ(sheet.GetCellText(1, 3), QString());
}

TEST(Sheet, WritesTheFirstTextsOfARowAtOnce) {
  Sheet sheet = sheetOf(3, 2);
  sheet.SetCellText(1, 1, u"旧"_qs);
  sheet.SetCellText(2, 1, u"留"_qs);
  const Sheet before = sheet;
  const QString two[]{u"左"_qs, QString()};
  sheet.SetRowTexts(1, two);
  EXPECT_EQ(sheet.GetCellText(0, 1), u"左"_qs);
  EXPECT_EQ(sheet.GetCellText(1, 1), QString());
  EXPECT_EQ(sheet.GetCellText(2, 1), u"留"_qs);
  EXPECT_EQ(before.GetCellText(1, 1), u"旧"_qs);
  const QString four[]{u"一"_qs, u"二"_qs, u"三"_qs, u"多"_qs};
  sheet.SetRowTexts(0, four);
  EXPECT_EQ(sheet.GetCellText(2, 0), u"三"_qs);
  for (const int outside : {kHeadingRow, kEveryRow, 2}) sheet.SetRowTexts(outside, four);
  EXPECT_EQ(sheet.GetCellText(0, kHeadingRow), QString());
  EXPECT_EQ(sheet.GetCellText(0, 1), u"左"_qs);
}

TEST(Sheet, CopiesAreSnapshots) {
  Sheet sheet = sheetOf(2, 600);
  sheet.SetCellText(0, 500, u"前"_qs);
  const Sheet snapshot = sheet;
  sheet.SetCellText(0, 500, u"后"_qs);
  sheet.SetCellColors(1, 500, kRed, kWhite);
  sheet.DeleteRows(0, 10);
  sheet.SetCols(1);
  EXPECT_EQ(snapshot.GetCellText(0, 500), u"前"_qs);
  EXPECT_FALSE(snapshot.StyleAt(1, 500).hasColours);
  EXPECT_EQ(snapshot.Rows(), 600);
  EXPECT_EQ(sheet.GetCellText(0, 490), u"后"_qs);
}

TEST(Sheet, AMovedFromSheetIsEmptyAndUsable) {
  Sheet sheet = sheetOf(1, 1);
  const Sheet taken = std::move(sheet);
  EXPECT_EQ(sheet.Rows(), 0);  // NOLINT(bugprone-use-after-move): this is the behaviour tested
  sheet.SetRows(2);
  EXPECT_EQ(taken.Rows(), 1);
}

TEST(Sheet, CountsChangesAndOnlyChanges) {
  Sheet sheet = sheetOf(1, 1);
  quint64 last = sheet.revision();
  const auto grew = [&] { return std::exchange(last, sheet.revision()) < last; };
  sheet.SetCellText(0, 0, u"a"_qs);
  EXPECT_TRUE(grew());
  sheet.SetCellText(0, 0, u"a"_qs);
  EXPECT_FALSE(grew());
  sheet.SetCellAlign(0, 0, kAlignCentred);
  EXPECT_TRUE(grew());
  sheet.HideRow(0);
  EXPECT_TRUE(grew());
  Sheet other = sheet;
  sheet.SetCellText(0, 0, u"b"_qs);
  other.SetCellText(0, 0, u"c"_qs);
  EXPECT_NE(sheet.revision(), other.revision()) << "two copies that changed apart";
}

TEST(SheetValue, ShowsEveryKindAsThePlannerWritesIt) {
  const QDate day(2007, 3, 5);
  const struct {
    QVariant value;
    QString text;
  } cases[]{{true, u"1"_qs},
            {-12, u"-12"_qs},
            {16'711'680, u"16711680"_qs},
            {33.5, u"33.5"_qs},
            {qlonglong{9'007'199'254'740'993}, u"9007199254740993"_qs},
            {day, u"2007-03-05"_qs},
            {QTime(8, 5, 9), u"08:05"_qs},
            {QDateTime(day, QTime(8, 5)), u"2007-03-05 08:05"_qs},
            {u"工作"_qs, u"工作"_qs},
            {QVariant(), QString()}};
  Sheet sheet = sheetOf(1, 1);
  for (const auto& c : cases) {
    sheet.SetCellText(0, 0, u"旧"_qs);
    sheet.SetCellValue(0, 0, c.value);
    EXPECT_EQ(sheet.GetCellText(0, 0), c.text);
  }
}

TEST(SheetValue, IsANumberOnlyInItsShortestForm) {
  Sheet sheet = sheetOf(1, 1);
  for (const char16_t* text : {u"", u"001", u"1.0", u"+1", u"1e3", u"-", u"nan", u"inf", u"３",
                               u"1 ", u"2007-03-05", u"9007199254740993", u".5"}) {
    sheet.SetCellText(0, 0, QString::fromUtf16(text));
    EXPECT_FALSE(sheet.CellNumber(0, 0)) << QString::fromUtf16(text).toStdString();
  }
  for (const double number : {0.0, -1.5, 25.0, 1e15, 0.1}) {
    sheet.SetCellValue(0, 0, number);
    EXPECT_EQ(sheet.CellNumber(0, 0), number);
  }
}

TEST(SheetValue, ATextMarkKeepsDigitsTextUntilANumberIsSet) {
  Sheet sheet = sheetOf(1, 1);
  sheet.SetCellOption(0, 0, 1);
  sheet.SetCellText(0, 0, u"101"_qs);
  EXPECT_FALSE(sheet.CellNumber(0, 0));
  sheet.SetCellValue(0, 0, 101);
  EXPECT_EQ(sheet.CellNumber(0, 0), 101);
  sheet.SetCellOption(0, kEveryRow, 1);
  EXPECT_EQ(sheet.CellOption(0, 0), 1);
  EXPECT_FALSE(sheet.CellNumber(0, 0));
}

}  // namespace vellora
