#include "shell/planner_window.h"

#include "support/planner_test.h"

#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace vellora {
namespace {

class RecordingWindow : public PlannerWindow {
 public:
  using PlannerWindow::PlannerWindow;
  QStringList steps;
  bool typed = false;

 protected:
  void load() override { steps << (isVisible() ? u"load late"_qs : u"load"_qs); }
  void activate() override { steps << u"activate"_qs; }
  void unload() override { steps << u"unload"_qs; }
  bool hasUnsavedTyping() const override { return typed; }
};

class PlannerWindowTest : public test::PlannerTest {
 protected:
  RecordingWindow window_{state_};
};

}  // namespace

TEST_F(PlannerWindowTest, LoadsThenActivatesThenUnloadsWhenItCloses) {
  window_.Load();
  QTimer::singleShot(0, &window_, &QWidget::close);
  window_.ShowModal();
  EXPECT_EQ(window_.steps, (QStringList{u"load"_qs, u"activate"_qs, u"unload"_qs}));
  EXPECT_FALSE(window_.isVisible());
}

TEST_F(PlannerWindowTest, IsNotActivatedByTheDesktopsFocus) {
  window_.Load();
  window_.Show();
  window_.steps.clear();
  QWidget other;
  other.show();
  other.activateWindow();
  window_.activateWindow();
  QTest::qWait(50);
  EXPECT_TRUE(window_.steps.isEmpty());
}

TEST_F(PlannerWindowTest, EscapeClosesItOnlyWhileNothingTypedWouldBeLost) {
  window_.Load();
  window_.Show();
  window_.typed = true;
  QTest::keyClick(&window_, Qt::Key_Escape);
  EXPECT_TRUE(window_.isVisible());
  window_.typed = false;
  QTest::keyClick(&window_, Qt::Key_Escape);
  EXPECT_FALSE(window_.isVisible());
}

}  // namespace vellora
