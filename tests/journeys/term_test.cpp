// What a student does to a term on the board, and how little of it there is to do.

#include "app/start_up.h"
#include "grid/surface/grid_surface.h"
#include "support/hands.h"
#include "support/home_folder.h"
#include "support/planner_test.h"
#include "support/schedule_dump.h"

#include <QMenu>
#include <QTest>
#include <QTimer>

namespace vellora {
namespace {

using namespace test;

// Two lessons a week on a board of two blocks. Clicks and keys are counted; a drag is one.
class TermTest : public PlannerTest {
 protected:
  TermTest() {
    schedule_.fullDay(2)
        .item(u"1"_qs, u"高等数学"_qs, u"2-学习"_qs)
        .plan(kMonday, u"001"_qs, u"高等数学"_qs)
        .plan(kMonday.addDays(2), u"002"_qs, u"高等数学"_qs);
    start_up_.showBoard();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&start_up_.board()));
  }
  void key(int which, Qt::KeyboardModifiers modifiers = {}) {
    ++gestures_;
    press(which, modifiers);
  }
  void letters(const QString& text) {
    gestures_ += static_cast<int>(text.size());
    type(text);
  }
  // Under 更多; then answers each dialog that follows by typing.
  void command(const QString& entry, QStringList answers) {
    QTimer hand;
    QObject::connect(&hand, &QTimer::timeout, &hand, [&] {
      QWidget* dialog = QApplication::activeModalWidget();
      if (answers.isEmpty() || !dialog || !dialog->isActiveWindow()) return;
      letters(answers.takeFirst());
    });
    hand.start(1);
    gestures_ += 2;
    click(u"CmdMore"_qs);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_TRUE(menu);
    for (QAction* action : menu->actions()) {
      if (action->text() != entry) continue;
      QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
      break;
    }
    EXPECT_TRUE(answers.isEmpty()) << entry.toStdString();
    start_up_.board().activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&start_up_.board()));
  }
  // Days from the first Monday on, and blocks.
  QString lessons() {
    QStringList all;
    for (const QString& plan : savedPlans(store_)) {
      const QDate day = QDate::fromString(plan.section(u'|', 0, 0), Qt::ISODate);
      all << u"%1/%2"_qs.arg(kMonday.daysTo(day)).arg(plan.section(u'|', 1, 1).toInt());
    }
    return all.join(u' ');
  }

  HomeFolder home_;
  StartUp start_up_{schedule_.folder(), prompts_, clock_};
  int gestures_ = 0;
};

}  // namespace

TEST_F(TermTest, ALessonIsMovedByOneDrag) {
  dragCell(1, 1, 2, 2);
  EXPECT_EQ(lessons(), u"1/2 2/2"_qs);
}

TEST_F(TermTest, AWeekIsCopiedOverATermCancelledAndPutOffWithFourToSixGestures) {
  command(u"复制本周…"_qs, {u"3\n"_qs, u"\n"_qs});
  EXPECT_EQ(lessons(), u"0/1 2/2 7/1 9/2 14/1 16/2 21/1 23/2"_qs);
  EXPECT_EQ(std::exchange(gestures_, 0), 5);
  command(u"清空本周"_qs, {u"\n"_qs});
  EXPECT_EQ(lessons(), u"7/1 9/2 14/1 16/2 21/1 23/2"_qs);
  EXPECT_EQ(std::exchange(gestures_, 0), 3);
  key(Qt::Key_Z, Qt::ControlModifier);
  command(u"本周起顺延一周"_qs, {u"\n"_qs});
  EXPECT_EQ(lessons(), u"7/1 9/2 14/1 16/2 21/1 23/2 28/1 30/2"_qs);
  EXPECT_EQ(gestures_, 4) << "with the undoing";
}

TEST_F(TermTest, TheNextOccurrenceIsFoundByTypingIt) {
  schedule_.plan(kMonday.addDays(80), u"002"_qs, u"期末考试"_qs);
  key(Qt::Key_F, Qt::ControlModifier);
  letters(u"期末"_qs);
  EXPECT_TRUE(QTest::qWaitFor([] { return text(u"FindCount"_qs) == u"共 1 处"; }));
  key(Qt::Key_Return);
  EXPECT_EQ(start_up_.board().firstDay(), kMonday.addDays(77));
  EXPECT_EQ(grid().currentPlace(), (CellPlace{4, 2}));
  EXPECT_EQ(gestures_, 4);
}

}  // namespace vellora
