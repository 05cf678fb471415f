#include "backup/backup_window.h"

#include "grid/surface/grid_surface.h"
#include "support/planner_test.h"
#include "support/schedule_dump.h"
#include "support/temporary_folder.h"

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressDialog>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace vellora {
namespace {

class BackupWindowTest : public test::PlannerTest {
 protected:
  BackupWindowTest() {
    schedule_.fullDay(3).items(2).plan(QDate(2007, 3, 5), u"001"_qs, u"活动001"_qs);
    window_.Load();
    window_.Show();
  }

  void press(const QString& button) {
    QTest::mouseClick(window_.findChild<QPushButton*>(button), Qt::LeftButton);
  }
  QLineEdit& field(const QString& name) { return *window_.findChild<QLineEdit*>(name); }
  QListWidget& folders() { return *window_.findChild<QListWidget*>(u"Dir1"_qs); }
  void goTo(const QString& entry) {
    folders().setCurrentItem(folders().findItems(entry, Qt::MatchExactly).value(0));
    QTest::keyClick(&folders(), Qt::Key_Return);
  }

  BackupWindow window_{state_};
  const QString name_ = u"日程表备份2007-03-05.KTZ"_qs;
};

}  // namespace

TEST_F(BackupWindowTest, NamesTheFileInTheProgramsFolderAndFollowsTheLists) {
  EXPECT_EQ(field(u"Txt3"_qs).text(), schedule_.folder() + u'/' + name_);
  QDir(schedule_.folder()).mkdir(u"备份"_qs);
  goTo(u".."_qs);
  goTo(QDir(schedule_.folder()).dirName());
  goTo(u"备份"_qs);
  field(u"Txt5"_qs).setText(u"甲.KTZ"_qs);
  EXPECT_EQ(field(u"Txt3"_qs).text(), schedule_.folder() + u"/备份/甲.KTZ"_qs);

  auto* drives = window_.findChild<QComboBox*>(u"Drive1"_qs);
  drives->setCurrentText(u"/"_qs);
  emit drives->activated(drives->currentIndex());
  EXPECT_EQ(field(u"Txt3"_qs).text(), u"/甲.KTZ"_qs);
}

TEST_F(BackupWindowTest, TellsHowManyRecordsWentOutAndCameBack) {
  const QStringList before = test::dumpOf(store_);
  press(u"cmdO"_qs);
  press(u"cmdO"_qs);
  store_.execute(u"DELETE * FROM JH"_qs);
  prompts_.files << field(u"Txt3"_qs).text();
  field(u"Txt3"_qs).clear();
  press(u"cmdOPEN"_qs);
  press(u"CmdI"_qs);
  EXPECT_EQ(prompts_.warnings,
            QStringList({u"备份已正确完成, 共 6 条记录 ！"_qs, u"备份已正确完成, 共 6 条记录 ！"_qs,
                         u"恢复已正确完成, 共 6 条记录！"_qs}));
  EXPECT_EQ(test::dumpOf(store_), before);
  EXPECT_EQ(window_.findChild<GridSurface*>(u"Cell1"_qs)->SheetCount(), 6);
}

TEST_F(BackupWindowTest, SaysWhyItFailedAndKeepsWhatWasTyped) {
  const QStringList before = test::dumpOf(store_);
  field(u"Txt3"_qs).setText(u"/nowhere/a.KTZ"_qs);
  press(u"cmdO"_qs);
  press(u"CmdI"_qs);
  field(u"Txt3"_qs).setText(u"a.KTZ"_qs);
  press(u"cmdO"_qs);
  ASSERT_EQ(prompts_.warnings.size(), 3);
  EXPECT_EQ(prompts_.warnings[0],
            u"错误：101 无法写入文件“/nowhere/a.KTZ”：文件或文件夹不存在。\n\n"
            u"数据未能正确备份！"_qs);
  EXPECT_EQ(prompts_.warnings[1],
            u"错误：101 无法读取文件“/nowhere/a.KTZ”：文件或文件夹不存在。\n\n"
            u"数据未能正确恢复！"_qs);
  EXPECT_TRUE(prompts_.warnings[2].contains(u"路径“a.KTZ”不完整"_qs));
  EXPECT_EQ(field(u"Txt3"_qs).text(), u"a.KTZ"_qs);
  EXPECT_EQ(test::dumpOf(store_), before);
  EXPECT_TRUE(window_.isEnabled());
}

TEST_F(BackupWindowTest, GivesALongBackupUpWithoutATrace) {
  schedule_.fullPlan(QDate(2008, 1, 1), 60'000, 3, 2);
  bool closedMeanwhile = false;
  QTimer hand;
  QObject::connect(&hand, &QTimer::timeout, &window_, [&] {
    auto* dialog = window_.findChild<QProgressDialog*>();
    if (dialog == nullptr || !dialog->isVisible()) return;
    closedMeanwhile = window_.close();
    QTest::mouseClick(dialog->findChild<QPushButton*>(), Qt::LeftButton);
  });
  hand.start(1);
  press(u"cmdO"_qs);
  EXPECT_FALSE(closedMeanwhile);
  EXPECT_TRUE(prompts_.warnings.isEmpty()) << prompts_.warnings.join(u' ').toStdString();
  EXPECT_EQ(QDir(schedule_.folder()).entryList({u"*KTZ*"_qs}, QDir::Files | QDir::Hidden),
            QStringList());
  EXPECT_TRUE(window_.isEnabled());
}

}  // namespace vellora
