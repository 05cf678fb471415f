#include "app/about_window.h"

#include "support/planner_test.h"

#include <QApplication>
#include <QPushButton>

namespace vellora {

using AboutWindowTest = test::PlannerTest;

TEST_F(AboutWindowTest, KeepsAChosenSkinAndPutsItOnUnlessOneOfBothFails) {
  QApplication::setPalette(Qt::green);
  AboutWindow window(state_);
  window.Load();
  const QString dark = QStringLiteral(SKIN_DIR "/KTZ1.SKN");
  const QString missing = u"/nowhere/old.skn"_qs;
  const auto choose = [&](const QString& path) {  // an empty one cancels the dialog
    const QColor before = window.palette().color(QPalette::Window);
    prompts_.files << path;
    window.findChild<QPushButton*>(u"Command1"_qs)->click();
    return window.palette().color(QPalette::Window) != before;
  };
  const auto stored = [this] { return store_.open(u"JM"_qs).text(u"jm"); };
  EXPECT_FALSE(choose({}));
  EXPECT_TRUE(store_.open(u"JM"_qs).isEmpty());
  EXPECT_TRUE(choose(dark));
  EXPECT_EQ(stored(), dark);
  EXPECT_EQ(state_.SkinPath, dark);
  EXPECT_TRUE(prompts_.warnings.isEmpty());
  EXPECT_FALSE(choose(missing));
  EXPECT_EQ(prompts_.warnings.size(), 1);
  EXPECT_EQ(stored(), missing);
  EXPECT_EQ(store_.open(u"JM"_qs).count(), 1);
  schedule_.sql(u"DROP TABLE JM"_qs);
  EXPECT_FALSE(choose(QStringLiteral(SKIN_DIR "/KTZ0.SKN")));
  EXPECT_EQ(prompts_.warnings.size(), 2);
  EXPECT_EQ(state_.SkinPath, missing);
}

}  // namespace vellora
