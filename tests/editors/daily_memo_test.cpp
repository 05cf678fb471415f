#include "editors/daily_memo.h"

#include "support/schedule_builder.h"
#include "support/store_fault.h"
#include "support/text_output.h"

#include <gtest/gtest.h>

namespace vellora {
namespace {

const QDate kDay(2007, 3, 5);

class DailyMemoTest : public testing::Test {
 protected:
  test::ScheduleBuilder schedule_;
  ScheduleStore store_ = schedule_.store();
};

}  // namespace

TEST_F(DailyMemoTest, CaptionNamesTheDayInFull) {
  EXPECT_EQ(memoCaption(kDay), u"备忘录  2007年3月5日 星期一"_qs);
  EXPECT_EQ(memoCaption(QDate(2008, 2, 29)), u"备忘录  2008年2月29日 星期五"_qs);
}

TEST_F(DailyMemoTest, KeepsOneMemoForEachDay) {
  for (const auto& text : {u"第一行\n\n第三行\t'引号' #1#"_qs, QString(100'000, u'长'), u""_qs}) {
    storeMemo(store_, kDay, text);
    storeMemo(store_, kDay.addDays(1), u"明天"_qs);
    EXPECT_EQ(memoOf(store_, kDay), text);
    EXPECT_EQ(store_.open(u"BW"_qs).count(), 2);
  }
  EXPECT_EQ(memoOf(store_, kDay.addDays(-1)), QString());
}

TEST_F(DailyMemoTest, AnEmptyMemoIsStoredAsAText) {
  storeMemo(store_, kDay, QString());
  EXPECT_TRUE(store_.open(u"BW"_qs).value(u"Memo").isValid());
}

TEST_F(DailyMemoTest, AFailedStoreLeavesTheOldMemo) {
  schedule_.memo(kDay, u"旧"_qs);
  ScheduleStore impatient = schedule_.store(std::chrono::milliseconds(0));
  const ScheduleStore::Transaction other(store_);
  EXPECT_EQ(test::faultOf([&] { storeMemo(impatient, kDay, u"新"_qs); }), StoreFault::Busy);
  EXPECT_EQ(memoOf(store_, kDay), u"旧"_qs);
}

}  // namespace vellora
