#include "editors/activity_item_editor.h"

#include "grid/surface/grid_surface.h"
#include "store/statements.h"
#include "support/hands.h"
#include "support/planner_test.h"
#include "support/schedule_dump.h"

namespace vellora {

using namespace test;

// What the user does, to press a button, `row=` to click a row or `field=` to type a text, and what
// the window shows then: the buttons that can be pressed, the current row of all rows, the code and
// the name in the fields.
struct Step {
  QString act;
  QString shown;
};

class ActivityItemEditorTest : public PlannerTest {
 protected:
  static void act(const QString& step) {
    const QString name = step.section(u'=', 0, 0);
    if (name == step) return click(name);
    if (name == u"row"_qs) return clickCell(kItemNameCol, step.section(u'=', 1).toInt());
    control(name).setFocus(Qt::TabFocusReason);
    type(step.section(u'=', 1));
  }
  static QString shown() {
    QString letters;
    for (const auto& button : {u"cmdOK"_qs, u"cmdCancel"_qs, u"CmdNEW"_qs, u"CmdDEL"_qs}) {
      if (control(button).isEnabled()) letters += text(button).at(0);
    }
    return u"%1 %2/%3 %4 %5"_qs.arg(letters)
        .arg(grid().CurrentRow())
        .arg(grid().Rows())
        .arg(text(u"TxtHDBH"_qs), text(u"txtHDMC"_qs));
  }
  static void walk(const std::vector<Step>& steps) {
    for (const Step& step : steps) {
      act(step.act);
      EXPECT_EQ(shown(), step.shown) << "after " << step.act.toStdString();
    }
  }
  ActivityItemEditor editor_{state_};
};

TEST_F(ActivityItemEditorTest, FollowsTheUserThroughAddingChangingAndLeaving) {
  schedule_.item(u"001"_qs, u"晨读"_qs).item(u"HD099"_qs, u"跑步"_qs);
  open(editor_);
  walk({{u"row=1"_qs, u"添删 1/2 HD099 跑步"_qs},
        {u"CmdNEW"_qs, u"确取 2/3 HD100 "_qs},
        {u"txtHDMC=A"_qs, u"确取 2/3 HD100 A"_qs},
        {u"row=0"_qs, u"添删 0/2 001 晨读"_qs},
        {u"CmdNEW"_qs, u"确取 1/3 002 "_qs},
        {u"cmdCancel"_qs, u"添删 1/3  "_qs},
        {u"txtHDMC=B"_qs, u"确取 1/3  B"_qs},
        {u"row=2"_qs, u"添删 1/2 HD099 跑步"_qs},
        {u"txtHDMC=C"_qs, u"确取 1/2 HD099 C"_qs},
        {u"cmdCancel"_qs, u"添删 1/2 HD099 跑步"_qs},
        {u"Check1= "_qs, u"确取 1/2 HD099 跑步"_qs},
        {u"cmdOK"_qs, u"添删 1/2 HD099 跑步"_qs}});
  EXPECT_EQ(row(1), u"HD099|跑步|1-工作|1"_qs);
  EXPECT_EQ(dumpOf(store_),
            (QStringList{u"HD|001|晨读|1-工作|0|255"_qs, u"HD|HD099|跑步|1-工作|1|255"_qs}));
}

TEST_F(ActivityItemEditorTest, DeletesTheMiddleTheLastTheFirstAndTheOnlyItem) {
  schedule_.items(4);
  open(editor_);
  walk({{u"row=1"_qs, u"添删 1/4 002 活动002"_qs},
        {u"CmdDEL"_qs, u"添删 1/3 003 活动003"_qs},
        {u"row=2"_qs, u"添删 2/3 004 活动004"_qs},
        {u"CmdDEL"_qs, u"添删 1/2 003 活动003"_qs},
        {u"row=0"_qs, u"添删 0/2 001 活动001"_qs},
        {u"CmdDEL"_qs, u"添删 0/1 003 活动003"_qs},
        {u"CmdDEL"_qs, u"添 -1/0 003 活动003"_qs},
        {u"CmdNEW"_qs, u"确取 0/1 003 活动003"_qs}});
  EXPECT_EQ(dumpOf(store_), QStringList());
}

TEST_F(ActivityItemEditorTest, TakesTheFirstItemOfAnEmptyCatalogueOnlyWithACategory) {
  open(editor_);
  walk({{u"CmdNEW"_qs, u"确取 0/1  "_qs},
        {u"cmdOK"_qs, u"确取 0/1  "_qs},
        {u"TxtHDBH=007"_qs, u"确取 0/1 007 "_qs},
        {u"txtHDMC=walk"_qs, u"确取 0/1 007 walk"_qs},
        {u"cmdOK"_qs, u"确取 0/1 007 walk"_qs},
        {u"Combo1=3"_qs, u"确取 0/1 007 walk"_qs}});
  EXPECT_EQ(dumpOf(store_), QStringList());
  walk({{u"cmdOK"_qs, u"添删 0/1 007 walk"_qs}, {u"CmdNEW"_qs, u"确取 1/2 008 "_qs}});
  EXPECT_EQ(dumpOf(store_), QStringList{u"HD|007|walk|3-运动|0|65280"_qs});
  EXPECT_EQ(prompts_.warnings.size(), 1);
}

TEST_F(ActivityItemEditorTest, ANewNameIsGivenToThePlansWithTheOldOneIfTheUserLikes) {
  schedule_.item(u"001"_qs, u"跑步"_qs)
      .plan(kMonday, u"001"_qs, u"跑步"_qs)
      .plan(kMonday, u"002"_qs, u"散步"_qs);
  open(editor_);
  prompts_.choices = {1, 0};
  for (const auto& [name, plans] : {std::pair(u"慢跑"_qs, 0), {u"散步"_qs, 2}}) {
    act(u"row=0"_qs);
    control(u"txtHDMC"_qs).setFocus();
    press(Qt::Key_A, Qt::ControlModifier);
    type(name);
    click(u"cmdOK"_qs);
    EXPECT_EQ(store_.open(statements::plansOfActivity(name)).count(), plans);
    schedule_.sql(u"UPDATE JH SET HDMC='慢跑' WHERE SJKH='001'"_qs);
  }
  EXPECT_EQ(prompts_.questions,
            (QStringList{u"有 1 条计划用着原来的名称“跑步”。要把它们一起改名吗？"_qs,
                         u"有 1 条计划用着原来的名称“慢跑”。要把它们一起改名吗？"_qs}));
}

TEST_F(ActivityItemEditorTest, RefusesTakenAndUnknownCodes) {
  schedule_.items(2);
  open(editor_);
  walk({{u"CmdNEW"_qs, u"确取 1/3 003 "_qs},
        {u"txtHDMC=A"_qs, u"确取 1/3 003 A"_qs},
        {u"TxtHDBH=001"_qs, u"确取 1/3 001 A"_qs},
        {u"cmdOK"_qs, u"确取 1/3 001 A"_qs},
        {u"row=0"_qs, u"添删 0/2 001 活动001"_qs},
        {u"TxtHDBH=9"_qs, u"确取 0/2 9 活动001"_qs},
        {u"cmdOK"_qs, u"添删 0/2 001 活动001"_qs}});
  EXPECT_EQ(prompts_.warnings, (QStringList{u"活动编号已经存在！"_qs, u"活动编号没有找到！"_qs}));
  EXPECT_EQ(dumpOf(store_).size(), 2);
}

TEST_F(ActivityItemEditorTest, KeepsAStoredItemInViewUntilTheFilterRunsAndTheListIfItFails) {
  schedule_.item(u"001"_qs, u"晨读"_qs, u"2-学习"_qs).item(u"002"_qs, u"英语"_qs, u"2-学习"_qs);
  open(editor_);
  walk({{u"Combo2=2"_qs, u"添删 0/2 001 晨读"_qs},
        {u"Combo1=3"_qs, u"确取 0/2 001 晨读"_qs},
        {u"cmdOK"_qs, u"添删 0/2 001 晨读"_qs}});
  EXPECT_EQ(row(0), u"001|晨读|3-运动|0"_qs);
  EXPECT_EQ(grid().sheet().StyleAt(kItemNameCol, 0).textColour, 65280U);
  walk({{u"CmdSX"_qs, u"添删 0/1 002 英语"_qs}, {u"txtHDMC=A"_qs, u"确取 0/1 002 A"_qs}});
  schedule_.sql(u"ALTER TABLE HD RENAME TO away"_qs);
  walk({{u"CmdSX"_qs, u"确取 0/1 002 A"_qs}});
  EXPECT_EQ(prompts_.warnings.size(), 1);
  schedule_.sql(u"ALTER TABLE away RENAME TO HD"_qs);
  walk({{u"cmdCancel"_qs, u"添删 0/1 002 英语"_qs},
        {u"CmdNEW"_qs, u"确取 1/2 003 "_qs},
        {u"CmdSX"_qs, u"添删 0/1 002 英语"_qs}});
}

TEST_F(ActivityItemEditorTest, ChangesAnItemWithTextsLongerThanTheFieldsTakeWithoutCuttingThem) {
  const QString longName = QString(255, u'读');
  schedule_.item(u"A'#12345678"_qs, longName, u"其他"_qs);
  open(editor_);
  for (const auto& step : {u"Check1= "_qs, u"Combo1=6"_qs, u"cmdOK"_qs}) act(step);
  EXPECT_EQ(dumpOf(store_), QStringList{u"HD|A'#12345678|"_qs + longName + u"|6-休息|1|0"_qs});
}

}  // namespace vellora
