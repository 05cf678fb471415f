#include "planning/slow_work.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QProgressDialog>
#include <QTimer>
#include <QWidget>

#include <gtest/gtest.h>

namespace vellora {

TEST(SlowWork, ShowsABarAndEndsWhenTheUserCancels) {
  QWidget window;
  window.show();
  QTimer user;
  bool isSeen = false;
  QObject::connect(&user, &QTimer::timeout, [&] {
    auto* dialog = qobject_cast<QProgressDialog*>(QApplication::activeModalWidget());
    isSeen = dialog && dialog->isVisible();
    if (isSeen) dialog->cancel();
  });
  user.start(1);
  bool isCancelled = false;
  runShowingProgress(&window, QStringLiteral("正在保存…"), [&](const PlanProgress& progress) {
    const QDeadlineTimer end(std::chrono::seconds(30));
    int done = 0;
    while (!isCancelled && !end.hasExpired()) isCancelled = !progress(++done, 1'000'000'000);
  });
  EXPECT_TRUE(isSeen);
  EXPECT_TRUE(isCancelled);
}

TEST(SlowWork, QuickWorkIsNotInterrupted) {
  int sum = 0;
  runShowingProgress(nullptr, QStringLiteral("正在保存…"), [&](const PlanProgress& progress) {
    for (int row = 0; row < 100; ++row) sum += progress(row, 100) ? 1 : 0;
  });
  EXPECT_EQ(sum, 100);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

}  // namespace vellora
