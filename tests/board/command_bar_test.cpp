#include "board/command_bar.h"

#include "support/text_output.h"

#include <QPushButton>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace vellora {

TEST(CommandBar, NamesEveryCommandAndTellsWhichWasPressed) {
  const struct {
    BoardCommand command;
    QString objectName;
    QString caption;
  } cases[]{{BoardCommand::DailyPlan, u"Command1"_qs, u"每日计划"_qs},
            {BoardCommand::ActivityPlan, u"Command2"_qs, u"项目计划"_qs},
            {BoardCommand::Statistics, u"Command3"_qs, u"统计分析"_qs},
            {BoardCommand::ActivityItems, u"Command4"_qs, u"活动项目"_qs},
            {BoardCommand::TimeBlocks, u"Command5"_qs, u"时 间 表"_qs},
            {BoardCommand::Memo, u"Command6"_qs, u"每日备忘"_qs},
            {BoardCommand::WeekNames, u"Command7"_qs, u"每周命名"_qs},
            {BoardCommand::UsageNotes, u"Command8"_qs, u"使用说明"_qs},
            {BoardCommand::About, u"Command98"_qs, u"关于Vellora"_qs},
            {BoardCommand::Backup, u"CmdA0"_qs, u"备 份"_qs},
            {BoardCommand::Print, u"CmdA1"_qs, u"打 印"_qs},
            {BoardCommand::ClearSchedule, u"Command9"_qs, u"清空计划"_qs},
            {BoardCommand::Exit, u"Command99"_qs, u"退出系统"_qs}};
  CommandBar bar;
  ASSERT_EQ(std::size(cases), kBoardCommandCount);
  for (const auto& [command, objectName, caption] : cases) {
    QSignalSpy triggered(&bar, &CommandBar::triggered);
    auto* button = bar.findChild<QPushButton*>(objectName);
    ASSERT_NE(button, nullptr) << objectName.toStdString();
    EXPECT_EQ(button->text(), caption);
    button->click();
    ASSERT_EQ(triggered.count(), 1);
    EXPECT_EQ(triggered.at(0).at(0).value<BoardCommand>(), command);
  }
}

}  // namespace vellora
