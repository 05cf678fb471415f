#include "schedule/time_blocks.h"

#include "sheet_texts.h"
#include "support/schedule_builder.h"
#include "support/text_output.h"

#include <gtest/gtest.h>

namespace vellora {
namespace {

using test::filledRows;
using test::rowText;
using test::typeRow;

class TimeBlocksTest : public testing::Test {
 protected:
  TimeBlocksTest() { setUpTimeBlocks(sheet_); }

  // What a window opened afterwards shows.
  QStringList stored() {
    Sheet other;
    setUpTimeBlocks(other);
    LoadTimeBlocks(store_, other);
    return filledRows(other);
  }

  test::ScheduleBuilder schedule_;
  ScheduleStore store_ = schedule_.store();
  Sheet sheet_;
};

}  // namespace

TEST_F(TimeBlocksTest, ListsBlocksByStartInFiftyRows) {
  schedule_.block(u"b"_qs, u"10:00:00"_qs, u"11:30:00"_qs, u"二"_qs)
      .block(u"a"_qs, u"08:30:00"_qs, u"09:00:00"_qs, u"一"_qs);
  typeRow(sheet_, 40, {u"不留"_qs});
  LoadTimeBlocks(store_, sheet_);
  EXPECT_EQ(sheet_.Rows(), 50);
  EXPECT_EQ(filledRows(sheet_), QStringList({u"08:30|09:00|a|一"_qs, u"10:00|11:30|b|二"_qs}));
  EXPECT_EQ(rowText(sheet_, kHeadingRow), u"开始时间|结束时间|时间块编号|时间块名称"_qs);
  EXPECT_EQ(sheet_.StyleAt(2, 0).align, kAlignCentred);
}

TEST_F(TimeBlocksTest, KeepsBlocksBeyondTheFiftieth) {
  schedule_.fullDay(72);
  LoadTimeBlocks(store_, sheet_);
  EXPECT_EQ(sheet_.Rows(), 72);
  const QStringList before = filledRows(sheet_);
  SaveTimeBlocks(store_, sheet_);
  EXPECT_EQ(stored(), before);
  EXPECT_EQ(before.size(), 72);
}

TEST_F(TimeBlocksTest, SavesOnlyCompleteRowsWhereverTheyStand) {
  schedule_.fullDay(5).plan(QDate(2007, 3, 5), u"001"_qs, u"晨跑"_qs);
  typeRow(sheet_, 0, {u"12:00"_qs, u"13:00"_qs, u"n"_qs, u""_qs});
  typeRow(sheet_, 7, {u"9:00"_qs, u"９：３０"_qs, u"b"_qs, u"后来"_qs});
  typeRow(sheet_, 49, {u" 8:00 "_qs, u"08:45:59"_qs, u"a"_qs, u"先前"_qs});
  SaveTimeBlocks(store_, sheet_);
  EXPECT_EQ(stored(), QStringList({u"08:00|08:45|a|先前"_qs, u"09:00|09:30|b|后来"_qs}));
  sheet_.SetRows(0);
  SaveTimeBlocks(store_, sheet_);
  EXPECT_EQ(stored(), QStringList());
  EXPECT_EQ(store_.open(u"JH"_qs).count(), 1) << "plans stay";
}

TEST_F(TimeBlocksTest, StoresWhatItDoesNotJudge) {
  const QStringList rows{
      u"08:00|09:00|a|甲"_qs,      // the same code twice
      u"08:30|10:00|a|重叠"_qs,    // overlapping hours
      u"12:00|11:00|r|倒过来"_qs,  // reversed hours
      u"13:00|14:00|O'N#[1]%|'; DELETE FROM SJ; --"_qs,
      u"15:00|16:00|长编号不止三位|两行\r名称"_qs,
      u"17:00|18:00|z|"_qs + QString(255, u'长'),
  };
  for (int row = 0; row < rows.size(); ++row) typeRow(sheet_, row, rows[row].split(u'|'));
  SaveTimeBlocks(store_, sheet_);
  EXPECT_EQ(stored(), rows);
}

TEST_F(TimeBlocksTest, ARefusedCellIsNamedAndTheOldBlocksStay) {
  const struct {
    int col;
    QString text;
    QString said;
  } cases[] = {
      {0, u"25:00"_qs, u"第 2 行的“开始时间”要填时间，例如 08:30，“25:00”不是。"_qs},
      {1, u"八点"_qs, u"第 2 行的“结束时间”要填时间，例如 08:30，“八点”不是。"_qs},
      {1, u"2007-03-05"_qs, u"第 2 行的“结束时间”要填时间，例如 08:30，“2007-03-05”不是。"_qs},
      {0, u" "_qs, u"第 2 行的“开始时间”要填时间，例如 08:30，“ ”不是。"_qs},
      {3, QString(256, u'长'),
       u"第 2 行的“时间块名称”不能保存：“时间块名称”最多存 255 个字，这里有 256 个字。"_qs},
  };
  schedule_.block(u"old"_qs, u"06:00:00"_qs, u"07:00:00"_qs, u"旧"_qs);
  typeRow(sheet_, 0, {u"08:00"_qs, u"09:00"_qs, u"a"_qs, u"好"_qs});
  for (const auto& [col, text, said] : cases) {
    typeRow(sheet_, 1, {u"09:00"_qs, u"10:00"_qs, u"b"_qs, u"坏"_qs});
    sheet_.SetCellText(col, 1, text);
    try {
      SaveTimeBlocks(store_, sheet_);
      ADD_FAILURE() << "stored " << text.toStdString();
    } catch (const CellRefused& refused) {
      EXPECT_EQ(refused.description(), said);
      EXPECT_EQ(refused.col(), col);
      EXPECT_EQ(refused.row(), 1);
    }
    EXPECT_EQ(stored(), QStringList(u"06:00|07:00|old|旧"_qs));
  }
}

TEST_F(TimeBlocksTest, AStoredTimeThatCannotBeReadIsShownAndNotLost) {
  schedule_.block(u"x"_qs, u"上午"_qs, u"09:00:00"_qs, u"外来"_qs);
  LoadTimeBlocks(store_, sheet_);
  EXPECT_EQ(filledRows(sheet_), QStringList(u"上午|09:00|x|外来"_qs));
  EXPECT_THROW(SaveTimeBlocks(store_, sheet_), CellRefused);
  EXPECT_EQ(stored(), QStringList(u"上午|09:00|x|外来"_qs));
}

}  // namespace vellora
