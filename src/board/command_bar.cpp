#include "board/command_bar.h"

#include "grid/print/drawn_style.h"
#include "shell/controls.h"

#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>

namespace vellora {
namespace {

struct CommandText {
  BoardCommand command;
  const char16_t* objectName;
  const char16_t* caption;
  bool opensGroup;
};

// In reading order; a group is set apart by a gap above it.
constexpr CommandText kCommands[]{
    {BoardCommand::DailyPlan, u"Command1", u"每日计划", false},
    {BoardCommand::ActivityPlan, u"Command2", u"项目计划", false},
    {BoardCommand::Statistics, u"Command3", u"统计分析", false},
    {BoardCommand::ActivityItems, u"Command4", u"活动项目", true},
    {BoardCommand::TimeBlocks, u"Command5", u"时 间 表", false},
    {BoardCommand::Memo, u"Command6", u"每日备忘", false},
    {BoardCommand::WeekNames, u"Command7", u"每周命名", false},
    {BoardCommand::Backup, u"CmdA0", u"备 份", true},
    {BoardCommand::Print, u"CmdA1", u"打 印", false},
    {BoardCommand::ClearSchedule, u"Command9", u"清空计划", false},
    {BoardCommand::UsageNotes, u"Command8", u"使用说明", true},
    {BoardCommand::About, u"Command98", u"关于Vellora", false},
    {BoardCommand::Exit, u"Command99", u"退出系统", false},
};

}  // namespace

CommandBar::CommandBar(QWidget* parent) : QScrollArea(parent) {
  setFont(plainFont(font()));
  setFrameShape(QFrame::NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setWidgetResizable(true);
  setFocusPolicy(Qt::NoFocus);
  auto* panel = new QWidget(this);
  auto* column = new QVBoxLayout(panel);
  column->setContentsMargins({});
  for (const auto& [command, name, caption, opensGroup] : kCommands) {
    auto* button = makeButton(QString::fromUtf16(name), QString::fromUtf16(caption), panel,
                              [this, which = command] { emit triggered(which); });
    if (opensGroup) column->addSpacing(12);
    column->addWidget(button);
    buttons_[static_cast<std::size_t>(command)] = button;
  }
  column->addStretch();
  setWidget(panel);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
}

QPushButton& CommandBar::button(BoardCommand command) const {
  return *buttons_[static_cast<std::size_t>(command)];
}

// The scroll bar's room is always kept, so that the board does not jump when it comes and goes.
QSize CommandBar::sizeHint() const {
  const QSize panel = widget()->sizeHint();
  return {panel.width() + verticalScrollBar()->sizeHint().width(), panel.height()};
}

}  // namespace vellora
