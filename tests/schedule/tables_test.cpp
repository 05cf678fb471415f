#include "schedule/items.h"
#include "schedule/time_blocks.h"
#include "schedule/week_names.h"
#include "schedule_fixture.h"

namespace vellora {
namespace {

using test::kMonday;

class TimeBlocks : public test::ScheduleTest {
 protected:
  TimeBlocks() { setUpTimeBlocks(sheet_); }
  // What a window opened afterwards shows.
  QStringList stored() {
    const Sheet typed = sheet_;
    LoadTimeBlocks(store_, sheet_);
    QStringList rows = filledRows();
    sheet_ = typed;
    return rows;
  }
};

class WeekNames : public test::ScheduleTest {
 protected:
  WeekNames() { setUpWeekNames(sheet_); }
};

class Items : public test::ScheduleTest {
 protected:
  Items() {
    setUpItemSheet(sheet_);
    builder_.item(u"003"_qs, u"跑步"_qs, u"3-运动"_qs, 1, 65280)
        .item(u"001"_qs, u"晨读"_qs, u"2-学习"_qs)
        .item(u"002"_qs, u"游泳"_qs, u"3-运动"_qs);
  }
  QString filter(const QString& category) {
    catalogue_.filter(category, sheet_);
    QStringList codes;
    for (int row = 0; row < sheet_.Rows(); ++row) codes << sheet_.GetCellText(kItemCodeCol, row);
    return codes.join(u' ');
  }

  ItemCatalogue catalogue_{store_};
};

}  // namespace

TEST_F(TimeBlocks, AreListedByStartInFiftyRowsOrMore) {
  builder_.block(u"b"_qs, u"10:00:00"_qs, u"11:30:00"_qs, u"二"_qs)
      .block(u"a"_qs, u"08:30:00"_qs, u"09:00:00"_qs, u"一"_qs);
  typeRow(40, u"不留"_qs);
  LoadTimeBlocks(store_, sheet_);
  EXPECT_EQ(sheet_.Rows(), 50);
  EXPECT_EQ(filledRows(), QStringList({u"08:30|09:00|a|一"_qs, u"10:00|11:30|b|二"_qs}));
  EXPECT_EQ(row(kHeadingRow), u"开始时间|结束时间|时间块编号|时间块名称"_qs);
  builder_.fullDay(72);
  LoadTimeBlocks(store_, sheet_);
  const QStringList before = filledRows();
  SaveTimeBlocks(store_, sheet_);
  EXPECT_EQ(stored(), before);
  EXPECT_EQ(before.size(), 74);
}

TEST_F(TimeBlocks, AreSavedFromCompleteRowsAndNotJudged) {
  builder_.fullDay(5).plan(kMonday, u"001"_qs, u"晨跑"_qs);
  typeRow(0, u"12:00|13:00|n|"_qs);
  typeRow(7, u"9:00|９：３０|b|后来"_qs);
  typeRow(49, u" 8:00 |08:45:59|a|先前"_qs);
  SaveTimeBlocks(store_, sheet_);
  EXPECT_EQ(stored(), QStringList({u"08:00|08:45|a|先前"_qs, u"09:00|09:30|b|后来"_qs}));
  sheet_.SetRows(0);
  sheet_.SetRows(50);
  const QStringList rows{u"08:00|09:00|a|甲"_qs,
                         u"08:30|10:00|a|重叠"_qs,
                         u"12:00|11:00|r|倒过来"_qs,
                         u"13:00|14:00|O'N#[1]%|'; DELETE FROM SJ; --"_qs,
                         u"15:00|16:00|长编号不止三位|两行/名称"_qs,
                         u"17:00|18:00|z|"_qs + QString(255, u'长')};
  for (int i = 0; i < rows.size(); ++i) typeRow(i, rows[i]);
  SaveTimeBlocks(store_, sheet_);
  EXPECT_EQ(stored(), rows);
  sheet_.SetRows(0);
  SaveTimeBlocks(store_, sheet_);
  EXPECT_EQ(stored(), QStringList());
  EXPECT_EQ(store_.open(u"JH"_qs).count(), 1) << "plans stay";
}

TEST_F(TimeBlocks, ARefusedCellIsNamedAndTheOldBlocksStay) {
  const std::tuple<int, QString, QString> cases[]{
      {0, u"25:00"_qs, u"第 2 行的“开始时间”要填时间，例如 08:30，“25:00”不是。"_qs},
      {1, u"2007-03-05"_qs, u"第 2 行的“结束时间”要填时间，例如 08:30，“2007-03-05”不是。"_qs},
      {0, u" "_qs, u"第 2 行的“开始时间”要填时间，例如 08:30，“ ”不是。"_qs},
      {3, QString(256, u'长'),
       u"第 2 行的“时间块名称”不能保存：“时间块名称”最多存 255 个字，这里有 256 个字。"_qs}};
  builder_.block(u"old"_qs, u"06:00:00"_qs, u"07:00:00"_qs, u"旧"_qs);
  typeRow(0, u"08:00|09:00|a|好"_qs);
  for (const auto& [col, text, said] : cases) {
    typeRow(1, u"09:00|10:00|b|坏"_qs);
    sheet_.SetCellText(col, 1, text);
    try {
      SaveTimeBlocks(store_, sheet_);
      ADD_FAILURE() << "stored " << text.toStdString();
    } catch (const CellRefused& refused) {
      EXPECT_EQ(refused.description(), said);
      EXPECT_EQ(std::pair(refused.col(), refused.row()), std::pair(col, 1));
    }
    EXPECT_EQ(stored(), QStringList(u"06:00|07:00|old|旧"_qs));
  }
}

TEST_F(WeekNames, AreListedByFirstDayAndSavedUnlessADayIsNone) {
  LoadWeekNames(store_, sheet_);
  EXPECT_EQ(sheet_.Rows(), 60);
  typeRow(0, u"2007/3/12|2007年3月5日|倒过来"_qs);
  typeRow(1, u"2007-03-05|2007-03-20|O'N #1#"_qs);
  typeRow(9, u"||没有日期"_qs);
  SaveWeekNames(store_, sheet_);
  typeRow(9, u"2007-03-05|2007-02-30"_qs);
  EXPECT_THROW(SaveWeekNames(store_, sheet_), CellRefused);
  LoadWeekNames(store_, sheet_);
  EXPECT_EQ(sheet_.Rows(), 3);
  EXPECT_EQ(filledRows(),
            QStringList({u"2007-03-05|2007-03-20|O'N #1#"_qs, u"2007-03-12|2007-03-05|倒过来"_qs}));
  EXPECT_EQ(row(kHeadingRow), u"开始时间|结束时间|本周命名"_qs);
}

TEST_F(WeekNames, AWeekIsAddedToTheFirstRowWithoutAFirstDayAndContinuedThroughTen) {
  typeRow(0, u"2007-02-26|2007-03-04|一"_qs);
  typeRow(1, u"2007-03-05|2007-03-11"_qs);
  typeRow(2, u"|旧|已有名字"_qs);
  EXPECT_EQ(addWeek(sheet_, 0, QDate(2007, 12, 27)), 2);
  EXPECT_EQ(row(2), u"2007-12-27|2008-01-02|已有名字"_qs);
  EXPECT_EQ(addWeek(sheet_, 30, kMonday), 30) << "rows above the current one are left alone";
  sheet_.SetRows(3);
  EXPECT_EQ(addWeek(sheet_, -1, kMonday), 3) << "a row is appended when each has a first day";
  EXPECT_EQ(sheet_.Rows(), 5) << "an empty row follows";
  typeRow(1, u"2007/3/5|2007-03-07|短周"_qs);
  EXPECT_EQ(addFollowingWeeks(sheet_, 1), 11);
  EXPECT_EQ(sheet_.Rows(), 13);
  EXPECT_EQ(row(1), u"2007/3/5|2007-03-07|短周"_qs);
  EXPECT_EQ(row(2), u"2007-03-12|2007-03-18|已有名字"_qs);
  EXPECT_EQ(row(11), u"2007-05-14|2007-05-20|"_qs);
  sheet_.SetCellText(kWeekStartCol, 12, u"9999-10-16"_qs);
  EXPECT_EQ(row(addFollowingWeeks(sheet_, 12)), u"9999-12-25|9999-12-31|"_qs);
}

TEST_F(WeekNames, ANameIsCarriedOnlyIntoANamelessRow) {
  const TableRows stored{{u"2007-03-05"_qs, u"2007-03-11"_qs, u"第一周"_qs},
                         {u"2007-03-12"_qs, u"2007-03-18"_qs, u"学期"_qs}};
  sheet_.SetRows(3);
  sheet_.SetRowTexts(0, stored[1]);
  carryNameDown(sheet_, 0, 1);
  EXPECT_EQ(row(1), u"||学期"_qs);
  EXPECT_EQ(sheet_.Rows(), 3);
  EXPECT_EQ(weekNameChanges(sheet_, stored).missing, 1) << "hides no row that is gone";
  EXPECT_TRUE(weekNameChanges(sheet_, stored).rows.empty());
  sheet_.SetCellText(kWeekNameCol, 0, u"别的"_qs);
  carryNameDown(sheet_, 0, 1);
  EXPECT_EQ(row(1), u"||学期"_qs);
  carryNameDown(sheet_, -1, 2);
  EXPECT_EQ(row(2), u"||"_qs);
  EXPECT_EQ(sheet_.Rows(), 4) << "an empty row follows the last one entered";
}

TEST_F(Items, AreListedByCategoryInTheOrderOfTheirCodes) {
  EXPECT_EQ(filter(u"3-运动"_qs), u"002 003");
  EXPECT_EQ(sheet_.GetCellText(kItemStateCol, 1), u"1"_qs);
  EXPECT_EQ(sheet_.StyleAt(kItemNameCol, 1).textColour, 65280U);
  EXPECT_FALSE(catalogue_.find(u"001"_qs)) << "an item of another category";
  EXPECT_EQ(filter(u"所有类别"_qs), u"003 001 002");
  EXPECT_EQ(filter(u"6-休息"_qs), QString());
  EXPECT_TRUE(catalogue_.isEmpty());
  filter(u"2-学习"_qs);
  builder_.sql(u"ALTER TABLE HD RENAME TO HD0"_qs);
  EXPECT_TRUE(test::faultOf([&] { filter(u"3-运动"_qs); }));
  builder_.sql(u"ALTER TABLE HD0 RENAME TO HD"_qs);
  EXPECT_TRUE(catalogue_.add({u"004"_qs, u"英语"_qs, u"2-学习"_qs}));
  EXPECT_TRUE(catalogue_.find(u"001"_qs)) << "still in its category";
}

TEST_F(Items, TextsAndSuggestedCodes) {
  const std::pair<QString, QString> codes[]{
      {u"005"_qs, u"006"_qs},       {u"HD099"_qs, u"HD100"_qs}, {u"999"_qs, u"1000"_qs},
      {u"7"_qs, u"8"_qs},           {u"09"_qs, u"10"_qs},       {u"A05"_qs, u"001"_qs},
      {u"ABCDEF"_qs, u"ABC001"_qs}, {u"x"_qs, u"1"_qs},         {u"读书"_qs, u"01"_qs},
      {u"1.5"_qs, u"002"_qs},       {u"A０１"_qs, u"001"_qs},   {u"AB12x"_qs, u"AB013"_qs}};
  for (const auto& [code, next] : codes) EXPECT_EQ(suggestedCode(code), next) << code.toStdString();
  const std::pair<QString, QString> texts[]{{u" 晨 读\t"_qs, u"晨 读"_qs},
                                            {u"晨读\n英语\u2028单词"_qs, u"晨读 英语 单词"_qs},
                                            {u"　 "_qs, QString()}};
  for (const auto& [text, kept] : texts) EXPECT_EQ(storedItemText(text), kept);
}

}  // namespace vellora
