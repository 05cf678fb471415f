#include "app/close_signals.h"

#include <QCloseEvent>
#include <QTest>
#include <QWidget>

#include <csignal>
#include <gtest/gtest.h>

namespace vellora {
namespace {

// Refuses the first close, and is told of another signal while it asks.
class AskingWindow : public QWidget {
 public:
  int asked = 0;

 protected:
  void closeEvent(QCloseEvent* event) override {
    if (++asked > 1) return;
    EXPECT_EQ(std::raise(SIGTERM), 0);
    QTest::qWait(50);
    event->ignore();
  }
};

}  // namespace

TEST(CloseSignals, CloseTheWindowsWhichMayRefuse) {
  const CloseSignals closeSignals;
  AskingWindow window;
  window.show();
  EXPECT_EQ(std::raise(SIGXFSZ), 0);
  EXPECT_EQ(std::raise(SIGPIPE), 0);
  EXPECT_EQ(std::raise(SIGHUP), 0);
  EXPECT_TRUE(QTest::qWaitFor([&] { return window.asked == 1; }));
  EXPECT_TRUE(window.isVisible());
  QTest::qWait(50);
  EXPECT_EQ(window.asked, 1) << "once for all signals that came while it asked";
  EXPECT_EQ(std::raise(SIGTERM), 0);
  EXPECT_TRUE(QTest::qWaitFor([&] { return !window.isVisible(); }));
}

}  // namespace vellora
