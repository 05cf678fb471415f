#include "shell/grid_keys.h"

#include "grid/surface/grid_surface.h"
#include "support/home_folder.h"
#include "support/planner_test.h"

#include <QTest>

#include <gtest/gtest.h>

namespace vellora {
namespace {

class GridKeysTest : public test::PlannerTest {
 protected:
  GridKeysTest() {
    grid_.SetCols(1);
    grid_.SetRows(1);
    grid_.SetCellText(0, 0, u"读书"_qs);
    QObject::connect(&keys_, &GridKeys::ExportFailed,
                     [this](const QString& reason) { reasons_ << reason; });
  }
  test::HomeFolder home_;
  GridSurface grid_;
  QString name_ = u"活动项目"_qs;
  GridKeys keys_{grid_, state_, [this] { return name_; }};
  QStringList reasons_;
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

TEST_F(GridKeysTest, AFailedExportShowsNoBoxButSaysWhyAndTheNextGoodOneClearsIt) {
  name_ = QString(300, u'长');
  QTest::keyClick(&grid_, Qt::Key_F7);
  grid_.SetCols(257);
  name_ = u"宽"_qs;
  QTest::keyClick(&grid_, Qt::Key_F8);
  ASSERT_EQ(reasons_.size(), 2);
  EXPECT_TRUE(reasons_[0].endsWith(u"文件名太长。"_qs)) << reasons_[0].toStdString();
  EXPECT_EQ(reasons_[1], u"表格有 257 列，Excel 文件最多能放 256 列。"_qs);
  EXPECT_EQ(grid_.accessibleDescription(), reasons_[1]);
  EXPECT_TRUE(prompts_.informed.isEmpty() && prompts_.warnings.isEmpty());
  EXPECT_TRUE(home_.names().isEmpty());
  QTest::keyClick(&grid_, Qt::Key_F7);
  EXPECT_EQ(grid_.accessibleDescription(), QString());
}

TEST_F(GridKeysTest, OtherKeysWriteNothing) {
  for (const auto key : {Qt::Key_F6, Qt::Key_F9, Qt::Key_Return}) QTest::keyClick(&grid_, key);
  EXPECT_TRUE(home_.names().isEmpty());
  EXPECT_TRUE(prompts_.informed.isEmpty());
}

}  // namespace vellora
