#include "app/about_window.h"

#include "support/failing_disk.h"
#include "support/fixed_clock.h"
#include "support/schedule_builder.h"
#include "support/scripted_prompts.h"
#include "support/text_output.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace vellora {
namespace {

const QString kDarkSkin = QStringLiteral(SKIN_DIR "/KTZ1.SKN");
const QString kOldSkin = u"/nowhere/old.skn"_qs;

class AboutWindowTest : public testing::Test {
 protected:
  // Presses 界面 and answers the dialog with a path; an empty one cancels it.
  void choose(const QString& path) {
    prompts_.files << path;
    auto* button = window_.findChild<QPushButton*>(u"Command1"_qs);
    QTest::mouseClick(button, Qt::LeftButton);
  }
  QStringList stored() {
    QStringList paths;
    Recordset setting = store_.open(u"JM"_qs);
    for (; !setting.atEnd(); setting.moveNext()) paths << setting.text(u"jm");
    return paths;
  }
  QColor windowColour() const { return window_.palette().color(QPalette::Window); }

  test::FailingDisk disk_;
  test::ScheduleBuilder schedule_;
  ScheduleStore store_{schedule_.path()};
  test::ScriptedPrompts prompts_;
  test::FixedClock clock_{QDate(2007, 3, 5)};
  ApplicationState state_{store_, prompts_, clock_, schedule_.folder(), kOldSkin, QString()};
  AboutWindow window_{state_};
};

}  // namespace

TEST_F(AboutWindowTest, StoresAChosenSkinOnceAndPutsItOnAtOnce) {
  QApplication::setPalette(Qt::green);
  window_.Load();
  const QColor before = windowColour();
  choose(kDarkSkin);
  EXPECT_NE(windowColour(), before);
  EXPECT_EQ(state_.SkinPath, kDarkSkin);
  EXPECT_EQ(stored(), QStringList{kDarkSkin});
  EXPECT_TRUE(prompts_.warnings.isEmpty());
}

TEST_F(AboutWindowTest, SaysThatAChosenSkinCannotBeUsedAndKeepsTheLook) {
  window_.Load();
  choose(kDarkSkin);
  const QColor before = windowColour();
  choose(kOldSkin);
  EXPECT_EQ(windowColour(), before);
  EXPECT_EQ(prompts_.warnings.size(), 1);
  EXPECT_EQ(stored(), QStringList{kOldSkin});
}

TEST_F(AboutWindowTest, ChangesNothingWhenTheDialogIsCancelled) {
  window_.Load();
  const QColor before = windowColour();
  choose(QString());
  EXPECT_EQ(windowColour(), before);
  EXPECT_EQ(state_.SkinPath, kOldSkin);
  EXPECT_TRUE(stored().isEmpty());
}

TEST_F(AboutWindowTest, SaysThatASkinCannotBeStoredAndKeepsTheOldOne) {
  window_.Load();
  disk_.closeFolder();
  choose(kDarkSkin);
  EXPECT_EQ(prompts_.warnings.size(), 1);
  EXPECT_EQ(state_.SkinPath, kOldSkin);
  disk_.repair();
  EXPECT_TRUE(stored().isEmpty());
}

TEST_F(AboutWindowTest, ClosesByItsButtonAndByEscape) {
  window_.Load();
  window_.Show();
  QTest::mouseClick(window_.findChild<QPushButton*>(u"Command2"_qs), Qt::LeftButton);
  EXPECT_FALSE(window_.isVisible());
  window_.Show();
  QTest::keyClick(&window_, Qt::Key_Escape);
  EXPECT_FALSE(window_.isVisible());
}

}  // namespace vellora
