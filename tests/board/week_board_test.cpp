#include "board/week_board.h"

#include "grid/surface/grid_surface.h"
#include "shell/date_picker.h"
#include "shell/status_line.h"
#include "store/store_error.h"
#include "support/planner_test.h"

#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace vellora {
namespace {

using test::kMonday;

class WeekBoardTest : public test::PlannerTest {
 protected:
  WeekBoardTest() {
    schedule_.block(u"001"_qs, u"08:00:00"_qs, u"09:00:00"_qs)
        .item(u"001"_qs, u"读书"_qs)
        .plan(kMonday, u"001"_qs, u"读书"_qs)
        .plan(kMonday.addDays(7), u"001"_qs, u"跑步"_qs)
        .memo(kMonday, u"交[*]报告"_qs)
        .weekName(kMonday, kMonday.addDays(6), u"第一周"_qs)
        .skin(u"KTZ9.SKN"_qs);
  }

  void open() {
    board_.Load();
    board_.Show();
  }
  void click(const QString& name) {
    QTest::mouseClick(board_.findChild<QPushButton*>(name), Qt::LeftButton);
  }
  void clickCell(int col, int row) {
    const QPoint place = grid().visualRect(grid().model()->index(row, col)).center();
    QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, place);
  }
  GridSurface& grid() { return *board_.findChild<GridSurface*>(u"Cell1"_qs); }
  QString label(const QString& name) { return board_.findChild<QLabel*>(name)->text(); }
  QString statusLine() {
    for (const auto* line : board_.findChildren<StatusLine*>()) {
      if (line->isVisible()) return line->text();
    }
    return {};
  }
  QString shown(int col, int row) { return grid().GetCellText(col, row); }
  qsizetype rowsOf(const QString& table) { return store_.open(table).count(); }

  WeekBoard board_{state_};
};

}  // namespace

TEST_F(WeekBoardTest, OpensAtTodayWithPlansWeekNameAndMemo) {
  open();
  EXPECT_EQ(board_.firstDay(), kMonday);
  EXPECT_EQ(shown(1, 1), u"读书\r要求"_qs);
  EXPECT_EQ(shown(0, 0), u"时间\\日期"_qs);
  EXPECT_EQ(label(u"Lxq"_qs), u"星期一"_qs);
  EXPECT_EQ(label(u"Lmm"_qs), u"第一周"_qs);
  EXPECT_EQ(board_.windowTitle(), u"   Vellora日程表2.8版   2007-03-05        交[*][*]报告"_qs);
  EXPECT_TRUE(grid().RedrawSwitch());
  EXPECT_TRUE(prompts_.warnings.isEmpty());
}

TEST_F(WeekBoardTest, ShowsALongWeekNameAsItStandsWithoutGrowing) {
  const QString name = u"<b>"_qs + QString(200, u'周');
  schedule_.weekName(kMonday.addDays(7), kMonday.addDays(13), name);
  open();
  const int width = board_.minimumSizeHint().width();
  click(u"Cm4"_qs);
  EXPECT_EQ(label(u"Lmm"_qs), name);
  EXPECT_EQ(board_.findChild<QLabel*>(u"Lmm"_qs)->textFormat(), Qt::PlainText);
  EXPECT_EQ(board_.minimumSizeHint().width(), width);
}

TEST_F(WeekBoardTest, StepsByDayAndByWeek) {
  open();
  click(u"Cm4"_qs);
  EXPECT_EQ(shown(1, 1), u"跑步\r要求"_qs);
  EXPECT_EQ(label(u"Lmm"_qs), QString());
  EXPECT_EQ(board_.windowTitle(), u"   Vellora日程表2.8版   2007-03-12"_qs);
  click(u"Cm2"_qs);
  EXPECT_EQ(shown(2, 1), u"跑步\r要求"_qs);
  EXPECT_EQ(label(u"Lxq"_qs), u"星期日"_qs);
  click(u"Cm3"_qs);
  click(u"Cm1"_qs);
  EXPECT_EQ(board_.firstDay(), kMonday);
  board_.findChild<DatePicker*>(u"D1"_qs)->setDate(kMonday.addDays(1));
  EXPECT_EQ(shown(7, 1), u"跑步\r要求"_qs);
}

TEST_F(WeekBoardTest, RebuildsAfterAWindowOnlyWhenTheFlagIsSet) {
  open();
  board_.attachCommand(BoardCommand::Statistics, [&] { store_.execute(u"DELETE * FROM JH"_qs); });
  board_.attachCommand(BoardCommand::DailyPlan, [&] { board_.setRedrawFlag(); });
  click(u"Command3"_qs);
  EXPECT_EQ(shown(1, 1), u"读书\r要求"_qs);
  click(u"Command1"_qs);
  EXPECT_EQ(shown(1, 1), QString());
}

TEST_F(WeekBoardTest, OpensTheDayOrTheActivityThatIsClickedAndIsRebuiltOnReturn) {
  QList<QDate> days;
  QStringList activities;
  board_.attachDayHeading([&](QDate day) { days << day; });
  board_.attachPlannedCell([&](const QString& activity) {
    activities << activity;
    store_.execute(u"DELETE * FROM JH"_qs);
    board_.setRedrawFlag();
  });
  open();
  clickCell(3, 0);
  EXPECT_EQ(days, QList<QDate>{kMonday.addDays(2)});
  clickCell(1, 1);
  EXPECT_EQ(activities, QStringList{u"读书"_qs});
  EXPECT_EQ(shown(1, 1), QString());
}

TEST_F(WeekBoardTest, CellsWithoutADayOrAPlanOpenNothing) {
  int opened = 0;
  board_.attachDayHeading([&](QDate) { ++opened; });
  board_.attachPlannedCell([&](const QString&) { ++opened; });
  open();
  clickCell(0, 0);
  clickCell(0, 1);
  clickCell(2, 1);
  click(u"Cm3"_qs);
  clickCell(1, 1);
  EXPECT_EQ(opened, 0);
}

TEST_F(WeekBoardTest, TheKeyboardOpensWhatAClickOpens) {
  QList<QDate> days;
  QStringList activities;
  board_.attachDayHeading([&](QDate day) { days << day; });
  board_.attachPlannedCell([&](const QString& activity) { activities << activity; });
  open();
  emit grid().CellActivated(7, 0);
  emit grid().CellActivated(1, 1);
  EXPECT_EQ(days, QList<QDate>{kMonday.addDays(6)});
  EXPECT_EQ(activities, QStringList{u"读书"_qs});
}

TEST_F(WeekBoardTest, ClearsPlansMemosWeekNamesAndSkinOnlyAfterYes) {
  open();
  click(u"Command9"_qs);
  EXPECT_EQ(rowsOf(u"JH"_qs), 2);
  EXPECT_EQ(prompts_.questions,
            QStringList{u"清空操作将删除所有的活动计划、备忘录和每周命名,清空前最好进行备份,"
                        u"真的要清空全部计划吗?"_qs});
  prompts_.answers << true;
  click(u"Command9"_qs);
  for (const auto& table : {u"JH"_qs, u"BW"_qs, u"MM"_qs, u"JM"_qs}) EXPECT_EQ(rowsOf(table), 0);
  for (const auto& table : {u"SJ"_qs, u"HD"_qs}) EXPECT_EQ(rowsOf(table), 1);
  EXPECT_EQ(shown(1, 1), QString());
  EXPECT_EQ(label(u"Lmm"_qs), QString());
  EXPECT_EQ(board_.windowTitle(), u"   Vellora日程表2.8版   2007-03-05"_qs);
}

TEST_F(WeekBoardTest, StaysAsItWasWhenAStepOrARebuildFailsAndSaysHowToTryAgain) {
  open();
  schedule_.sql(u"ALTER TABLE JH RENAME TO JH_away"_qs);
  click(u"Cm3"_qs);
  EXPECT_EQ(prompts_.warnings.size(), 1);
  EXPECT_EQ(board_.firstDay(), kMonday) << "what is shown and what is picked agree";
  EXPECT_EQ(label(u"Lxq"_qs), u"星期一"_qs);
  board_.setRedrawFlag();
  board_.RebuildBoard();
  EXPECT_EQ(shown(1, 1), u"读书\r要求"_qs);
  EXPECT_EQ(grid().CellTag(1, 0), u"2007-03-05"_qs);
  EXPECT_TRUE(statusLine().contains(u"F5"_qs));
  schedule_.sql(u"ALTER TABLE JH_away RENAME TO JH"_qs);
  schedule_.plan(kMonday.addDays(1), u"001"_qs, u"跑步"_qs);
  ASSERT_TRUE(QTest::qWaitForWindowActive(&board_));
  QTest::keyClick(&board_, Qt::Key_F5);
  EXPECT_EQ(shown(2, 1), u"跑步\r要求"_qs);
  EXPECT_EQ(statusLine(), QString());
  EXPECT_EQ(prompts_.warnings.size(), 2);
}

TEST_F(WeekBoardTest, TakesColumnWidthsFromItsTemplate) {
  GridSurface saved;
  saved.SetCols(20);
  saved.sheet().SetColumnWidth(3, 222);
  saved.SaveFile(schedule_.folder() + u"/JH.ZRT"_qs);
  open();
  EXPECT_EQ(grid().sheet().ColumnWidth(3), 222);
  EXPECT_EQ(grid().Cols(), 8);
}

TEST_F(WeekBoardTest, GoesOnFromAnEmptySheetWhenTheTemplateIsBroken) {
  QFile file(schedule_.folder() + u"/JH.ZRT"_qs);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("no workbook");
  file.close();
  open();
  EXPECT_EQ(shown(1, 1), u"读书\r要求"_qs);
  EXPECT_TRUE(prompts_.warnings.isEmpty());
}

}  // namespace vellora
