#include "grid/sheet/workbook.h"
#include "support/text_output.h"

#include <QDateTime>

#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <vector>

namespace vellora {
namespace {

Sheet sheetOf(int cols, int rows) {
  Sheet sheet;
  sheet.SetCols(cols);
  sheet.SetRows(rows);
  return sheet;
}

struct PlainRow {
  QString text;
  QString tag;
  bool isWrapped = false;
  std::optional<int> height;
  bool isHidden = false;

  bool operator==(const PlainRow&) const = default;
};

// A sheet beside the simplest thing that behaves like one: a list of rows.
struct SheetBesideList {
  Sheet sheet = sheetOf(2, 0);
  std::vector<PlainRow> list;

  int rows() const { return static_cast<int>(list.size()); }

  void write(int row, int mark) {
    PlainRow& plain = list[static_cast<std::size_t>(row)];
    plain = {QString::number(mark % 50), QString::number(mark), mark % 2 == 0, mark % 90 + 1,
             plain.isHidden || mark % 9 == 0};
    if (mark % 3 == 0) {
      sheet.SetRowTexts(row, std::array{QString(), plain.text, u"beyond the last column"_qs});
    } else {
      sheet.SetCellText(1, row, plain.text);
    }
    sheet.SetCellTag(1, row, plain.tag);
    sheet.SetCellWrap(1, row, plain.isWrapped);
    sheet.SetRowHeight(row, *plain.height);
    if (plain.isHidden) sheet.HideRow(row);
  }
  void change(std::mt19937& random) {
    const auto below = [&](int limit) {
      return limit <= 0 ? 0 : static_cast<int>(random() % static_cast<unsigned>(limit));
    };
    const int kind = below(100);
    const int row = below(rows() + (kind < 25 ? 1 : 0));
    const int few = below(4) == 0 ? below(900) : 1 + below(3);
    const int end = std::min(rows(), row + (kind < 50 ? few : below(60)));
    if (kind < 25) {
      sheet.InsertRows(row, few);
      list.insert(list.begin() + row, static_cast<std::size_t>(few), PlainRow());
    } else if (kind < 46) {
      sheet.DeleteRows(row, end - row);
      list.erase(list.begin() + row, list.begin() + end);
    } else if (kind < 48) {
      list.resize(static_cast<std::size_t>(below(3'000)));
      sheet.SetRows(rows());
    } else if (kind < 49) {
      sheet.SetCellWrap(1, kEveryRow, false);
      for (PlainRow& plain : list) plain.isWrapped = false;
    } else if (kind < 50) {
      sheet.SetCols(1);
      sheet.SetCols(2);
      for (PlainRow& plain : list) plain = {{}, {}, false, plain.height, plain.isHidden};
    } else {
      for (int r = row; r < end; ++r) write(r, below(1'000'000));
    }
  }
  // Walking over what is empty finds every row that is not.
  void expectAlike() const {
    ASSERT_EQ(sheet.Rows(), rows());
    int written = sheet.NextWrittenRow(0);
    int sized = sheet.NextSizedRow(0);
    for (int row = 0; row < rows(); ++row) {
      const PlainRow& plain = list[static_cast<std::size_t>(row)];
      const PlainRow held{sheet.GetCellText(1, row), sheet.CellTag(1, row),
                          sheet.StyleAt(1, row).wrap, sheet.RowHeight(row), sheet.IsRowHidden(row)};
      ASSERT_TRUE(held == plain) << row;
      ASSERT_TRUE(row >= written || plain == PlainRow()) << row;
      ASSERT_EQ(row == sized, plain.height || plain.isHidden) << row;
      if (row == written) written = sheet.NextWrittenRow(row + 1);
      if (row == sized) sized = sheet.NextSizedRow(row + 1);
    }
    ASSERT_EQ(written, rows());
    ASSERT_EQ(sized, rows());
  }
};

}  // namespace

TEST(Sheet, StaysInStepWithAPlainListThroughRandomChanges) {
  for (unsigned seed = 1; seed <= 6; ++seed) {
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    SheetBesideList both;
    std::vector<SheetBesideList> snapshots;
    for (int turn = 0; turn < 600; ++turn) {
      both.change(random);
      if (turn % 150 == 0) snapshots.push_back(both);
      if (turn % 10 == 0) both.expectAlike();
      ASSERT_FALSE(HasFatalFailure()) << turn;
    }
    for (const auto& snapshot : snapshots) snapshot.expectAlike();
  }
}

TEST(Sheet, DropsWritesOutsideAndHasARevisionForEveryContent) {
  Sheet sheet = sheetOf(2, 3);
  const quint64 before = sheet.revision();
  const int places[][2]{{2, 0}, {-1, 0}, {0, 3}, {0, -3}, {5, kHeadingRow}, {2, kEveryRow}};
  for (const auto& [col, row] : places) {
    sheet.SetCellText(col, row, u"x"_qs);
    sheet.SetCellTag(col, row, u"x"_qs);
    sheet.SetCellFont(col, row, 20, kFontBold, u"黑体"_qs);
    EXPECT_EQ(sheet.GetCellText(col, row), QString());
    EXPECT_EQ(sheet.StyleAt(col, row), CellStyle());
  }
  sheet.SetRowHeight(3, 9);
  sheet.HideRow(-1);
  sheet.InsertRows(4, 1);
  sheet.InsertRows(0, -1);
  sheet.DeleteRows(3, 1);
  sheet.SetRangeBorder(2, 0, 5, 5, 0, 1, kRed);
  sheet.SetCellText(0, 0, QString());
  EXPECT_EQ(sheet.revision(), before);
  Sheet other = sheet;
  sheet.SetCellText(0, 0, u"a"_qs);
  other.SetCellText(0, 0, u"b"_qs);
  EXPECT_NE(sheet.revision(), other.revision()) << "two copies that changed apart";
  sheet.SetRows(std::numeric_limits<int>::max());
  sheet.InsertRows(5, std::numeric_limits<int>::max());
  EXPECT_EQ(sheet.Rows(), kMaxRows);
  sheet.DeleteRows(5, std::numeric_limits<int>::max());
  EXPECT_EQ(sheet.Rows(), 5);
}

TEST(SheetStyle, TheLaterOfCellAndColumnSettingWinsPropertyByProperty) {
  Sheet sheet = sheetOf(3, 4);
  sheet.SetCellAlign(1, 2, kAlignRight);
  sheet.SetCellColors(1, 2, kRed, kWhite);
  sheet.SetCellAlign(1, kEveryRow, kAlignTop);
  sheet.SetCellAlign(1, 0, kAlignLeft);
  sheet.SetRows(2'000);
  const int aligned[][2]{{0, kAlignLeft}, {2, kAlignTop}, {1'999, kAlignTop}, {-1, kAlignCentred}};
  for (const auto& [row, align] : aligned) EXPECT_EQ(sheet.StyleAt(1, row).align, align) << row;
  EXPECT_EQ(sheet.StyleAt(1, 2).textColour, kRed);
  sheet.SetCellFont(0, 0, 12, kFontBold, u"黑体"_qs);
  sheet.SetDefaultFont(10, kFontRegular, u"楷体_GB2312"_qs);
  EXPECT_EQ(sheet.StyleAt(0, 0).font.size, 12);
  for (const int row : {kHeadingRow, 1, 9'999}) EXPECT_EQ(sheet.StyleAt(0, row).font.size, 10);
  sheet.SetCellSettings(1, kEveryRow, {});
  EXPECT_EQ(sheet.StyleAt(1, 0).align, kAlignLeft)
      << "a column's settings leave those of its cells";
  EXPECT_EQ(sheet.StyleAt(1, 1).align, kAlignLeftMiddle);
}

TEST(SheetValue, ShowsEveryKindAndIsANumberOnlyInItsShortestForm) {
  const QDate day(2007, 3, 5);
  const std::tuple<QVariant, QString, bool> cases[]{
      {true, u"1"_qs, true},
      {-12, u"-12"_qs, true},
      {1e15, u"1000000000000000"_qs, true},
      {0.1, u"0.1"_qs, true},
      {qlonglong{9'007'199'254'740'993}, u"9007199254740993"_qs, false},
      {day, u"2007-03-05"_qs, false},
      {QTime(8, 5, 9), u"08:05"_qs, false},
      {QDateTime(day, QTime(8, 5)), u"2007-03-05 08:05"_qs, false},
      {QVariant(), QString(), false}};
  Sheet sheet = sheetOf(1, 1);
  for (const auto& [value, text, isNumber] : cases) {
    sheet.SetCellOption(0, 0, 0);
    sheet.SetCellValue(0, 0, value);
    EXPECT_EQ(sheet.GetCellText(0, 0), text);
    EXPECT_EQ(sheet.CellNumber(0, 0).has_value(), isNumber) << text.toStdString();
    sheet.SetCellOption(0, 0, 1);
    EXPECT_FALSE(sheet.CellNumber(0, 0)) << "a text mark keeps digits text";
  }
  for (const char16_t* text : {u"001", u"1.0", u"+1", u"1e3", u"-", u"nan", u"３", u"1 ", u".5"}) {
    sheet.SetCellValue(0, 0, 101);
    EXPECT_EQ(sheet.CellNumber(0, 0), 101) << "a number takes the mark away";
    sheet.SetCellText(0, 0, QString::fromUtf16(text));
    EXPECT_FALSE(sheet.CellNumber(0, 0)) << QString::fromUtf16(text).toStdString();
  }
}

}  // namespace vellora
