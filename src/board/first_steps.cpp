#include "board/first_steps.h"

#include "shell/controls.h"
#include "shell/remembered.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace vellora {
namespace {

const QString kStepsKey = u"board/firstSteps"_qs;

struct Step {
  BoardCommand command;
  const char16_t* objectName;
  const char16_t* caption;
  const char16_t* toolTip;
  const char16_t* table;  // holds rows when the step is done
};

constexpr Step kSteps[]{
    {BoardCommand::TimeBlocks, u"Step1", u"① 时间表", u"把一天分成时间块", u"SJ"},
    {BoardCommand::ActivityItems, u"Step2", u"② 活动项目", u"写下要做的事和它们的类别", u"HD"},
    {BoardCommand::DailyPlan, u"Step3", u"③ 安排", u"把活动放进每天的时间块", u"JH"},
};

bool isDone(ApplicationState& state, const Step& step) {
  return state.Db.readOnce(QString::fromUtf16(step.table)).next();
}

// The plans of the starter schedule are fewer.
bool isWellBegun(ApplicationState& state) {
  constexpr int kManyPlans = 100;
  RowCursor plans = state.Db.readOnce(u"JH"_qs);
  int count = 0;
  while (count < kManyPlans && plans.next()) ++count;
  return count == kManyPlans;
}

}  // namespace

FirstSteps::FirstSteps(ApplicationState& state, QWidget* parent) : QWidget(parent), state_(state) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins({});
  hide();
  row->addWidget(new QLabel(u"开始使用："_qs, this));
  for (std::size_t i = 0; i < steps_.size(); ++i) {
    const Step& step = kSteps[i];
    steps_[i] = makeButton(QString::fromUtf16(step.objectName), QString::fromUtf16(step.caption),
                           this, [this, command = step.command] { emit chosen(command); });
    steps_[i]->setToolTip(QString::fromUtf16(step.toolTip));
    row->addWidget(steps_[i]);
  }
  row->addStretch();
  row->addWidget(makeButton(u"StepsAway"_qs, u"不再显示"_qs, this, [this] { putAway(); }));
}

bool FirstSteps::areOpen(ApplicationState& state) {
  return !remembered(state).value(kStepsKey).toBool();
}

void FirstSteps::showDone() {
  if (is_away_) return;
  if (isWellBegun(state_)) return putAway();
  for (std::size_t i = 0; i < steps_.size(); ++i) {
    const bool done = isDone(state_, kSteps[i]);
    const QString caption = QString::fromUtf16(kSteps[i].caption);
    steps_[i]->setText(done ? caption + u" ✓"_qs : caption);
  }
  show();
}

void FirstSteps::putAway() {
  is_away_ = true;
  remembered(state_).setValue(kStepsKey, true);
  hide();
}

}  // namespace vellora
