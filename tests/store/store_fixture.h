#pragma once

#include "store/schedule_store.h"
#include "store/statements.h"
#include "support/schedule_builder.h"
#include "support/store_fault.h"
#include "support/text_output.h"

#include <gtest/gtest.h>

namespace vellora {

using test::descriptionOf;
using test::faultOf;
using test::kMonday;
using test::ScheduleBuilder;

constexpr std::chrono::milliseconds kHardlyPatient(5);

// A schedule with a few rows, opened; the builder goes on writing to it as another program.
class StoreTest : public ::testing::Test {
 protected:
  StoreTest() {
    builder.item(u"001"_qs, u"晨跑"_qs, u"3-运动"_qs)
        .item(u"002"_qs, u"O'Neil #1"_qs, u"1-工作"_qs, 1)
        .item(u"003"_qs, u"读书"_qs)
        .block(u"A"_qs, u"08:10:59"_qs, u"09:40:00"_qs)
        .block(u"B"_qs, u"06:00:00"_qs, u"06:20:00"_qs)
        .plan(kMonday, u"A"_qs, u"晨跑"_qs)
        .plan(kMonday, u"B"_qs, u"O'Neil #1"_qs)
        .plan(kMonday.addDays(1), u"A"_qs, u"晨跑"_qs)
        .weekName(kMonday, kMonday.addDays(6), u"开学周"_qs);
  }

  qsizetype count(const Query& tableOrSelect) { return store.open(tableOrSelect).count(); }

  ScheduleBuilder builder;
  ScheduleStore store{builder.path(), kHardlyPatient};
};

}  // namespace vellora
