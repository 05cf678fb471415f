#include "schedule/week.h"
#include "support/schedule_builder.h"
#include "support/text_output.h"

#include <gtest/gtest.h>

namespace vellora {
namespace {

const QDate kMonday(2007, 3, 5);

class BoardFillerTest : public testing::Test {
 protected:
  BoardFillerTest() {
    sheet_.SetCols(kBoardCols);
    schedule_.block(u"002"_qs, u"08:00:00"_qs, u"09:30:00"_qs, u"上午"_qs)
        .block(u"001"_qs, u"19:00:00"_qs, u"20:00:00"_qs, u"晚上"_qs)
        .item(u"001"_qs, u"读书"_qs, u"2-学习"_qs, 0, 16711680);
  }

  WeekTexts fill(QDate first = kMonday) {
    ScheduleStore store(schedule_.path());
    BuildTimeRows(store, sheet_);
    return FillWeek(store, sheet_, first);
  }
  void expectColours(int col, int row, PackedColour text, PackedColour back) {
    EXPECT_EQ(sheet_.StyleAt(col, row).textColour, text);
    EXPECT_EQ(sheet_.StyleAt(col, row).backColour, back);
  }

  test::ScheduleBuilder schedule_;
  Sheet sheet_;
};

}  // namespace

TEST_F(BoardFillerTest, ListsBlocksByCodeWithHoursNameAndCode) {
  fill();
  ASSERT_EQ(sheet_.Rows(), 3);
  EXPECT_EQ(sheet_.GetCellText(0, 1), u"19:00-20:00\r晚上"_qs);
  EXPECT_EQ(sheet_.CellTag(0, 1), u"001"_qs);
  EXPECT_EQ(sheet_.GetCellText(0, 2), u"08:00-09:30\r上午"_qs);
  EXPECT_EQ(sheet_.StyleAt(0, 2).align, kAlignCentred);
  EXPECT_TRUE(sheet_.StyleAt(0, 2).wrap);
}

TEST_F(BoardFillerTest, HeadsSevenDaysFromAnyWeekday) {
  fill(QDate(2007, 12, 29));
  EXPECT_EQ(sheet_.GetCellText(1, 0), u"12月29日\r星期六"_qs);
  EXPECT_EQ(sheet_.GetCellText(4, 0), u"01月01日\r星期二"_qs);
  EXPECT_EQ(sheet_.CellTag(7, 0), u"2008-01-04"_qs);
  EXPECT_EQ(sheet_.StyleAt(7, 0).font.style, kFontBold);
  EXPECT_EQ(sheet_.StyleAt(0, 0).align, kAlignCentred);
}

TEST_F(BoardFillerTest, ShowsAPlanInItsActivitysColour) {
  schedule_.plan(kMonday.addDays(2), u"002"_qs, u"读书"_qs, u"第三章"_qs);
  fill();
  EXPECT_EQ(sheet_.GetCellText(3, 2), u"读书\r第三章"_qs);
  EXPECT_EQ(sheet_.CellTag(3, 2), u"读书"_qs);
  expectColours(3, 2, packColour(0, 0, 255), packColour(230, 220, 255));
  EXPECT_EQ(sheet_.StyleAt(3, 2).align, kAlignCentred);
  expectColours(3, 1, kBlack, kWhite);
}

TEST_F(BoardFillerTest, ShowsAnUnknownActivityInBlackOnWhite) {
  schedule_.plan(kMonday, u"001"_qs, u"读书 "_qs);
  fill();
  EXPECT_EQ(sheet_.CellTag(1, 1), u"读书 "_qs);
  expectColours(1, 1, kBlack, kWhite);
}

TEST_F(BoardFillerTest, ShowsTheFirstOfTwoPlansForOneBlock) {
  schedule_.plan(kMonday, u"001"_qs, u"甲"_qs).plan(kMonday, u"001"_qs, u"乙"_qs);
  fill();
  EXPECT_EQ(sheet_.CellTag(1, 1), u"甲"_qs);
}

TEST_F(BoardFillerTest, EmptiesWhatAnEarlierWeekHeld) {
  schedule_.plan(kMonday, u"001"_qs, u"读书"_qs);
  fill();
  fill(kMonday.addDays(7));
  EXPECT_EQ(sheet_.GetCellText(1, 1), QString());
  EXPECT_EQ(sheet_.CellTag(1, 1), QString());
  expectColours(1, 1, kBlack, kWhite);
}

TEST_F(BoardFillerTest, KeepsQuotesAndSignsInCodesAndNamesAsData) {
  const QString code = u"a'#[%]\""_qs;
  const QString name = u"it's #1 [x] -- %\n"_qs;
  schedule_.block(code, u"10:00:00"_qs, u"11:00:00"_qs)
      .item(u"002"_qs, name, u"1-工作"_qs, 0, 255)
      .plan(kMonday, code, name);
  fill();
  EXPECT_EQ(sheet_.CellTag(1, 3), name);
  expectColours(1, 3, kRed, kPlanPaper);
}

TEST_F(BoardFillerTest, FindsMemoAndWeekNameOfTheFirstDay) {
  schedule_.memo(kMonday, u"第一行\n第二行"_qs)
      .weekName(kMonday.addDays(-6), kMonday, u"第一周"_qs)
      .weekName(kMonday, kMonday.addDays(6), u"第二周"_qs);
  const WeekTexts monday = fill();
  EXPECT_EQ(monday.memo, u"第一行\n第二行"_qs);
  EXPECT_EQ(monday.weekName, u"第一周"_qs);
  EXPECT_EQ(fill(kMonday.addDays(6)).weekName, u"第二周"_qs);
  const WeekTexts later = fill(kMonday.addDays(7));
  EXPECT_TRUE(later.weekName.isEmpty());
  EXPECT_TRUE(later.memo.isEmpty());
}

TEST(BoardFiller, WithoutBlocksLeavesOnlyTheDays) {
  const test::ScheduleBuilder schedule;
  ScheduleStore store(schedule.path());
  Sheet sheet;
  sheet.SetCols(kBoardCols);
  BuildTimeRows(store, sheet);
  FillWeek(store, sheet, kMonday);
  EXPECT_EQ(sheet.Rows(), 1);
  EXPECT_EQ(sheet.GetCellText(7, 0), u"03月11日\r星期日"_qs);
}

TEST(BoardCaption, AddsTheMemoBehindEightBlanks) {
  EXPECT_EQ(boardCaption(kMonday, QString()), u"   Vellora日程表2.8版   2007-03-05"_qs);
  EXPECT_EQ(boardCaption(kMonday, u"交报告"_qs),
            u"   Vellora日程表2.8版   2007-03-05        交报告"_qs);
}

}  // namespace vellora
