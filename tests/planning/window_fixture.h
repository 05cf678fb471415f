#pragma once

#include "support/hands.h"
#include "support/planner_test.h"
#include "support/schedule_dump.h"

namespace vellora::test {

// Over a schedule of two blocks and three activities, one of them completed.
class PlanWindowTest : public PlannerTest {
 protected:
  PlanWindowTest() {
    schedule_.block(u"002"_qs, u"08:00:00"_qs, u"09:30:00"_qs, u"早读"_qs)
        .block(u"001"_qs, u"20:00:00"_qs, u"21:00:00"_qs, u"晚间"_qs)
        .item(u"002"_qs, u"跑步"_qs, u"3-运动"_qs)
        .item(u"001"_qs, u"读书"_qs, u"2-学习"_qs)
        .item(u"003"_qs, u"做完了"_qs, u"1-工作"_qs, 1);
  }
  QStringList saved() { return savedPlans(store_); }
};

}  // namespace vellora::test
