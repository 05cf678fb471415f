#include "app/usage_notes_window.h"

#include "support/fixed_clock.h"
#include "support/schedule_builder.h"
#include "support/scripted_prompts.h"
#include "support/text_output.h"

#include <QLabel>
#include <QPushButton>

#include <gtest/gtest.h>

namespace vellora {

TEST(UsageNotesWindow, ShowsEachParagraphAsOneText) {
  const test::ScheduleBuilder schedule;
  ScheduleStore store(schedule.path());
  test::ScriptedPrompts prompts;
  const test::FixedClock clock(QDate(2007, 3, 5));
  ApplicationState state{store, prompts, clock, schedule.folder(), u"none"_qs, QString()};
  UsageNotesWindow window(state);
  QStringList texts;
  for (const auto* label : window.findChildren<QLabel*>()) texts << label->text();
  EXPECT_TRUE(texts.contains(u"把握自己，把握人生，祝你早日成功！"_qs));
  EXPECT_TRUE(
      texts.contains(u"日程表可以按日制定，也可以按项目制定。制定日程表时，如果原有时间已经排定其他"
                     u"内容，系统会自动列出"
                     u"或给予提示。"_qs));
  EXPECT_EQ(window.findChild<QPushButton*>(u"CmdEND"_qs)->text(), u"关闭(&Q) "_qs);
}

}  // namespace vellora
