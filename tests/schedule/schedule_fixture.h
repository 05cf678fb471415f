#pragma once

#include "schedule/plan_rows.h"
#include "store/statements.h"
#include "store/store_error.h"
#include "support/schedule_builder.h"
#include "support/schedule_dump.h"
#include "support/store_fault.h"
#include "support/text_output.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace vellora::test {

// A schedule, a sheet over it, and rows of both as lines of text: "2007-03-05|002|读书|第一章|3".
class ScheduleTest : public testing::Test {
 protected:
  // Of a plan grid; the block's code is the hidden tag of its cell.
  void fillPlanRow(int row, const QString& line) {
    const QStringList texts = line.split(u'|');
    for (int col = 0; col < 5; ++col) {
      if (col != kPlanTime) sheet_.SetCellText(col, row, texts.value(col));
    }
    sheet_.SetCellTag(kPlanTime, row, texts.value(kPlanTime));
  }
  void typeRow(int row, const QString& line, int col = 0) {
    for (const QString& text : line.split(u'|')) sheet_.SetCellText(col++, row, text);
  }
  // Line breaks as slashes.
  QString row(int row) const {
    QStringList texts;
    for (int col = 0; col < sheet_.Cols(); ++col) texts << sheet_.GetCellText(col, row);
    return texts.join(u'|').replace(u'\r', u'/');
  }
  QStringList filledRows() const {
    QStringList rows;
    for (int i = 0; i < sheet_.Rows(); ++i) {
      if (const QString text = row(i); text.size() >= sheet_.Cols()) rows << text;
    }
    return rows;
  }
  QStringList saved() { return savedPlans(store_); }

  ScheduleBuilder builder_;
  ScheduleStore store_ = builder_.store(std::chrono::milliseconds(0));
  Sheet sheet_;
};

}  // namespace vellora::test
