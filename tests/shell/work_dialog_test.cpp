#include "shell/work_dialog.h"

#include "support/text_output.h"

#include <QDeadlineTimer>
#include <QTest>

#include <gtest/gtest.h>

namespace vellora {

TEST(WorkDialog, ShowsLongWorkAndLetsTheUserCancelWhatCanBeStopped) {
  for (const bool canStop : {true, false}) {
    WorkDialog dialog(nullptr);
    const WorkStep step{u"正在保存…"_qs, 3, 10, canStop};
    const auto work = [&] { report(dialog.progress(), step); };
    for (int i = 0; i < 100; ++i) work();
    EXPECT_FALSE(dialog.isVisible()) << "quick work";
    const QDeadlineTimer end(std::chrono::seconds(30));
    while (!dialog.isVisible() && !end.hasExpired()) work();
    EXPECT_EQ(dialog.labelText(), u"正在保存… 3 / 10"_qs);
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_EQ(dialog.wasCanceled(), canStop);
    dialog.close();
    EXPECT_EQ(dialog.isVisible(), !canStop);
    EXPECT_EQ(dialog.progress()(step), !canStop);
  }
}

}  // namespace vellora
