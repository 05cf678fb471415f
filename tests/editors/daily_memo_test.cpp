#include "schedule/memos.h"
#include "store/statements.h"
#include "support/schedule_builder.h"
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

TEST_F(DailyMemoTest, KeepsOneMemoForEachDay) {
  for (const auto& text : {u"第一行\n\n第三行\t'引号' #1#"_qs, QString(100'000, u'长'), u""_qs}) {
    storeMemo(store_, kDay, text);
    storeMemo(store_, kDay.addDays(1), u"明天"_qs);
    EXPECT_EQ(memoOf(store_, kDay), text);
    EXPECT_EQ(store_.open(u"BW"_qs).count(), 2);
  }
  EXPECT_EQ(memoOf(store_, kDay.addDays(-1)), QString());
  storeMemo(store_, kDay, QString());
  EXPECT_TRUE(store_.open(statements::memoOn(kDay)).value(u"Memo").isValid()) << "an empty text";
}

}  // namespace vellora
