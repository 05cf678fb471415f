#include "board/week_board.h"

#include "grid/surface/grid_surface.h"
#include "routine/calendar_text.h"
#include "shell/date_picker.h"
#include "shell/status_line.h"
#include "support/hands.h"
#include "support/planner_test.h"
#include "support/temporary_folder.h"

#include <QLabel>
#include <QTest>

namespace vellora {
namespace {

using namespace test;

class WeekBoardTest : public PlannerTest {
 protected:
  WeekBoardTest() {
    schedule_.block(u"001"_qs, u"08:00:00"_qs, u"09:00:00"_qs)
        .item(u"001"_qs, u"读书"_qs)
        .plan(kMonday, u"001"_qs, u"读书"_qs)
        .plan(kMonday.addDays(7), u"001"_qs, u"跑步"_qs)
        .memo(kMonday, u"交[*]报告"_qs)
        .weekName(kMonday, kMonday.addDays(6), u"第一周"_qs)
        .skin(u"KTZ9.SKN"_qs);
    board_.attachDayHeading([this](QDate day) { opened_ << isoDate(day); });
    board_.attachPlannedCell([this](const QString& activity) { opened_ << activity; });
  }
  // First cell, weekday, week name and the title behind the program's name.
  QString shown() {
    return QStringList{cell(1, 1), text(u"Lxq"_qs), text(u"Lmm"_qs),
                       board_.windowTitle().section(u"2.8版   "_qs, 1)}
        .join(u'|');
  }
  qsizetype rowsOf(const QString& table) { return store_.open(table).count(); }

  WeekBoard board_{state_};
  QStringList opened_;
};

}  // namespace

TEST_F(WeekBoardTest, OpensAtTodayAndStepsByDayAndByWeek) {
  const QString name = u"<b>"_qs + QString(200, u'周');
  schedule_.weekName(kMonday.addDays(6), kMonday.addDays(7), name);
  open(board_);
  EXPECT_EQ(cell(0, 0), u"时间\\日期"_qs);
  EXPECT_EQ(shown(), u"读书/要求|星期一|第一周|2007-03-05        交[*][*]报告"_qs);
  const int width = board_.minimumSizeHint().width();
  const std::pair<QString, QString> steps[]{
      {u"Cm4"_qs, u"跑步/要求|星期一|"_qs + name + u"|2007-03-12"},
      {u"Cm2"_qs, u"|星期日|第一周|2007-03-11"_qs},
      {u"Cm3"_qs, u"跑步/要求|星期一|"_qs + name + u"|2007-03-12"},
      {u"Cm1"_qs, u"读书/要求|星期一|第一周|2007-03-05        交[*][*]报告"_qs}};
  for (const auto& [button, after] : steps) {
    click(button);
    EXPECT_EQ(shown(), after);
    EXPECT_EQ(board_.minimumSizeHint().width(), width) << "a long name widens nothing";
  }
  control<DatePicker>(u"D1"_qs).setDate(kMonday.addDays(1));
  EXPECT_EQ(cell(7, 1), u"跑步/要求"_qs);
  QTest::mouseDClick(&control(u"Lxq"_qs), Qt::LeftButton);
  EXPECT_EQ(board_.firstDay(), kMonday);
  EXPECT_TRUE(prompts_.warnings.isEmpty());
}

TEST_F(WeekBoardTest, AClickOrAKeyOpensADayOrAnActivityAndNothingElse) {
  open(board_);
  clickCell(3, 0);
  clickCell(1, 1);
  for (const auto& [col, row] : {std::pair{0, 0}, {0, 1}, {2, 1}}) clickCell(col, row);
  for (const auto& [col, row] : {std::pair{7, 0}, {1, 1}}) {
    grid().SetCurrentCell(col, row);
    QTest::keyClick(&grid(), Qt::Key_Return);
  }
  click(u"Cm3"_qs);
  clickCell(1, 1);
  EXPECT_EQ(opened_, (QStringList{u"2007-03-07"_qs, u"读书"_qs, u"2007-03-11"_qs, u"读书"_qs}));
}

TEST_F(WeekBoardTest, IsRebuiltAfterAWindowOnlyWhenTheFlagIsSet) {
  board_.attachCommand(BoardCommand::Statistics, [&] { store_.execute(u"DELETE * FROM JH"_qs); });
  board_.attachCommand(BoardCommand::DailyPlan, [&] { board_.setRedrawFlag(); });
  open(board_);
  click(u"Command3"_qs);
  EXPECT_EQ(cell(1, 1), u"读书/要求"_qs);
  EXPECT_TRUE(control(u"CmdRefresh"_qs).isVisible());
  click(u"Command1"_qs);
  EXPECT_EQ(cell(1, 1), QString());
  EXPECT_FALSE(control(u"CmdRefresh"_qs).isVisible());
}

TEST_F(WeekBoardTest, ClearsPlansMemosWeekNamesAndSkinOnlyAfterYes) {
  open(board_);
  click(u"Command9"_qs);
  EXPECT_EQ(rowsOf(u"JH"_qs), 2);
  EXPECT_EQ(prompts_.questions,
            QStringList{u"清空操作将删除所有的活动计划、备忘录和每周命名,清空前最好进行备份,"
                        u"真的要清空全部计划吗?"_qs});
  prompts_.answers << true;
  click(u"Command9"_qs);
  for (const auto& table : {u"JH"_qs, u"BW"_qs, u"MM"_qs, u"JM"_qs}) EXPECT_EQ(rowsOf(table), 0);
  for (const auto& table : {u"SJ"_qs, u"HD"_qs}) EXPECT_EQ(rowsOf(table), 1);
  EXPECT_EQ(shown(), u"|星期一||2007-03-05"_qs);
}

TEST_F(WeekBoardTest, StaysAsItWasWhenAStepOrARebuildFailsAndSaysHowToTryAgain) {
  open(board_);
  const QString before = shown();
  schedule_.sql(u"ALTER TABLE JH RENAME TO JH_away"_qs);
  click(u"Cm3"_qs);
  EXPECT_EQ(board_.firstDay(), kMonday) << "what is shown and what is picked agree";
  board_.setRedrawFlag();
  board_.RebuildBoard();
  EXPECT_EQ(shown(), before);
  EXPECT_EQ(grid().CellTag(1, 0), u"2007-03-05"_qs);
  EXPECT_TRUE(text(u"StatusLine"_qs).contains(u"F5"_qs));
  EXPECT_EQ(prompts_.warnings.size(), 2);
  schedule_.sql(u"ALTER TABLE JH_away RENAME TO JH"_qs);
  schedule_.plan(kMonday.addDays(1), u"001"_qs, u"跑步"_qs);
  QTest::keyClick(&board_, Qt::Key_F5);
  EXPECT_EQ(cell(2, 1), u"跑步/要求"_qs);
  EXPECT_EQ(text(u"StatusLine"_qs), QString());
}

TEST_F(WeekBoardTest, TakesColumnWidthsFromItsTemplateAndDoesWithoutABrokenOne) {
  const QString path = schedule_.folder() + u"/JH.ZRT";
  GridSurface saved;
  saved.SetCols(20);
  saved.sheet().SetColumnWidth(3, 222);
  saved.SaveFile(path);
  open(board_);
  EXPECT_EQ(grid().sheet().ColumnWidth(3), 222);
  EXPECT_EQ(grid().Cols(), 8);
  writeBytes(path, "no workbook");
  WeekBoard other(state_);
  open(other);
  EXPECT_EQ(cell(1, 1), u"读书/要求"_qs);
  EXPECT_TRUE(prompts_.warnings.isEmpty());
}

TEST_F(WeekBoardTest, FillsItsRoomAtASizeThatTheUserMayChooseAndThatIsRemembered) {
  open(board_);
  const auto height = [] { return grid().rowViewportPosition(1) + grid().rowHeight(1); };
  EXPECT_NEAR(height(), grid().viewport()->height(), 1);
  const qreal fitting = grid().zoom();
  press(Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_GT(grid().zoom(), fitting);
  const qreal chosen = grid().zoom();
  WeekBoard another(state_);
  open(another);
  EXPECT_EQ(grid().zoom(), chosen);
  press(Qt::Key_0, Qt::ControlModifier);
  EXPECT_EQ(grid().zoom(), fitting);
  EXPECT_EQ(text(u"StatusLine"_qs), u"显示比例：适合窗口");
}

}  // namespace vellora
