// A schedule is backed up, lost, and brought back as it was.

#include "keyboard_journey.h"
#include "support/schedule_dump.h"

namespace vellora {
namespace {

// Three weeks of plans with memos and names.
class BackupJourney : public test::KeyboardJourney {
 protected:
  BackupJourney() {
    schedule_.fullDay(3).items(7).fullPlan(test::kMonday, 21, 3, 7);
    schedule_.memo(test::kMonday, u"带伞\r还书"_qs).memo(test::kMonday.addDays(1), QString());
    schedule_.weekName(test::kMonday, test::kMonday.addDays(6), u"第'1'周"_qs);
  }

  QStringList everyRow() {
    ScheduleStore store = schedule_.store();
    return test::dumpOf(store);
  }
};

}  // namespace

TEST_F(BackupJourney, AScheduleThatWasLostComesBackRowByRow) {
  const QStringList before = everyRow();
  ASSERT_EQ(before.size(), 76);
  inWindow(u"CmdA0"_qs, [] { alt('O'); });
  EXPECT_EQ(prompts_.warnings, QStringList{u"备份已正确完成, 共 76 条记录 ！"_qs});

  prompts_.answers << true;
  pressButton(u"Command9"_qs);
  schedule_.sql(u"DELETE FROM HD"_qs).sql(u"UPDATE SJ SET SJKH='x'"_qs);
  ASSERT_EQ(everyRow().size(), 3);

  inWindow(u"CmdA0"_qs, [] { alt('I'); });
  EXPECT_EQ(prompts_.warnings.last(), u"恢复已正确完成, 共 76 条记录！"_qs);
  EXPECT_EQ(everyRow(), before);
  EXPECT_EQ(cell(1, 1), u"活动001/按时完成"_qs) << "the board shows it again";
}

}  // namespace vellora
