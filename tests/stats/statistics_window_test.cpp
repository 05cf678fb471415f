#include "stats/statistics_window.h"

#include "grid/surface/grid_surface.h"
#include "shell/date_picker.h"
#include "support/planner_test.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace vellora {
namespace {

class StatisticsWindowTest : public test::PlannerTest {
 protected:
  StatisticsWindowTest() {
    schedule_.block(u"a"_qs, u"08:00:00"_qs, u"09:30:00"_qs);
    schedule_.block(u"z"_qs, u"12:00:00"_qs, u"12:00:00"_qs);
    schedule_.item(u"001"_qs, u"写作"_qs).item(u"002"_qs, u"跑步"_qs, u"3-运动"_qs);
    clock_.set(kToday);
    window_.Load();
    window_.Show();
  }

  void compute(QDate first, QDate last) {
    window_.findChild<DatePicker*>(u"D1"_qs)->setDate(first);
    window_.findChild<DatePicker*>(u"D2"_qs)->setDate(last);
    QTest::mouseClick(window_.findChild<QPushButton*>(u"Command1"_qs), Qt::LeftButton);
  }
  QString label(const QString& name) { return window_.findChild<QLabel*>(name)->text(); }
  int bar(int index) { return window_.findChild<QLabel*>(u"LbTJ%1"_qs.arg(index))->width(); }
  int rows() { return window_.findChild<GridSurface*>(u"Cell1"_qs)->Rows(); }

  const QDate kToday{2007, 3, 31};
  StatisticsWindow window_{state_};
};

}  // namespace

TEST_F(StatisticsWindowTest, OpensOnAMonthToEachSideWithoutFigures) {
  EXPECT_EQ(window_.findChild<DatePicker*>(u"D1"_qs)->date(), QDate(2007, 2, 28));
  EXPECT_EQ(window_.findChild<DatePicker*>(u"D2"_qs)->date(), QDate(2007, 4, 30));
  EXPECT_EQ(label(u"LbZSS"_qs), u"作息总时数"_qs);
  EXPECT_EQ(label(u"LbYS5"_qs), u"总用时"_qs);
  EXPECT_EQ(bar(5), 200);
}

TEST_F(StatisticsWindowTest, ShowsTheRangeAndKeepsItsFiguresOverAnEmptyOne) {
  schedule_.plan(kToday, u"a"_qs, u"写作"_qs).plan(kToday, u"a"_qs, u"跑步"_qs);
  schedule_.plan(kToday.addDays(1), u"a"_qs, u"跑步"_qs);
  compute(kToday, kToday.addDays(1));
  EXPECT_EQ(label(u"LbZSS"_qs), u"从2007-03-31到2007-04-01作息总时间为:4小时30分钟"_qs);
  EXPECT_EQ(label(u"LbYS0"_qs), u"共1小时30分钟 占33.33%"_qs);
  EXPECT_EQ(label(u"LbYS2"_qs), u"共3小时0分钟 占66.67%"_qs);
  EXPECT_EQ(label(u"LbYS1"_qs), QString());
  EXPECT_EQ(bar(0), 80);
  EXPECT_EQ(bar(2), 160);
  EXPECT_EQ(bar(1), 0);
  EXPECT_EQ(rows(), 2);

  compute(kToday.addDays(1), kToday);
  EXPECT_EQ(rows(), 0);
  EXPECT_EQ(label(u"LbYS0"_qs), u"共1小时30分钟 占33.33%"_qs);
  EXPECT_EQ(bar(0), 80);
  EXPECT_TRUE(prompts_.warnings.isEmpty());
}

TEST_F(StatisticsWindowTest, SaysWhyBlocksOfNoLengthHaveNoShares) {
  schedule_.plan(kToday, u"z"_qs, u"写作"_qs);
  compute(kToday, kToday);
  EXPECT_EQ(prompts_.warnings, QStringList(u"所选日期内的作息总时间为零，无法计算百分比。"_qs));
  EXPECT_EQ(label(u"LbZSS"_qs), u"从2007-03-31到2007-03-31作息总时间为:0小时0分钟"_qs);
  EXPECT_EQ(label(u"LbYS0"_qs), QString());
}

TEST_F(StatisticsWindowTest, ShowsTheStoresOwnReasonWhenItFails) {
  schedule_.sql(u"DROP TABLE SJ"_qs);
  compute(kToday, kToday);
  ASSERT_EQ(prompts_.warnings.size(), 1);
  EXPECT_TRUE(prompts_.warnings[0].contains(u"SJ"_qs));
}

}  // namespace vellora
