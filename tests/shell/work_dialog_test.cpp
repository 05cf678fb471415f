#include "shell/work_dialog.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace vellora {

TEST(WorkDialog, ShowsHowFarLongWorkIsAndEndsItWhenTheUserCancels) {
  QWidget window;
  window.show();
  WorkDialog dialog(&window);
  const WorkProgress progress = dialog.progress();
  QTimer user;
  QString seen;
  QObject::connect(&user, &QTimer::timeout, [&] {
    if (QApplication::activeModalWidget() != &dialog) return;
    seen = dialog.labelText();
    QTest::keyClick(&dialog, Qt::Key_Escape);
  });
  user.start(1);
  const QDeadlineTimer end(std::chrono::seconds(30));
  const auto work = [&] {
    while (!end.hasExpired()) report(progress, {QStringLiteral("正在保存…"), 3, 10});
  };
  EXPECT_THROW(work(), WorkGivenUp);
  EXPECT_EQ(seen, QStringLiteral("正在保存… 3 / 10"));
}

TEST(WorkDialog, DoesNotEndWhatCannotBeStopped) {
  WorkDialog dialog(nullptr);
  const WorkProgress progress = dialog.progress();
  const QDeadlineTimer end(std::chrono::seconds(30));
  while (!dialog.isVisible() && !end.hasExpired()) {
    report(progress, {QStringLiteral("正在保存…"), 0, 0, false});
  }
  QTest::keyClick(&dialog, Qt::Key_Escape);
  dialog.close();
  EXPECT_TRUE(dialog.isVisible());
  EXPECT_FALSE(dialog.wasCanceled());
}

TEST(WorkDialog, StaysAwayFromQuickWork) {
  QWidget window;
  WorkDialog dialog(&window);
  const WorkProgress progress = dialog.progress();
  for (int row = 0; row < 100; ++row) report(progress, {QStringLiteral("正在保存…"), row, 100});
  EXPECT_FALSE(dialog.isVisible());
}

}  // namespace vellora
