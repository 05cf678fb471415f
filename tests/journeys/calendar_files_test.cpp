// What a user does with calendar files, from the board's menu to the undone import.

#include "app/start_up.h"
#include "grid/surface/grid_surface.h"
#include "support/hands.h"
#include "support/home_folder.h"
#include "support/planner_test.h"
#include "support/schedule_dump.h"

#include <QAction>
#include <QComboBox>
#include <QTest>

namespace vellora {
namespace {

using namespace test;

class CalendarFilesTest : public PlannerTest {
 protected:
  CalendarFilesTest() {
    schedule_.block(u"a"_qs, u"08:00:00"_qs, u"09:30:00"_qs, u"早上"_qs)
        .block(u"b"_qs, u"14:00:00"_qs, u"15:30:00"_qs, u"下午"_qs)
        .item(u"001"_qs, u"读书"_qs, u"2-学习"_qs)
        .plan(kMonday, u"a"_qs, u"读书"_qs, u"第一章"_qs, 2)
        .plan(kMonday, u"没有"_qs, u"丢"_qs)
        .plan(kMonday.addDays(30), u"b"_qs, u"读书"_qs)
        .memo(kMonday, u"备忘"_qs);
    start_up_.showBoard();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&start_up_.board()));
  }
  void inWindow(const QString& command, const std::function<void()>& work) {
    inWindowOpenedBy([&] { start_up_.board().findChild<QAction*>(command)->trigger(); }, work);
  }
  // Once the file is read.
  void importing(const QByteArray& events, const std::function<void()>& work) {
    writeBytes(home_.path(u"x.ics"_qs), "BEGIN:VCALENDAR\n" + events + "END:VCALENDAR\n");
    importing(u"x.ics"_qs, work);
  }
  void importing(const QString& file, const std::function<void()>& work) {
    prompts_.files << home_.path(file);
    inWindow(u"ImportCalendar"_qs, [&] {
      EXPECT_TRUE(QTest::qWaitFor([this] { return prompts_.files.isEmpty(); }));
      work();
    });
  }

  HomeFolder home_;
  StartUp start_up_{schedule_.folder(), prompts_, clock_};
};

}  // namespace

TEST_F(CalendarFilesTest, AWeekAnActivityAndARangeGoOut) {
  inWindow(u"ExportCalendar"_qs, [] {
    for (const auto& box : {u"Memos"_qs, u"Reminds"_qs}) type(box, u" "_qs);
    alt('O');
  });
  const QString week = u"日程 2007-03-05 至 2007-03-11.ics"_qs;
  EXPECT_TRUE(bytesOf(home_.path(week)).contains("TRIGGER:-PT15M"));
  EXPECT_EQ(prompts_.informed.takeFirst(),
            u"已导出 1 项安排、1 则备忘：\\"_qs + week +
                u"\n1 项没有导出：它们的时间块已经没有，或没有起止时间。");
  inWindow(u"ExportCalendar"_qs, [this] {
    type(u"Scope"_qs, u"↓"_qs);
    EXPECT_EQ(text(u"Path"_qs), u"\\读书.ics");
    alt('O');
    EXPECT_EQ(prompts_.informed.takeFirst(), u"已导出 2 项安排：\\读书.ics");
  });
  inWindow(u"ExportCalendar"_qs, [this] {
    type(u"Scope"_qs, u"↓↓"_qs);
    type(u"First"_qs, u"2007-3-6\n"_qs);
    type(u"Last"_qs, u"2007-3-5\n"_qs);
    alt('O');
    EXPECT_EQ(text(u"StatusLine"_qs), u"起始日期在截止日期之后。");
    type(u"Last"_qs, u"2007-4-30\n"_qs);
    for (const auto& name : {u"\\"_qs, u"读书"_qs}) {
      tabTo(u"Path"_qs);
      press(Qt::Key_A, Qt::ControlModifier);
      type(name);
      alt('O');
    }
    EXPECT_EQ(prompts_.warnings, QStringList{u"请写出文件名。"_qs});
    EXPECT_TRUE(prompts_.questions.last().endsWith(u"读书.ics”已经存在，要替换它吗？"_qs));
    prompts_.answers << true;
    alt('O');
  });
  EXPECT_EQ(prompts_.informed, QStringList{u"已导出 1 项安排：读书"_qs});
  importing(week, [] {
    EXPECT_EQ(text(u"Summary"_qs), u"一共 2 次，全部已经相同，没有要导入的。");
    EXPECT_FALSE(control(u"Import"_qs).isEnabled());
  });
}

TEST_F(CalendarFilesTest, ATimetableComesInAsAgreedAndIsUndone) {
  const QStringList before = dumpOf(store_);
  const QByteArray timetable =
      "BEGIN:VEVENT\nDTSTART:20070305T080000\nDTEND:20070305T093500\nSUMMARY:物理\nLOCATION:302\n"
      "RRULE:FREQ=WEEKLY;COUNT=2\nEND:VEVENT\nBEGIN:VEVENT\nDTSTART:20070306T100000\nSUMMARY:空\n"
      "END:VEVENT\nBEGIN:VEVENT\nDTSTART:20070306\nSUMMARY:生日\nEND:VEVENT\n";
  importing(timetable, [] {
    EXPECT_EQ(text(u"Summary"_qs),
              u"一共 4 次：新的 1，已有别的安排 1，没有合适的时间块 1，全天 1。");
    const QStringList rows{u"2007-03-05 星期一|08:00-09:35|早上|物理|302|保留原有“读书”"_qs,
                           u"2007-03-06 星期二|全天||生日||不导入：全天事项"_qs,
                           u"2007-03-06 星期二|10:00-10:00||空||没有合适的时间块"_qs,
                           u"2007-03-12 星期一|08:00-09:35|早上|物理|302|导入"_qs};
    for (int i = 0; i < rows.size(); ++i) EXPECT_EQ(row(i), rows[i]);
    EXPECT_TRUE(isMarked(0) && !isMarked(3));
    type(u"Cell1"_qs, u" "_qs);
    EXPECT_EQ(cell(5, 0), u"替换“读书”");
    type(u"Category"_qs, u"↓"_qs);
    EXPECT_EQ(lines(u"NewActivities"_qs), QStringList{u"物理（2 次）：2-学习"_qs});
    type(u"Memos"_qs, u" "_qs);
    EXPECT_EQ(text(u"StatusLine"_qs), u"将导入 2 项安排、1 个新的活动项目、1 则备忘。");
    clickCell(5, 0);
    EXPECT_EQ(cell(5, 0), u"保留原有“读书”");
    alt('T');
    EXPECT_EQ(cell(5, 0), u"替换“读书”");
  });
  EXPECT_EQ(dumpOf(store_), before) << "left by Escape";
  importing(timetable, [] {
    for (const char letter : {'T', 'B', 'I'}) alt(letter);
  });
  EXPECT_EQ(
      prompts_.informed,
      QStringList{
          u"已导入 2 项安排，新建 1 个活动项目，记入 1 则备忘。在周表上按 Ctrl+Z 可以撤消。"_qs});
  EXPECT_EQ(cell(1, 1), u"物理/302");
  EXPECT_TRUE(dumpOf(store_).contains(u"HD|002|物理|1-工作|0|255"_qs));
  press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(dumpOf(store_), before);
}

}  // namespace vellora
