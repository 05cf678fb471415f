#include "editors/week_bar.h"

#include "shell/date_stepper.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace vellora {

WeekBar::WeekBar(const Clock& clock, QWidget* parent)
    : QWidget(parent),
      days_(makeWordStepper({u"DTP1"_qs, u"Lxq"_qs, u"所选日期"_qs}, clock, this)) {
  auto* pick = new QHBoxLayout;
  pick->addWidget(days_);
  pick->addStretch();
  auto* add = new QHBoxLayout;
  const auto addButton = [&](const QString& name, const QString& caption, auto signal) {
    auto* button = new QPushButton(caption, this);
    button->setObjectName(name);
    connect(button, &QPushButton::clicked, this, signal);
    add->addWidget(button);
  };
  addButton(u"CmdBR"_qs, u"添加本日"_qs, &WeekBar::addWeek);
  addButton(u"CmdLX"_qs, u"连续添加"_qs, &WeekBar::addFollowingWeeks);
  add->addStretch();
  auto* lines = new QVBoxLayout(this);
  lines->setContentsMargins({});
  lines->addLayout(pick);
  lines->addLayout(add);
}

QDate WeekBar::date() const {
  return days_->date();
}

void WeekBar::setDate(QDate date) {
  days_->setDate(date);
}

}  // namespace vellora
