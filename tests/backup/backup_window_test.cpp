#include "backup/backup_window.h"

#include "backup/backup_path.h"
#include "grid/files/file_error.h"
#include "grid/surface/grid_surface.h"
#include "support/planner_test.h"
#include "support/schedule_dump.h"
#include "support/temporary_folder.h"

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

namespace vellora {
namespace {

class BackupWindowTest : public test::PlannerTest {
 protected:
  BackupWindowTest() {
    schedule_.fullDay(3).items(2).plan(test::kMonday, u"001"_qs, u"活动001"_qs);
    window_.Load();
    window_.Show();
  }
  void press(const QString& button) { window_.findChild<QPushButton*>(button)->click(); }
  QLineEdit& field(const QString& name) { return *window_.findChild<QLineEdit*>(name); }
  QString path() { return field(u"Txt3"_qs).text(); }
  void goTo(const QString& entry) {
    auto& folders = *window_.findChild<QListWidget*>(u"Dir1"_qs);
    folders.setCurrentItem(folders.findItems(entry, Qt::MatchExactly).value(0));
    QTest::keyClick(&folders, Qt::Key_Return);
  }

  BackupWindow window_{state_};
};

}  // namespace

TEST(BackupPath, UnderstandsBothSeparatorsAndRefusesWhatIsNoPlace) {
  EXPECT_EQ(joinedPath(u"C:\\"_qs, u"a.KTZ"_qs), u"C:\\a.KTZ"_qs);
  const std::pair<QString, QString> kPaths[]{{u" \\备份\\a.KTZ"_qs, u"/home/x/备份/a.KTZ"_qs},
                                             {u"/tmp/a\\b.KTZ"_qs, u"/tmp/a\\b.KTZ"_qs},
                                             {u"\\C:"_qs, u"/home/x/C:"_qs}};
  for (const auto& [text, path] : kPaths) EXPECT_EQ(systemPath(text, u"/home/x"_qs), path);
  for (const auto& text : {u""_qs, u"a.KTZ"_qs, u"/tmp/"_qs, u"\\备份\\"_qs}) {
    EXPECT_THROW(systemPath(text, u"/home/x"_qs), FileError) << text.toStdString();
  }
  for (const auto& text : {u"D:\\a.KTZ"_qs, u"d:/a.KTZ"_qs, u"E:"_qs}) {
    EXPECT_THROW(systemPath(text, u"/home/x"_qs), FileError) << text.toStdString();
  }
}

TEST_F(BackupWindowTest, NamesTheFileInTheProgramsFolderAndFollowsTheLists) {
  EXPECT_EQ(path(), schedule_.folder() + u"/日程表备份2007-03-05.KTZ"_qs);
  QDir(schedule_.folder()).mkdir(u"备份"_qs);
  for (const auto& entry : {u".."_qs, QDir(schedule_.folder()).dirName(), u"备份"_qs}) goTo(entry);
  field(u"Txt5"_qs).setText(u"甲.KTZ"_qs);
  EXPECT_EQ(path(), schedule_.folder() + u"/备份/甲.KTZ"_qs);
  auto* drives = window_.findChild<QComboBox*>(u"Drive1"_qs);
  drives->setCurrentText(u"/"_qs);
  emit drives->activated(drives->currentIndex());
  EXPECT_EQ(path(), u"/甲.KTZ"_qs);
}

TEST_F(BackupWindowTest, TellsHowManyRecordsWentOutAndCameBackOrWhyNot) {
  const QStringList before = test::dumpOf(store_);
  const QString file = path();
  press(u"cmdO"_qs);
  press(u"cmdO"_qs);
  store_.execute(u"DELETE * FROM JH"_qs);
  field(u"Txt3"_qs).setText(u"/nowhere/a.KTZ"_qs);
  press(u"cmdO"_qs);
  press(u"CmdI"_qs);
  EXPECT_EQ(path(), u"/nowhere/a.KTZ"_qs);
  prompts_.files << file;
  press(u"cmdOPEN"_qs);
  press(u"CmdI"_qs);
  EXPECT_EQ(prompts_.warnings,
            QStringList({u"备份已正确完成, 共 6 条记录 ！"_qs, u"备份已正确完成, 共 6 条记录 ！"_qs,
                         u"错误：101 无法写入文件“/nowhere/a.KTZ”：文件或文件夹不存在。\n\n"
                         u"数据未能正确备份！"_qs,
                         u"错误：101 无法读取文件“/nowhere/a.KTZ”：文件或文件夹不存在。\n\n"
                         u"数据未能正确恢复！"_qs,
                         u"恢复已正确完成, 共 6 条记录！"_qs}));
  EXPECT_EQ(test::dumpOf(store_), before);
  EXPECT_EQ(window_.findChild<GridSurface*>(u"Cell1"_qs)->workbook().SheetCount(), 6);
}

}  // namespace vellora
