#include "planning/activity_plan_window.h"

#include "schedule/plan_rows.h"
#include "window_fixture.h"

#include <QClipboard>
#include <QGuiApplication>

namespace vellora {

using test::kToday;

class ActivityPlanWindowTest : public test::WindowTest {
 protected:
  void open() {
    window_.Load();
    WindowTest::open(window_);
  }
  void setCount(const QString& box, const QString& count) {
    window_.findChild<QLineEdit*>(box)->setText(count);
  }
  QString summary() { return window_.findChild<QPlainTextEdit*>(u"Text3"_qs)->toPlainText(); }
  void pick(QDate date) { window_.findChild<DatePicker*>(u"DTP1"_qs)->setDate(date); }

  ActivityPlanWindow window_{state_};
};

TEST_F(ActivityPlanWindowTest, OpensAtTodayWithTheFirstOpenActivityListed) {
  schedule_.plan(kToday.addDays(1), u"002"_qs, u"读书"_qs, u"第一章"_qs, 3)
      .plan(kToday, u"001"_qs, u"做完了"_qs);
  open();
  EXPECT_EQ(lines(window_, u"List1"_qs), (QStringList{u"读书"_qs, u"跑步"_qs}));
  EXPECT_EQ(lines(window_, u"List2"_qs),
            (QStringList{u"08:00-09:30 早读"_qs, u"20:00-21:00 晚间"_qs}));
  EXPECT_EQ(window_.windowTitle(), u"项目活动计划  读书"_qs);
  EXPECT_EQ(row(window_, 0), u"2007-03-06/星期二|08:00-09:30/早读|读书|第一章|3"_qs);
  EXPECT_EQ(grid(window_).Rows(), 1 + kSparePlanRows);
  EXPECT_EQ(summary(), u"2007-03-05 星期一\n\n20:00-21:00 晚间\n  做完了\n"_qs);
  EXPECT_TRUE(prompts_.warnings.isEmpty());
}

TEST_F(ActivityPlanWindowTest, ChoosesAnActivityOnlyByItsExactName) {
  window_.Load();
  window_.chooseActivity(u"跑步 "_qs);
  EXPECT_EQ(window_.chosenActivity(), u"读书"_qs);
  window_.chooseActivity(u"跑步"_qs);
  EXPECT_EQ(window_.chosenActivity(), u"跑步"_qs);
  EXPECT_EQ(window_.windowTitle(), u"项目活动计划  跑步"_qs);
}

TEST_F(ActivityPlanWindowTest, PlacesTheActivityInTheCurrentRowAndGoesOnAtTheRequirement) {
  open();
  pick(kToday.addDays(1));
  grid(window_).SetCurrentCell(0, 2);
  doubleClick(window_, u"List2"_qs, 1);
  EXPECT_EQ(row(window_, 2), u"2007-03-06/星期二|20:00-21:00/晚间|读书||"_qs);
  EXPECT_EQ(grid(window_).currentIndex().column(), 3);
  EXPECT_EQ(grid(window_).CurrentRow(), 2);
  EXPECT_TRUE(isMarked(window_, 2));
  EXPECT_FALSE(isMarked(window_, 0));
}

TEST_F(ActivityPlanWindowTest, RefusesABlockThatIsTakenAndChangesNothing) {
  schedule_.plan(kToday, u"001"_qs, u"做完了"_qs).plan(kToday, u"002"_qs, u"读书"_qs);
  open();
  const QString before = row(window_, 0);
  doubleClick(window_, u"List2"_qs, 0);
  doubleClick(window_, u"List2"_qs, 1);
  EXPECT_EQ(prompts_.warnings,
            (QStringList{u" 当前时间已经排为读书"_qs, u" 当前时间已经排为做完了"_qs}));
  EXPECT_EQ(row(window_, 0), before);
}

TEST_F(ActivityPlanWindowTest, SavingTellsOfEachTakenBlockAndThenThatItIsDone) {
  open();
  doubleClick(window_, u"List2"_qs, 0);
  grid(window_).SetCurrentCell(0, 1);
  doubleClick(window_, u"List2"_qs, 1);
  schedule_.plan(kToday, u"001"_qs, u"跑步"_qs);
  click(window_, u"cmdSV"_qs);
  EXPECT_EQ(prompts_.warnings,
            (QStringList{u"2007-03-05 当前时间已经排为跑步"_qs, u"保存完毕!"_qs}));
  EXPECT_EQ(saved(), (QStringList{u"2007-03-05|001|跑步|要求|1"_qs, u"2007-03-05|002|读书||0"_qs}));
  EXPECT_FALSE(isMarked(window_, 0));
  EXPECT_TRUE(isMarked(window_, 1));
  EXPECT_TRUE(summary().contains(u"08:00-09:30 早读\n  读书\n"_qs)) << summary().toStdString();
}

TEST_F(ActivityPlanWindowTest, RepeatsTheCurrentRowByDayAndByWeek) {
  schedule_.plan(kToday.addDays(2), u"002"_qs, u"跑步"_qs);
  open();
  doubleClick(window_, u"List2"_qs, 0);
  setCount(u"Text4"_qs, u"2"_qs);
  click(window_, u"CmdDAY"_qs);
  EXPECT_EQ(row(window_, 1), u"2007-03-06/星期二|08:00-09:30/早读|读书||"_qs);
  EXPECT_EQ(row(window_, 2), u"2007-03-07/星期三|08:00-09:30/早读|跑步|要求|1"_qs);
  EXPECT_EQ(grid(window_).sheet().StyleAt(kPlanActivity, 2).textColour, kRed);
  EXPECT_EQ(grid(window_).CurrentRow(), 3);
  grid(window_).SetCurrentCell(0, 0);
  setCount(u"Text1"_qs, u"1"_qs);
  click(window_, u"CmdJH"_qs);
  EXPECT_EQ(planDateText(grid(window_).sheet(), 1), u"2007-03-12"_qs);
  EXPECT_EQ(planDateText(grid(window_).sheet(), 2), u"2007-03-06"_qs);
  EXPECT_TRUE(isMarked(window_, 1));
  EXPECT_FALSE(isMarked(window_, 3));
}

TEST_F(ActivityPlanWindowTest, TheWeekCountStepsWithTheArrowsAndStaysWithinItsBounds) {
  open();
  auto* box = window_.findChild<QLineEdit*>(u"Text1"_qs);
  EXPECT_EQ(box->text(), u"8"_qs);
  QTest::keyClick(box, Qt::Key_Up);
  EXPECT_EQ(box->text(), u"9"_qs);
  for (const auto* text : {u"1", u"60"}) {
    box->setText(QString::fromUtf16(text));
    QTest::keyClick(box, box->text() == u"1"_qs ? Qt::Key_Down : Qt::Key_Up);
    EXPECT_EQ(box->text(), QString::fromUtf16(text));
  }
  box->clear();
  QTest::keyClicks(box, u"12"_qs);
  EXPECT_EQ(box->text(), u"12"_qs);
}

TEST_F(ActivityPlanWindowTest, DeletesTheWholePlanOnlyAfterYes) {
  schedule_.plan(kToday, u"001"_qs, u"读书"_qs).plan(kToday, u"002"_qs, u"跑步"_qs);
  open();
  click(window_, u"CmdDEL"_qs);
  EXPECT_EQ(prompts_.questions, QStringList{u"请认是否删除项目 读书 的全部计划 ?"_qs});
  EXPECT_EQ(saved().size(), 2);
  prompts_.answers << true;
  click(window_, u"CmdDEL"_qs);
  EXPECT_EQ(saved(), QStringList{u"2007-03-05|002|跑步|要求|1"_qs});
  EXPECT_EQ(grid(window_).GetCellText(kPlanActivity, 0), QString());
  EXPECT_EQ(summary(), u"2007-03-05 星期一\n\n08:00-09:30 早读\n  跑步\n"_qs);
}

TEST_F(ActivityPlanWindowTest, WarnsOfEachEntryWhoseBlockIsGoneAndSavesItAgain) {
  schedule_.plan(kToday, u"009"_qs, u"读书"_qs);
  open();
  EXPECT_EQ(prompts_.warnings, QStringList{u"时间块编号:009在时间划分中没有找到!"_qs});
  click(window_, u"cmdSV"_qs);
  EXPECT_EQ(saved(), QStringList{u"2007-03-05|009|读书|要求|1"_qs});
}

TEST_F(ActivityPlanWindowTest, WhatListingDroppedCanBeFetchedBack) {
  open();
  doubleClick(window_, u"List2"_qs, 0);
  const QString typed = row(window_, 0);
  window_.chooseActivity(u"跑步"_qs);
  EXPECT_EQ(row(window_, 0), u"||||"_qs);
  click(window_, u"CmdFetch"_qs);
  EXPECT_EQ(window_.chosenActivity(), u"读书"_qs);
  EXPECT_EQ(row(window_, 0), typed);
  click(window_, u"cmdSV"_qs);
  EXPECT_EQ(saved(), QStringList{u"2007-03-05|002|读书||0"_qs});
}

TEST_F(ActivityPlanWindowTest, ARowKeepsItsBlockWhereverItIsCutCopiedOrTyped) {
  schedule_.plan(kToday, u"002"_qs, u"读书"_qs);
  open();
  auto& cells = grid(window_);
  cells.selectRow(0);
  QTest::keyClick(&cells, Qt::Key_X, Qt::ControlModifier);
  cells.SetCurrentCell(0, 3);
  QTest::keyClick(&cells, Qt::Key_V, Qt::ControlModifier);
  cells.SetCurrentCell(0, 5);
  QTest::keyClick(&cells, Qt::Key_V, Qt::ControlModifier);
  type(window_, kPlanDate, 5, u" 2007-03-10 "_qs);
  type(window_, kPlanTime, 5, u"晚间"_qs);
  type(window_, kPlanTime, 3, u"午间"_qs);
  EXPECT_EQ(prompts_.warnings.size(), 1) << "no block of that name";
  click(window_, u"cmdSV"_qs);
  EXPECT_EQ(saved(),
            (QStringList{u"2007-03-05|002|读书|要求|1"_qs, u"2007-03-10|001|读书|要求|1"_qs}));
}

TEST_F(ActivityPlanWindowTest, ARepetitionIsUndoneInOneStepAndTypingStaysUndoable) {
  open();
  doubleClick(window_, u"List2"_qs, 0);
  type(window_, kPlanRequirement, 0, u"第一章"_qs);
  const QString before = row(window_, 0);
  grid(window_).SetCurrentCell(0, 0);
  click(window_, u"CmdDAY"_qs);
  EXPECT_EQ(grid(window_).Rows(), kSparePlanRows + 60);
  grid(window_).Focus();
  QTest::keyClick(&grid(window_), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(row(window_, 0), before);
  EXPECT_EQ(row(window_, 1), u"||||"_qs);
  EXPECT_FALSE(isMarked(window_, 1));
  EXPECT_TRUE(isMarked(window_, 0));
  QTest::keyClick(&grid(window_), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(row(window_, 0), u"2007-03-05/星期一|08:00-09:30/早读|读书||"_qs);
}

TEST_F(ActivityPlanWindowTest, CtrlDDuplicatesTheCurrentRow) {
  open();
  doubleClick(window_, u"List2"_qs, 0);
  QTest::keyClick(&grid(window_), Qt::Key_D, Qt::ControlModifier);
  EXPECT_EQ(row(window_, 1), row(window_, 0));
  EXPECT_EQ(grid(window_).CellTag(kPlanTime, 1), u"002"_qs);
}

TEST_F(ActivityPlanWindowTest, BeginningADateProposesThePickedOne) {
  open();
  pick(kToday.addDays(1));
  QTest::keyClick(edit(window_, kPlanDate, 4), Qt::Key_Return);
  EXPECT_EQ(row(window_, 4), u"2007-03-06||||"_qs);
}

}  // namespace vellora
