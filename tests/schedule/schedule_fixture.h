#pragma once

#include "schedule/plan_rows.h"
#include "store/statements.h"
#include "store/store_error.h"
#include "support/schedule_builder.h"
#include "support/schedule_dump.h"
#include "support/text_output.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace vellora::test {

// A day of two blocks, a plan grid over it, and what is saved as lines of text.
class ScheduleTest : public testing::Test {
 protected:
  ScheduleTest() {
    builder_.block(u"002"_qs, u"08:00:00"_qs, u"09:30:00"_qs, u"早读"_qs)
        .block(u"001"_qs, u"20:00:00"_qs, u"21:00:00"_qs, u"晚间"_qs);
    store_ = std::make_unique<ScheduleStore>(builder_.path(), std::chrono::milliseconds(0));
    setUpPlanRows(sheet_);
  }

  void fillRow(int row, const QString& date, const QString& code, const QString& activity,
               const QString& requirement = {}, const QString& level = {}) {
    sheet_.SetCellText(kPlanDate, row, date);
    sheet_.SetCellTag(kPlanTime, row, code);
    sheet_.SetCellText(kPlanActivity, row, activity);
    sheet_.SetCellText(kPlanRequirement, row, requirement);
    sheet_.SetCellText(kPlanLevel, row, level);
  }

  // The shown texts of a row, joined; line breaks as slashes.
  QString row(int row) const {
    QStringList texts;
    for (int col = 0; col < sheet_.Cols(); ++col) texts << sheet_.GetCellText(col, row);
    return texts.join(u'|').replace(kLineBreakText, u"/"_qs);
  }

  QStringList saved() { return savedPlans(*store_); }

  ScheduleBuilder builder_;
  std::unique_ptr<ScheduleStore> store_;
  Sheet sheet_;

 private:
  inline static const QString kLineBreakText = u"\r"_qs;
};

}  // namespace vellora::test
