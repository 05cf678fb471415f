#include "editors/activity_item_editor.h"

#include "grid/surface/grid_surface.h"
#include "store/statements.h"
#include "support/planner_test.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace vellora {
namespace {

// One step of the user and what the window shows after it: the buttons that can be pressed, the
// current row of all rows, the code and the name in the fields.
struct Step {
  std::function<void()> act;
  QString shown;
};

class ActivityItemEditorTest : public test::PlannerTest {
 protected:
  std::unique_ptr<ActivityItemEditor> editor_;

  void open() {
    editor_ = std::make_unique<ActivityItemEditor>(state_);
    editor_->Load();
    editor_->Show();
  }

  template <typename Widget>
  Widget& child(const char* name) const {
    return *editor_->findChild<Widget*>(QLatin1String(name));
  }
  GridSurface& grid() const { return child<GridSurface>("Cell1"); }
  QLineEdit& code() const { return child<QLineEdit>("TxtHDBH"); }
  QLineEdit& name() const { return child<QLineEdit>("txtHDMC"); }

  void press(const char* button) { QTest::mouseClick(&child<QPushButton>(button), Qt::LeftButton); }
  void type(QLineEdit& field, const QString& text) {
    field.selectAll();
    QTest::keyClicks(&field, text);
  }
  void enter(int row) { grid().SetCurrentCell(kItemNameCol, row); }
  void choose(const char* combo, const QString& entry) {
    auto& box = child<QComboBox>(combo);
    box.setCurrentText(entry);
    emit box.activated(box.currentIndex());
  }

  QString buttons() const {
    QString letters;
    for (const char* button : {"cmdOK", "cmdCancel", "CmdNEW", "CmdDEL"}) {
      const auto& caption = child<QPushButton>(button);
      if (caption.isEnabled()) letters += caption.text().at(0);
    }
    return letters;
  }
  QString shown() const {
    return u"%1 %2/%3 %4 %5"_qs.arg(buttons())
        .arg(grid().CurrentRow())
        .arg(grid().Rows())
        .arg(code().text(), name().text());
  }
  void walk(const std::vector<Step>& steps) {
    for (std::size_t i = 0; i < steps.size(); ++i) {
      steps[i].act();
      EXPECT_EQ(shown(), steps[i].shown) << "after step " << i + 1;
    }
  }

  QStringList storedItems() {
    QStringList items;
    for (auto rows = store_.open(statements::allItems()); !rows.atEnd(); rows.moveNext()) {
      items << rows.text(u"HDBH") + u' ' + rows.text(u"HDMC") + u' ' + rows.text(u"HDLB") + u' ' +
                   rows.text(u"SFWC");
    }
    return items;
  }
};

}  // namespace

TEST_F(ActivityItemEditorTest, FollowsTheUserThroughAddingChangingAndLeaving) {
  schedule_.item(u"001"_qs, u"晨读"_qs).item(u"HD099"_qs, u"跑步"_qs);
  open();
  EXPECT_EQ(shown(), u"添删 0/2 001 晨读"_qs);
  walk({
      {[&] { enter(1); }, u"添删 1/2 HD099 跑步"_qs},
      {[&] { press("CmdNEW"); }, u"确取 2/3 HD100 "_qs},
      {[&] { type(name(), u"A"_qs); }, u"确取 2/3 HD100 A"_qs},
      {[&] { enter(0); }, u"添删 0/2 001 晨读"_qs},
      {[&] { press("CmdNEW"); }, u"确取 1/3 002 "_qs},
      {[&] { press("cmdCancel"); }, u"添删 1/3  "_qs},
      {[&] { type(name(), u"B"_qs); }, u"确取 1/3  B"_qs},
      {[&] { press("cmdCancel"); }, u"添删 1/3  "_qs},
      {[&] { press("CmdNEW"); }, u"确取 1/3 002 "_qs},
      {[&] { enter(2); }, u"添删 1/2 HD099 跑步"_qs},
      {[&] { type(name(), u"C"_qs); }, u"确取 1/2 HD099 C"_qs},
      {[&] { press("cmdCancel"); }, u"添删 1/2 HD099 跑步"_qs},
      {[&] { QTest::keyClick(&child<QCheckBox>("Check1"), Qt::Key_Space); },
       u"确取 1/2 HD099 跑步"_qs},
      {[&] { press("cmdOK"); }, u"添删 1/2 HD099 跑步"_qs},
  });
  EXPECT_EQ(grid().GetCellText(kItemStateCol, 1), u"1"_qs);
  EXPECT_EQ(storedItems(), (QStringList{u"001 晨读 1-工作 0"_qs, u"HD099 跑步 1-工作 1"_qs}));
  EXPECT_EQ(prompts_.warnings, QStringList());
}

TEST_F(ActivityItemEditorTest, DeletesTheMiddleTheLastTheFirstAndTheOnlyItem) {
  schedule_.items(4);
  open();
  walk({
      {[&] { enter(1); }, u"添删 1/4 002 活动002"_qs},
      {[&] { press("CmdDEL"); }, u"添删 1/3 003 活动003"_qs},
      {[&] { enter(2); }, u"添删 2/3 004 活动004"_qs},
      {[&] { press("CmdDEL"); }, u"添删 1/2 003 活动003"_qs},
      {[&] { enter(0); }, u"添删 0/2 001 活动001"_qs},
      {[&] { press("CmdDEL"); }, u"添删 0/1 003 活动003"_qs},
      {[&] { press("CmdDEL"); }, u"添 -1/0 003 活动003"_qs},
      {[&] { type(name(), u"A"_qs); }, u"添 -1/0 003 A"_qs},
      {[&] { press("CmdNEW"); }, u"确取 0/1 003 A"_qs},
  });
  EXPECT_EQ(storedItems(), QStringList());
}

TEST_F(ActivityItemEditorTest, TakesTheFirstItemOfAnEmptyCatalogueOnlyWithACategory) {
  open();
  EXPECT_EQ(shown(), u"添 -1/0  "_qs);
  walk({
      {[&] { type(code(), u"1"_qs); }, u"添 -1/0 1 "_qs},
      {[&] { press("CmdNEW"); }, u"确取 0/1 1 "_qs},
      {[&] { press("cmdCancel"); }, u"添 0/1  "_qs},
      {[&] { press("CmdNEW"); }, u"确取 0/1  "_qs},
      {[&] { press("cmdOK"); }, u"确取 0/1  "_qs},
      {[&] { type(code(), u"007"_qs); }, u"确取 0/1 007 "_qs},
      {[&] { type(name(), u"walk"_qs); }, u"确取 0/1 007 walk"_qs},
  });
  EXPECT_TRUE(prompts_.warnings.isEmpty());
  press("cmdOK");
  EXPECT_EQ(prompts_.warnings.size(), 1);
  EXPECT_EQ(storedItems(), QStringList());
  choose("Combo1", u"3-运动"_qs);
  press("cmdOK");
  EXPECT_EQ(shown(), u"添删 0/1 007 walk"_qs);
  EXPECT_EQ(storedItems(), QStringList{u"007 walk 3-运动 0"_qs});
  press("CmdNEW");
  EXPECT_EQ(shown(), u"确取 1/2 008 "_qs);
}

TEST_F(ActivityItemEditorTest, RefusesTakenAndUnknownCodes) {
  schedule_.items(2);
  open();
  press("CmdNEW");
  type(name(), u"A"_qs);
  type(code(), u"001"_qs);
  press("cmdOK");
  EXPECT_EQ(prompts_.warnings, QStringList{u"活动编号已经存在！"_qs});
  EXPECT_EQ(shown(), u"确取 1/3 001 A"_qs) << "what was typed stays";
  press("cmdCancel");
  enter(0);
  type(code(), u"9"_qs);
  press("cmdOK");
  EXPECT_EQ(prompts_.warnings.last(), u"活动编号没有找到！"_qs);
  EXPECT_EQ(shown(), u"添删 0/2 001 活动001"_qs);
  EXPECT_EQ(storedItems().size(), 2);
}

TEST_F(ActivityItemEditorTest, KeepsAStoredItemInViewUntilTheFilterRuns) {
  schedule_.item(u"001"_qs, u"晨读"_qs, u"2-学习"_qs).item(u"002"_qs, u"英语"_qs, u"2-学习"_qs);
  open();
  choose("Combo2", u"2-学习"_qs);
  choose("Combo1", u"3-运动"_qs);
  press("cmdOK");
  EXPECT_EQ(shown(), u"添删 0/2 001 晨读"_qs);
  EXPECT_EQ(grid().GetCellText(kItemCategoryCol, 0), u"3-运动"_qs);
  EXPECT_EQ(grid().sheet().StyleAt(kItemNameCol, 0).textColour, 65280U);
  press("CmdSX");
  EXPECT_EQ(shown(), u"添删 0/1 002 英语"_qs);
  press("CmdNEW");
  choose("Combo2", u"6-休息"_qs);
  EXPECT_EQ(buttons(), u"添"_qs) << "the unstored row went with the list";
  EXPECT_EQ(grid().Rows(), 0);
}

TEST_F(ActivityItemEditorTest, SaysWhyAFilterFailsAndKeepsTheList) {
  schedule_.items(2);
  open();
  schedule_.sql(u"ALTER TABLE HD RENAME TO HD0"_qs);
  press("CmdSX");
  EXPECT_EQ(prompts_.warnings.size(), 1);
  EXPECT_EQ(shown(), u"添删 0/2 001 活动001"_qs);
  type(name(), u"reading"_qs);
  press("CmdSX");
  EXPECT_EQ(shown(), u"确取 0/2 001 reading"_qs) << "what was typed goes on";
  schedule_.sql(u"ALTER TABLE HD0 RENAME TO HD"_qs);
  press("CmdSX");
  EXPECT_EQ(shown(), u"添删 0/2 001 活动001"_qs);
  press("CmdFetch");
  EXPECT_EQ(shown(), u"确取 0/2 001 reading"_qs) << "what the filter dropped";
}

TEST_F(ActivityItemEditorTest, TheLegendsColoursStayWithEverySkin) {
  const QPalette before = QApplication::palette();
  QPalette highContrast = before;
  highContrast.setColor(QPalette::HighlightedText, Qt::black);
  QApplication::setPalette(highContrast);
  open();
  EXPECT_EQ(child<QLabel>("LbTJ5").palette().color(QPalette::WindowText), QColor(Qt::white));
  QApplication::setPalette(before);
}

TEST_F(ActivityItemEditorTest, ChangesAnItemWithTextsLongerThanTheFieldsTakeWithoutCuttingThem) {
  const QString longName = QString(255, u'读');
  schedule_.item(u"A'#12345678"_qs, longName, u"其他"_qs);
  open();
  EXPECT_EQ(name().text(), longName);
  QTest::keyClick(&child<QCheckBox>("Check1"), Qt::Key_Space);
  choose("Combo1", u"6-休息"_qs);
  press("cmdOK");
  EXPECT_EQ(storedItems(), QStringList{u"A'#12345678 "_qs + longName + u" 6-休息 1"_qs});
}

}  // namespace vellora
