// Who clears the schedule by mistake gets it back from the copy that the program made before.

#include "app/start_up.h"
#include "support/hands.h"
#include "support/home_folder.h"
#include "support/planner_test.h"
#include "support/schedule_dump.h"

#include <QFile>
#include <QTest>

namespace vellora {

using namespace test;

class LostPlans : public PlannerTest {
 protected:
  LostPlans() {
    schedule_.fullDay(3).items(3).fullPlan(kMonday, 7, 3, 3);
    start_up_.showBoard();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&start_up_.board()));
  }

  HomeFolder home_;
  StartUp start_up_{schedule_.folder(), prompts_, clock_};
};

TEST_F(LostPlans, ComeBackFromTheCopyThatWasMadeBeforeClearing) {
  const QStringList before = dumpOf(store_);
  prompts_.answers = {true};
  click(u"Command9"_qs);
  EXPECT_EQ(savedPlans(store_), QStringList());
  prompts_.answers = {true};
  inWindowOpenedBy([] { click(u"CmdA0"_qs); },
                   [] {
                     EXPECT_TRUE(lines(u"Copies"_qs).value(0).contains(u"21 条计划"_qs));
                     click(u"RestoreCopy"_qs);
                   });
  EXPECT_EQ(prompts_.warnings, QStringList(u"恢复已正确完成, 共 27 条记录！"_qs));
  EXPECT_EQ(dumpOf(store_), before);
  EXPECT_EQ(cell(1, 1).isEmpty(), false);
}

TEST_F(LostPlans, AreNotClearedUnaskedWhenNoCopyCanBeMade) {
  QFile inTheWay(schedule_.folder() + u"/备份"_qs);
  ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
  prompts_.answers = {true, false};
  click(u"Command9"_qs);
  EXPECT_EQ(savedPlans(store_).size(), 21);
  EXPECT_TRUE(prompts_.questions.last().startsWith(u"没有做成自动备份："_qs));
}

}  // namespace vellora
