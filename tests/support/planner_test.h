#pragma once

#include "shell/application_state.h"
#include "support/fixed_clock.h"
#include "support/schedule_builder.h"
#include "support/scripted_prompts.h"
#include "support/text_output.h"

#include <gtest/gtest.h>

namespace vellora::test {

// What every window is handed: a schedule, prompts that are scripted, and a clock that stands at a
// Monday. Another program that saves is not waited for.
class PlannerTest : public testing::Test {
 protected:
  ScheduleBuilder schedule_;
  ScheduleStore store_{schedule_.path(), std::chrono::milliseconds(0)};
  ScriptedPrompts prompts_;
  FixedClock clock_{kMonday};
  ApplicationState state_{
      store_,   prompts_, clock_, schedule_.folder(), schedule_.folder() + u"/none.skn"_qs,
      QString()};
};

}  // namespace vellora::test
