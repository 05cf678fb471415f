#include "board/command_bar.h"

#include "grid/print/drawn_style.h"
#include "shell/line_icon.h"

#include <QPushButton>
#include <QScrollBar>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <QVBoxLayout>

namespace vellora {
namespace {

struct CommandText {
  BoardCommand command;
  const char16_t* objectName;
  const char16_t* caption;
  const char16_t* icon;
  const char16_t* toolTip;
  bool opensGroup;
};

// In reading order; a group is set apart by a gap above it.
constexpr CommandText kCommands[]{
    {BoardCommand::DailyPlan, u"Command1", u"每日计划", u"day", u"安排一天的每个时间块", false},
    {BoardCommand::ActivityPlan, u"Command2", u"项目计划", u"activity", u"把一项活动排到许多天",
     false},
    {BoardCommand::Statistics, u"Command3", u"统计分析", u"statistics", u"时间都用在了哪里", false},
    {BoardCommand::ActivityItems, u"Command4", u"活动项目", u"items", u"添加和修改活动项目", true},
    {BoardCommand::TimeBlocks, u"Command5", u"时 间 表", u"blocks", u"把一天分成时间块", false},
    {BoardCommand::Memo, u"Command6", u"每日备忘", u"memo", u"记下某一天的事", false},
    {BoardCommand::WeekNames, u"Command7", u"每周命名", u"weekname", u"给一段日期起名", false},
    {BoardCommand::Backup, u"CmdA0", u"备 份", u"backup", u"备份和恢复全部内容", true},
    {BoardCommand::Print, u"CmdA1", u"打 印", u"print", u"打印这一周", false},
    {BoardCommand::ClearSchedule, u"Command9", u"清空计划", u"clear",
     u"删除所有计划、备忘和每周命名", false},
    {BoardCommand::UsageNotes, u"Command8", u"使用说明", u"notes", u"怎样使用这个程序", true},
    {BoardCommand::About, u"Command98", u"关于Vellora", u"about", u"版本与外观", false},
    {BoardCommand::Exit, u"Command99", u"退出系统", u"exit", u"关闭程序", false},
};

// A flat button with its icon and caption on the left, so that the bar reads as a list.
class CommandButton : public QPushButton {
 public:
  CommandButton(const CommandText& text, QWidget* parent)
      : QPushButton(QString::fromUtf16(text.caption), parent) {
    setObjectName(QString::fromUtf16(text.objectName));
    setToolTip(QString::fromUtf16(text.toolTip));
    setIcon(lineIcon(QString::fromUtf16(text.icon)));
    setFlat(true);
    setEnabled(false);  // until something is attached
  }
  QSize sizeHint() const override {
    const QSize text = fontMetrics().size(Qt::TextSingleLine, this->text());
    return {kMargin + kIconSize + kGap + text.width() + 2 * kMargin, kIconSize + 2 * kMargin};
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    const bool isUnderMouse = isEnabled() && option.state.testFlag(QStyle::State_MouseOver);
    if (isUnderMouse || isDown()) option.features &= ~QStyleOptionButton::Flat;
    painter.drawControl(QStyle::CE_PushButtonBevel, option);
    const QRect sign(kMargin, (height() - kIconSize) / 2, kIconSize, kIconSize);
    icon().paint(&painter, sign, Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
    painter.drawItemText(rect().adjusted(sign.right() + kGap, 0, 0, 0),
                         Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(), text(),
                         QPalette::ButtonText);
    if (!hasFocus()) return;
    QStyleOptionFocusRect focus;
    focus.initFrom(this);
    focus.rect = rect().adjusted(2, 2, -2, -2);
    painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
  }

 private:
  static constexpr int kIconSize = 18;  // pixels
  static constexpr int kMargin = 7;
  static constexpr int kGap = 9;
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
  column->setSpacing(1);
  for (const CommandText& text : kCommands) {
    auto* button = new CommandButton(text, panel);
    connect(button, &QPushButton::clicked, this,
            [this, which = text.command] { emit triggered(which); });
    if (text.opensGroup) column->addSpacing(14);
    column->addWidget(button);
    buttons_[static_cast<std::size_t>(text.command)] = button;
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
