#include "shell/planner_window.h"

#include "grid/surface/grid_surface.h"
#include "support/home_folder.h"
#include "support/planner_test.h"

#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace vellora {
namespace {

class RecordingWindow : public PlannerWindow {
 public:
  using PlannerWindow::answerGridKeys;
  using PlannerWindow::PlannerWindow;
  QStringList steps;
  bool typed = false;

 protected:
  void load() override { steps << (isVisible() ? u"load late"_qs : u"load"_qs); }
  void activate() override { steps << u"activate"_qs; }
  void unload() override { steps << u"unload"_qs; }
  bool mayClose() override { return !typed; }
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

TEST_F(PlannerWindowTest, ClosesOnlyWhenItMay) {
  window_.Load();
  window_.Show();
  window_.typed = true;
  QTest::keyClick(&window_, Qt::Key_Escape);
  window_.close();
  EXPECT_TRUE(window_.isVisible());
  window_.typed = false;
  QTest::keyClick(&window_, Qt::Key_Escape);
  EXPECT_FALSE(window_.isVisible());
}

TEST_F(PlannerWindowTest, EnterPressesTheButtonWithTheFocusElseTheDefaultOne) {
  QLineEdit field(&window_);
  QPushButton usual(&window_);
  QPushButton other(&window_);
  usual.setDefault(true);
  QStringList pressed;
  QObject::connect(&usual, &QPushButton::clicked, [&] { pressed << u"usual"_qs; });
  QObject::connect(&other, &QPushButton::clicked, [&] { pressed << u"other"_qs; });
  window_.Load();
  window_.Show();
  for (QWidget* focus : {static_cast<QWidget*>(&other), static_cast<QWidget*>(&field)}) {
    focus->setFocus();
    QTest::keyClick(focus, Qt::Key_Return);
  }
  EXPECT_EQ(pressed, (QStringList{u"other"_qs, u"usual"_qs}));
}

TEST_F(PlannerWindowTest, EnterThatEndsAFieldDoesNotPressTheButtonItLeadsTo) {
  QLineEdit field(&window_);
  QPushButton next(&window_);
  bool isPressed = false;
  QObject::connect(&next, &QPushButton::clicked, [&] { isPressed = true; });
  QObject::connect(&field, &QLineEdit::returnPressed, [&] { next.setFocus(); });
  window_.Load();
  window_.Show();
  field.setFocus();
  QTest::keyClick(&field, Qt::Key_Return);
  EXPECT_EQ(window_.focusWidget(), &next);
  EXPECT_FALSE(isPressed);
}

TEST_F(PlannerWindowTest, AnswersTheGridsKeysWhereverTheFocusIs) {
  const test::HomeFolder home;
  GridSurface grid(&window_);
  QLineEdit field(&window_);
  window_.answerGridKeys(grid, [] { return u"表"_qs; });
  window_.Load();
  window_.Show();
  QTest::keyClick(&field, Qt::Key_F8);
  QTest::keyClick(&grid, Qt::Key_F8);
  EXPECT_EQ(prompts_.informed, QStringList(2, u"\\表.xls已保存！"_qs));
  EXPECT_EQ(home.names(), QStringList{u"表.xls"_qs});
}

TEST_F(PlannerWindowTest, OpensOverItsOpenerAndNoLargerThanTheScreen) {
  window_.setGeometry(200, 100, 400, 300);
  window_.Show();
  RecordingWindow small(state_, &window_);
  small.resize(100, 80);
  small.Show();
  EXPECT_EQ(small.geometry().center(), window_.geometry().center());
  RecordingWindow large(state_, &window_);
  large.resize(10'000, 10'000);
  large.Show();
  EXPECT_TRUE(large.screen()->availableGeometry().contains(large.geometry()));
}

}  // namespace vellora
