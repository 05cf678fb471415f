#include "app/close_signals.h"

#include <QCloseEvent>
#include <QTest>
#include <QWidget>

#include <csignal>
#include <gtest/gtest.h>

namespace vellora {
namespace {

// Refuses the first close, and hears of another signal while it asks.
class AskingWindow : public QWidget {
 public:
  int asked = 0;

 protected:
  void closeEvent(QCloseEvent* event) override {
    if (++asked > 1) return;
    std::raise(SIGTERM);
    QTest::qWait(50);
    event->ignore();
  }
};

}  // namespace

TEST(CloseSignals, CloseTheWindowsWhichMayRefuse) {
  const CloseSignals closeSignals;
  AskingWindow window;
  window.show();
  for (const int signal : {SIGXFSZ, SIGPIPE, SIGHUP}) std::raise(signal);
  EXPECT_TRUE(QTest::qWaitFor([&] { return window.asked > 0; }));
  QTest::qWait(50);
  EXPECT_TRUE(window.isVisible());
  EXPECT_EQ(window.asked, 1) << "once for all signals that came while it asked";
  std::raise(SIGTERM);
  EXPECT_TRUE(QTest::qWaitFor([&] { return !window.isVisible(); }));
}

}  // namespace vellora
