#include "shell/box_prompts.h"

#include "support/text_output.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace vellora {
namespace {

// Presses Enter, Escape or the button of that caption in the box.
template <typename Prompt>
auto answered(const QString& hand, Prompt prompt) {
  QTimer::singleShot(0, qApp, [=] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->textFormat(), Qt::PlainText);
    for (auto* button : box->buttons()) {
      if (button->text() == hand) return button->click();
    }
    QTest::keyClick(box, hand == u"Enter" ? Qt::Key_Return : Qt::Key_Escape);
  });
  return prompt();
}

}  // namespace

TEST(BoxPrompts, GivesTheAnswerThatIsPressedAndTheHarmlessOneOtherwise) {
  const auto yes = [] { return BoxPrompts().ask(nullptr, u"真的?"_qs); };
  const auto choice = [] {
    return BoxPrompts().choose(nullptr, u"保存吗?"_qs, {u"保存"_qs, u"不保存"_qs, u"取消"_qs}, 0);
  };
  EXPECT_TRUE(answered(u"是"_qs, yes));
  for (const auto& no : {u"否"_qs, u"Enter"_qs, u"Escape"_qs}) EXPECT_FALSE(answered(no, yes));
  const std::pair<QString, int> kChoices[]{
      {u"保存"_qs, 0}, {u"不保存"_qs, 1}, {u"取消"_qs, 2}, {u"Enter"_qs, 0}, {u"Escape"_qs, 2}};
  for (const auto& [hand, position] : kChoices) EXPECT_EQ(answered(hand, choice), position);
}

}  // namespace vellora
