#include "shell/box_prompts.h"

#include "support/text_output.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <functional>
#include <gtest/gtest.h>

namespace vellora {
namespace {

// Runs `act` on the box that the next prompt opens.
void onNextBox(const std::function<void(QMessageBox&)>& act) {
  QTimer::singleShot(0, qApp, [act] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    act(*box);
  });
}

void press(QMessageBox& box, const QString& caption) {
  for (auto* button : box.buttons()) {
    if (button->text() == caption) return button->click();
  }
  ADD_FAILURE() << "no button " << caption.toStdString();
}

}  // namespace

TEST(BoxPrompts, WarnsWithItsTitleIconAndPlainText) {
  onNextBox([](QMessageBox& box) {
    EXPECT_EQ(box.windowTitle(), u"Vellora日程表"_qs);
    EXPECT_EQ(box.icon(), QMessageBox::Warning);
    EXPECT_EQ(box.text(), u"<b>保存完毕!</b>"_qs);
    EXPECT_EQ(box.textFormat(), Qt::PlainText);
    press(box, u"确定"_qs);
  });
  BoxPrompts().warn(nullptr, u"<b>保存完毕!</b>"_qs);
}

TEST(BoxPrompts, InformsWithoutAnIcon) {
  onNextBox([](QMessageBox& box) {
    EXPECT_EQ(box.icon(), QMessageBox::NoIcon);
    press(box, u"确定"_qs);
  });
  BoxPrompts().inform(nullptr, u"已保存！"_qs);
}

TEST(BoxPrompts, GivesTheChosenAnswerAndTheLastWhenClosed) {
  const auto chosen = [] {
    return BoxPrompts().choose(nullptr, u"保存吗?"_qs, {u"保存"_qs, u"不保存"_qs, u"取消"_qs}, 0);
  };
  onNextBox([](QMessageBox& box) { press(box, u"不保存"_qs); });
  EXPECT_EQ(chosen(), 1);
  onNextBox([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); });
  EXPECT_EQ(chosen(), 0);
  onNextBox([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
  EXPECT_EQ(chosen(), 2);
}

TEST(BoxPrompts, TakesOnlyYesForYes) {
  onNextBox([](QMessageBox& box) { press(box, u"是"_qs); });
  EXPECT_TRUE(BoxPrompts().ask(nullptr, u"真的?"_qs));
  onNextBox([](QMessageBox& box) { press(box, u"否"_qs); });
  EXPECT_FALSE(BoxPrompts().ask(nullptr, u"真的?"_qs));
  onNextBox([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
  EXPECT_FALSE(BoxPrompts().ask(nullptr, u"真的?"_qs));
  onNextBox([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); });
  EXPECT_FALSE(BoxPrompts().ask(nullptr, u"真的?"_qs));
}

}  // namespace vellora
