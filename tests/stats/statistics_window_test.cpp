#include "stats/statistics_window.h"

#include "grid/surface/grid_surface.h"
#include "shell/date_picker.h"
#include "support/planner_test.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

namespace vellora {
namespace {

const QDate kToday(2007, 3, 31);

class StatisticsWindowTest : public test::PlannerTest {
 protected:
  StatisticsWindowTest() {
    schedule_.block(u"a"_qs, u"08:00:00"_qs, u"09:30:00"_qs);
    schedule_.block(u"z"_qs, u"12:00:00"_qs, u"12:00:00"_qs);
    schedule_.item(u"001"_qs, u"写作"_qs).item(u"002"_qs, u"跑步"_qs, u"3-运动"_qs);
    schedule_.plan(kToday, u"a"_qs, u"写作"_qs).plan(kToday, u"a"_qs, u"跑步"_qs);
    schedule_.plan(kToday.addDays(1), u"a"_qs, u"跑步"_qs).plan(test::kMonday, u"z"_qs, u"写作"_qs);
    clock_.set(kToday);
    window_.Load();
  }
  DatePicker& picker(const QString& name) { return *window_.findChild<DatePicker*>(name); }
  void compute(QDate first, QDate last) {
    picker(u"D1"_qs).setDate(first);
    picker(u"D2"_qs).setDate(last);
    window_.findChild<QPushButton*>(u"Command1"_qs)->click();
  }
  QString label(const QString& name) { return window_.findChild<QLabel*>(name)->text(); }
  int bar(int index) { return window_.findChild<QLabel*>(u"LbTJ%1"_qs.arg(index))->width(); }
  int rows() { return window_.findChild<GridSurface*>(u"Cell1"_qs)->Rows(); }

  StatisticsWindow window_{state_};
};

}  // namespace

TEST_F(StatisticsWindowTest, ShowsTheRangeAndKeepsItsFiguresOverAnEmptyOne) {
  EXPECT_EQ(picker(u"D1"_qs).date(), QDate(2007, 2, 28));
  EXPECT_EQ(picker(u"D2"_qs).date(), QDate(2007, 4, 30));
  EXPECT_EQ(label(u"LbYS5"_qs), u"总用时"_qs);
  for (const auto& [last, count] :
       {std::pair(kToday.addDays(1), 2), std::pair(kToday.addDays(-1), 0)}) {
    compute(kToday, last);
    EXPECT_EQ(label(u"LbYS0"_qs), u"共1小时30分钟 占33.33%"_qs);
    EXPECT_EQ(label(u"LbYS1"_qs), QString());
    EXPECT_EQ(label(u"LbYS2"_qs), u"共3小时0分钟 占66.67%"_qs);
    EXPECT_EQ(QList({bar(0), bar(1), bar(2)}), QList({80, 0, 160}));
    EXPECT_EQ(rows(), count);
    EXPECT_TRUE(prompts_.warnings.isEmpty());
  }
}

TEST_F(StatisticsWindowTest, ADayOfTheChartLeadsToTheBoard) {
  QDate chosen;
  QObject::connect(&window_, &StatisticsWindow::dayChosen, [&](QDate day) { chosen = day; });
  compute(kToday.addDays(-1), kToday.addDays(1));
  auto* chart = window_.findChild<QWidget*>(u"UseChart"_qs);
  for (const int key : {Qt::Key_End, Qt::Key_Left, Qt::Key_Return})
    QTest::keyClick(chart, Qt::Key(key));
  EXPECT_EQ(chosen, kToday);
  EXPECT_EQ(chart->accessibleDescription(),
            u"3月31日 星期六\n1-工作  1小时30分钟\n3-运动  1小时30分钟"_qs);
  compute(kToday.addDays(5), kToday.addDays(6));
  EXPECT_EQ(chart->accessibleDescription(), u"这段时间没有计划。"_qs);
}

TEST_F(StatisticsWindowTest, SaysWhyThereAreNoShares) {
  compute(test::kMonday, test::kMonday);
  EXPECT_EQ(prompts_.warnings, QStringList(u"所选日期内的作息总时间为零，无法计算百分比。"_qs));
  EXPECT_EQ(label(u"LbZSS"_qs), u"从2007-03-05到2007-03-05作息总时间为:0小时0分钟"_qs);
  EXPECT_EQ(label(u"LbYS0"_qs), QString());
  schedule_.sql(u"DROP TABLE SJ"_qs);
  compute(kToday, kToday);
  ASSERT_EQ(prompts_.warnings.size(), 2);
  EXPECT_TRUE(prompts_.warnings[1].contains(u"SJ"_qs));
}

}  // namespace vellora
