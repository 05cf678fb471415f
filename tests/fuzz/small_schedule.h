#pragma once

#include "support/schedule_builder.h"

#include <optional>

namespace vellora::test {

// A schedule with one row in every table, so that a statement over many tables ends soon.
class SmallSchedule {
 public:
  SmallSchedule() {
    builder_.block(u"A"_qs, u"08:10:00"_qs, u"09:40:00"_qs)
        .item(u"001"_qs, u"晨跑"_qs)
        .plan(kDay, u"A"_qs, u"晨跑"_qs)
        .memo(kDay, u"备忘"_qs)
        .weekName(kDay, kDay.addDays(6), u"开学周"_qs)
        .skin(u"x.skn"_qs);
  }

  // Opened anew now and then, because a store remembers every kind of statement it was given.
  ScheduleStore& store() {
    constexpr unsigned kStatementsInOneStore = 200;
    if (uses_++ % kStatementsInOneStore == 0) store_.emplace(builder_.path());
    return *store_;
  }

  const QDate kDay{2007, 3, 5};

 private:
  ScheduleBuilder builder_;
  std::optional<ScheduleStore> store_;
  unsigned uses_ = 0;
};

}  // namespace vellora::test
