#include "app/splash_window.h"

#include "support/text_output.h"

#include <QLabel>
#include <QPushButton>

#include <gtest/gtest.h>

namespace vellora {

TEST(SplashWindow, NamesProgramAndVersionAndHasNoButtons) {
  const SplashWindow splash(u"/nowhere/missing.skn"_qs);
  QStringList texts;
  for (const auto* label : splash.findChildren<QLabel*>()) texts << label->text();
  EXPECT_EQ(splash.windowTitle(), u"Vellora日程表2.8版"_qs);
  EXPECT_TRUE(texts.contains(u"Vellora日程表"_qs));
  EXPECT_TRUE(texts.contains(u"版本 2.8 FOR WINDOWS"_qs));
  EXPECT_TRUE(splash.findChildren<QPushButton*>().isEmpty());
}

}  // namespace vellora
