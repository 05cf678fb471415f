#include "app/start_up.h"

#include "grid/surface/grid_surface.h"
#include "support/failing_disk.h"
#include "support/fixed_clock.h"
#include "support/schedule_builder.h"
#include "support/scripted_prompts.h"
#include "support/text_output.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace vellora {
namespace {

const QDate kToday(2007, 3, 5);

class StartUpTest : public testing::Test {
 protected:
  QString skinPathAtStart() {
    const StartUp startUp(schedule_.folder(), prompts_, clock_);
    return startUp.state().SkinPath;
  }

  test::ScheduleBuilder schedule_;
  test::ScriptedPrompts prompts_;
  test::FixedClock clock_{kToday};
};

QByteArray contentOf(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void write(const QString& path, const QByteArray& content) {
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(content);
}

}  // namespace

TEST_F(StartUpTest, PutsOnTheDefaultSkinWhenNoneIsStored) {
  EXPECT_EQ(skinPathAtStart(), schedule_.folder() + u"/KTZ0.SKN"_qs);
}

TEST_F(StartUpTest, PutsOnTheFirstStoredSkinAsItsPathStands) {
  schedule_.skin(u"/皮肤/夜.skn"_qs).skin(u"/皮肤/日.skn"_qs);
  EXPECT_EQ(skinPathAtStart(), u"/皮肤/夜.skn"_qs);
}

TEST_F(StartUpTest, ShowsTheBoardWithoutAWordWhenTheSkinIsMissing) {
  schedule_.skin(u"/nowhere/missing.skn"_qs).fullDay(3);
  StartUp startUp(schedule_.folder(), prompts_, clock_);
  startUp.showBoard();
  EXPECT_TRUE(startUp.board().isVisible());
  EXPECT_EQ(startUp.board().findChild<GridSurface*>()->Rows(), 4);
  EXPECT_TRUE(prompts_.warnings.isEmpty());
}

TEST_F(StartUpTest, SaysAtOnceThatNothingCanBeSaved) {
  schedule_.fullDay(2);
  test::FailingDisk disk;
  disk.makeReadOnly();
  StartUp startUp(schedule_.folder(), prompts_, clock_);
  startUp.showBoard();
  EXPECT_EQ(startUp.board().findChild<GridSurface*>()->Rows(), 3);
  ASSERT_EQ(prompts_.warnings.size(), 1);
  EXPECT_TRUE(prompts_.warnings[0].contains(u"无法保存"_qs));
}

TEST_F(StartUpTest, SaysThatTheScheduleIsDamagedWhereNobodyLooksYet) {
  schedule_.fullDay(20).fullPlan(kToday.addDays(400), 300, 20, 5);
  QByteArray damaged = contentOf(schedule_.path());
  damaged.replace(damaged.size() / 3, 4'096, QByteArray(4'096, '\0'));
  const QTemporaryDir folder;
  write(folder.filePath(u"SY.mdb"_qs), damaged);
  StartUp startUp(folder.path(), prompts_, clock_);
  startUp.showBoard();
  EXPECT_EQ(startUp.board().findChild<GridSurface*>()->Rows(), 21) << "what can be read is shown";
  startUp.finishLook();
  QCoreApplication::processEvents();
  ASSERT_EQ(prompts_.warnings.size(), 1);
  EXPECT_TRUE(prompts_.warnings[0].contains(u"已损坏"_qs));
  EXPECT_EQ(contentOf(folder.filePath(u"SY.mdb"_qs)), damaged);
}

}  // namespace vellora
