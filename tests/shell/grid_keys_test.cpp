#include "shell/grid_keys.h"

#include "grid/surface/grid_surface.h"
#include "shell/status_line.h"
#include "shell/work_dialog.h"
#include "support/file_size_limit.h"
#include "support/home_folder.h"
#include "support/planner_test.h"

#include <QApplication>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace vellora {
namespace {

class GridKeysTest : public test::PlannerTest {
 protected:
  GridKeysTest() {
    grid_.SetCols(1);
    grid_.SetRows(1);
    grid_.SetCellText(0, 0, u"读书"_qs);
  }
  // Presses the key on a list so long that the work shows how far it is, and cancels it there.
  void pressAndCancel(Qt::Key key) {
    grid_.SetCols(50);
    grid_.SetRows(300'000);
    for (int col = 0; col < grid_.Cols(); ++col) grid_.SetCellColors(col, kEveryRow, kRed, kWhite);
    for (int row = 0; row < grid_.Rows(); ++row) {
      grid_.SetCellText(0, row, QString::number(row) + u'x');
    }
    bool isShown = false;
    QTimer user;
    QObject::connect(&user, &QTimer::timeout, [&] {
      auto* dialog = qobject_cast<WorkDialog*>(QApplication::activeModalWidget());
      if (!dialog) return;
      isShown = true;
      dialog->cancel();
    });
    user.start(1);
    QTest::keyClick(&grid_, key);
    EXPECT_TRUE(isShown);
  }

  test::HomeFolder home_;
  GridSurface grid_;
  QString name_ = u"活动项目"_qs;
  StatusLine status_{nullptr};
  GridKeys keys_{grid_, state_, status_, [this] { return name_; }};
};

}  // namespace

TEST_F(GridKeysTest, F7WritesAnHtmlFileAndF8AnExcelFileAndTellTheirPaths) {
  QTest::keyClick(&grid_, Qt::Key_F7);
  QTest::keyClick(&grid_, Qt::Key_F8);
  EXPECT_EQ(prompts_.informed,
            (QStringList{u"\\活动项目.HTM已保存！"_qs, u"\\活动项目.xls已保存！"_qs}));
  EXPECT_EQ(home_.names(), (QStringList{u"活动项目.HTM"_qs, u"活动项目.xls"_qs}));
  EXPECT_TRUE(test::bytesOf(home_.path(u"活动项目.HTM"_qs)).contains("读书"));
  EXPECT_TRUE(test::bytesOf(home_.path(u"活动项目.xls"_qs)).startsWith("\xD0\xCF\x11\xE0"));
}

TEST_F(GridKeysTest, TheMessageShowsTheNameAsItIsAndTheFilesNameHoldsWhatItCan) {
  name_ = u"读/写 活动计划"_qs;
  QTest::keyClick(&grid_, Qt::Key_F7);
  EXPECT_EQ(prompts_.informed, QStringList{u"\\读/写 活动计划.HTM已保存！"_qs});
  EXPECT_EQ(home_.names(), QStringList{u"读_写 活动计划.HTM"_qs});
}

TEST_F(GridKeysTest, AFailedExportShowsNoBoxButTellsWhyUntilTheNextOne) {
  grid_.SetCols(257);
  QTest::keyClick(&grid_, Qt::Key_F8);
  EXPECT_EQ(status_.text(), u"没有导出：表格有 257 列，Excel 文件最多能放 256 列。"_qs);
  EXPECT_TRUE(status_.isVisible());
  EXPECT_TRUE(prompts_.informed.isEmpty() && prompts_.warnings.isEmpty());
  EXPECT_TRUE(home_.names().isEmpty());
  QTest::keyClick(&grid_, Qt::Key_F7);
  EXPECT_EQ(status_.text(), QString());
  EXPECT_FALSE(status_.isVisible());
}

TEST_F(GridKeysTest, TellsWhatTheSystemRefusesAndKeepsTheOldFile) {
  const auto reasonNow = [this] {
    QTest::keyClick(&grid_, Qt::Key_F7);
    return status_.text().section(u'：', -1);
  };
  const QString path = home_.path(u"活动项目.HTM"_qs);
  test::writeBytes(path, "old");
  {
    const test::FileSizeLimit full(100);
    EXPECT_EQ(reasonNow(), u"文件超过了系统允许的大小。"_qs);
  }
  EXPECT_EQ(test::bytesOf(path), "old");
  name_ = QString(300, u'长');
  EXPECT_EQ(reasonNow(), u"文件名太长。"_qs);
  state_.ExportDir = u"\\没有"_qs;
  EXPECT_EQ(reasonNow(), u"文件或文件夹不存在。"_qs);
  state_.ExportDir = u"D:"_qs;
  EXPECT_EQ(reasonNow(), u"这台电脑没有盘符“D:”；以“\\”开头的路径在主文件夹里。"_qs);
  EXPECT_EQ(home_.names(), QStringList{u"活动项目.HTM"_qs});
}

TEST_F(GridKeysTest, ACancelledExportLeavesTheOldFile) {
  const QString path = home_.path(u"活动项目.xls"_qs);
  test::writeBytes(path, "old");
  pressAndCancel(Qt::Key_F8);
  EXPECT_EQ(status_.text(), u"没有导出：已取消，原来的文件没有改动。"_qs);
  EXPECT_EQ(test::bytesOf(path), "old");
  EXPECT_EQ(home_.names(), QStringList{u"活动项目.xls"_qs});
}

TEST_F(GridKeysTest, ACancelledPrintClosesItsPreview) {
  pressAndCancel(Qt::Key_F3);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  EXPECT_TRUE(prompts_.informed.isEmpty() && prompts_.warnings.isEmpty());
}

TEST_F(GridKeysTest, OtherKeysWriteNothing) {
  for (const auto key : {Qt::Key_F6, Qt::Key_F9, Qt::Key_Return}) QTest::keyClick(&grid_, key);
  EXPECT_TRUE(home_.names().isEmpty());
  EXPECT_TRUE(prompts_.informed.isEmpty());
}

}  // namespace vellora
