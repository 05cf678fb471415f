#include "schedule/week.h"

#include "schedule_fixture.h"

namespace vellora {
namespace {

using test::kMonday;

class Week : public test::ScheduleTest {
 protected:
  Week() {
    sheet_.SetCols(kBoardCols);
    builder_.block(u"002"_qs, u"08:00:00"_qs, u"09:30:00"_qs, u"上午"_qs)
        .block(u"001"_qs, u"19:00:00"_qs, u"20:00:00"_qs, u"晚上"_qs)
        .item(u"001"_qs, u"读书"_qs, u"2-学习"_qs, 0, 16711680);
  }
  WeekTexts fill(QDate first = kMonday) {
    BuildTimeRows(store_, sheet_);
    return FillWeek(store_, sheet_, first);
  }
  void expectColours(int col, int row, PackedColour text, PackedColour back) {
    EXPECT_EQ(sheet_.StyleAt(col, row).textColour, text);
    EXPECT_EQ(sheet_.StyleAt(col, row).backColour, back);
  }
};

}  // namespace

TEST_F(Week, HasBlocksByCodeAndSevenDaysFromAnyWeekday) {
  fill(QDate(2007, 12, 29));
  ASSERT_EQ(sheet_.Rows(), 3);
  EXPECT_EQ(sheet_.GetCellText(0, 1), u"19:00-20:00\r晚上"_qs);
  EXPECT_EQ(sheet_.CellTag(0, 1), u"001"_qs);
  EXPECT_EQ(sheet_.GetCellText(0, 2), u"08:00-09:30\r上午"_qs);
  EXPECT_EQ(sheet_.GetCellText(1, 0), u"12月29日\r星期六"_qs);
  EXPECT_EQ(sheet_.GetCellText(4, 0), u"01月01日\r星期二"_qs);
  EXPECT_EQ(sheet_.CellTag(7, 0), u"2008-01-04"_qs);
  for (const auto& [col, row] : {std::pair{0, 0}, {0, 2}}) {
    EXPECT_EQ(sheet_.StyleAt(col, row).align, kAlignCentred);
  }
  EXPECT_TRUE(sheet_.StyleAt(0, 2).wrap);
  EXPECT_EQ(sheet_.StyleAt(7, 0).font.style, kFontBold);
}

TEST_F(Week, ShowsTheFirstPlanOfABlockInItsActivitysColourAndNothingOfAnEarlierWeek) {
  builder_.plan(kMonday, u"002"_qs, u"读书"_qs, u"第三章"_qs)
      .plan(kMonday, u"002"_qs, u"乙"_qs)
      .plan(kMonday.addDays(8), u"002"_qs, u"乙"_qs);
  fill();
  EXPECT_EQ(sheet_.GetCellText(1, 2), u"读书\r第三章"_qs);
  EXPECT_EQ(sheet_.CellTag(1, 2), u"读书"_qs);
  expectColours(1, 2, packColour(0, 0, 255), packColour(230, 220, 255));
  expectColours(1, 1, kBlack, kWhite);
  fill(kMonday.addDays(7));
  EXPECT_EQ(sheet_.GetCellText(1, 2) + sheet_.CellTag(1, 2), QString());
  expectColours(1, 2, kBlack, kWhite);
}

}  // namespace vellora
