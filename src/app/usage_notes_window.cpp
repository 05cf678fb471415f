#include "app/usage_notes_window.h"

#include "app/product.h"
#include "grid/print/drawn_style.h"
#include "shell/controls.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace vellora {
namespace {

constexpr int kCharactersPerLine = 34;

constexpr const char16_t* kParagraphs[]{
    u"使用Vellora日程表，需要先制定每日的作息时间表，尽使用每天的活动富有"
    u"规律性；同时将所有活动内容或工作学习任务列入活动项目，这样就可以制定"
    u"你的日程表了。",
    u"日程表可以按日制定，也可以按项目制定。制定日程表时，如果原有时间"
    u"已经排定其他内容，系统会自动列出或给予提示。",
    u"最好在每周或每天固定的时间对制定的日程表及执行情况进行总结，将实"
    u"际完成的内容填入日程表，没有完成的去掉。并按期进行统计分析，不断调整"
    u"你的时间安排，将逐渐达到完美的境界。",
};

QLabel* makeHeading(QWidget* parent) {
  auto* heading = new QLabel(u"把握自己，把握人生，祝你早日成功！"_qs, parent);
  heading->setFont(QFont(installedFace(u"黑体"_qs), 14));
  heading->setAlignment(Qt::AlignCenter);
  return heading;
}

QLabel* makeParagraph(const char16_t* text, QWidget* parent) {
  auto* paragraph = new QLabel(QString::fromUtf16(text), parent);
  paragraph->setWordWrap(true);
  paragraph->setAlignment(Qt::AlignTop);
  paragraph->setMinimumWidth(paragraph->fontMetrics().horizontalAdvance(u'日') *
                             kCharactersPerLine);
  return paragraph;
}

QLayout* makeNotes(QWidget* parent) {
  auto* notes = new QVBoxLayout;
  notes->setSpacing(14);
  for (const auto* text : kParagraphs) notes->addWidget(makeParagraph(text, parent));
  notes->addStretch();
  return notes;
}

QLayout* makeMakersLines(QWidget* parent) {
  auto* lines = new QVBoxLayout;
  lines->setSpacing(6);
  for (const auto& text : {programTitle(), versionLine(), makersLine()}) {
    lines->addWidget(new QLabel(text, parent), 0, Qt::AlignCenter);
  }
  lines->addStretch();
  return lines;
}

}  // namespace

UsageNotesWindow::UsageNotesWindow(ApplicationState& state, QWidget* parent)
    : PlannerWindow(state, parent) {
  setObjectName(u"FormSYSM"_qs);
  setWindowTitle(u"使用说明"_qs);
  auto* middle = new QHBoxLayout;
  middle->setSpacing(20);
  middle->addLayout(makeNotes(this), 1);
  middle->addWidget(makeSeparator(QFrame::VLine, this));
  middle->addLayout(makeMakersLines(this));
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(28, 24, 28, 20);
  all->setSpacing(14);
  all->addWidget(makeHeading(this));
  all->addWidget(makeSeparator(QFrame::HLine, this));
  all->addLayout(middle, 1);
  all->addWidget(makeButton(u"CmdEND"_qs, u"关闭(&Q) "_qs, this, [this] { close(); }), 0,
                 Qt::AlignRight);
}

}  // namespace vellora
