#include "editors/memo_window.h"

#include "schedule/memos.h"
#include "support/hands.h"
#include "support/planner_test.h"

namespace vellora {

using namespace test;
using MemoWindowTest = PlannerTest;

TEST_F(MemoWindowTest, StoresTheTextWithoutAMessageAndDropsItWithTheDate) {
  const QDate tuesday = kMonday.addDays(1);
  MemoWindow memo(state_);
  schedule_.memo(kMonday, u"交报告\n给'老王'"_qs);
  open(memo);
  click(u"Cm3"_qs);
  type(u"Text1"_qs, u"买票"_qs);
  press(Qt::Key_Escape);
  EXPECT_TRUE(memo.isVisible()) << "the text is not stored yet";
  alt('U');
  EXPECT_EQ(memoOf(store_, tuesday), u"买票"_qs);
  type(u"带伞"_qs);
  click(u"Cm2"_qs);
  EXPECT_EQ(text(u"Text1"_qs), u"交报告\n给'老王'"_qs);
  EXPECT_EQ(memoOf(store_, tuesday), u"买票"_qs);
  EXPECT_TRUE(prompts_.warnings.isEmpty());
  press(Qt::Key_Escape);
  EXPECT_FALSE(memo.isVisible());
}

}  // namespace vellora
