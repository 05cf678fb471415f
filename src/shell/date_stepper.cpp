#include "shell/date_stepper.h"

#include "grid/print/drawn_style.h"
#include "routine/calendar_text.h"
#include "shell/controls.h"
#include "shell/date_picker.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>

namespace vellora {
namespace {

// A step button is as wide as its caption asks, not as wide as the style's usual button.
int narrowWidth(const QPushButton& button) {
  constexpr int kPadding = 26;
  return button.fontMetrics().horizontalAdvance(button.text()) + kPadding;
}

}  // namespace

DateStepper::DateStepper(const Names& names, std::initializer_list<StepButton> buttons,
                         const Clock& clock, QWidget* parent)
    : QWidget(parent) {
  setFont(plainFont(font()));  // first: a picker lays its text out at once
  picker_ = new DatePicker(names.picker, names.accessible, clock, this);
  weekday_ = new QLabel(this);
  weekday_->setObjectName(names.weekdayLabel);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins({});
  const auto addButton = [&](const StepButton& step) {
    auto* button =
        makeButton(step.objectName, step.caption, this, [this, days = step.days] { stepBy(days); });
    button->setToolTip(step.toolTip);
    button->setFixedWidth(narrowWidth(*button));
    row->addWidget(button);
  };
  for (const auto& step : buttons) {
    if (step.days < 0) addButton(step);
  }
  row->addWidget(picker_);
  for (const auto& step : buttons) {
    if (step.days > 0) addButton(step);
  }
  row->addWidget(weekday_);
  for (int i = 1; i < row->count(); ++i) {
    setTabOrder(row->itemAt(i - 1)->widget(), row->itemAt(i)->widget());
  }
  connect(picker_, &DatePicker::dateChanged, this, [this](QDate day) {
    showWeekday();
    emit dateChanged(day);
  });
  auto* today = new QShortcut(Qt::CTRL | Qt::Key_T, this);
  connect(today, &QShortcut::activated, this, &DateStepper::goToToday);
  showWeekday();
}

QDate DateStepper::date() const {
  return picker_->date();
}

void DateStepper::setDate(QDate date) {
  picker_->setDate(date);
}

void DateStepper::finishTyping() {
  picker_->finishTyping();
}

void DateStepper::stepBy(int days) {
  finishTyping();
  setDate(date().addDays(days));
}

// The focus leaves what else is being typed first.
void DateStepper::goToToday() {
  picker_->setFocus(Qt::ShortcutFocusReason);
  picker_->goToToday();
}

void DateStepper::showWeekday() {
  weekday_->setText(weekdayName(picker_->date()));
}

DateStepper* makeArrowStepper(const DateStepper::Names& names, const Clock& clock,
                              QWidget* parent) {
  return new DateStepper(names,
                         {{u"Cm1"_qs, u"<<"_qs, u"上一周"_qs, -7},
                          {u"Cm2"_qs, u"<"_qs, u"前一天"_qs, -1},
                          {u"Cm3"_qs, u">"_qs, u"后一天"_qs, 1},
                          {u"Cm4"_qs, u">>"_qs, u"下一周"_qs, 7}},
                         clock, parent);
}

DateStepper* makeWordStepper(const DateStepper::Names& names, const Clock& clock, QWidget* parent) {
  return new DateStepper(names,
                         {{u"Command3"_qs, u"上一周"_qs, {}, -7},
                          {u"Command1"_qs, u"前一天"_qs, {}, -1},
                          {u"Command2"_qs, u"后一天"_qs, {}, 1},
                          {u"Command4"_qs, u"下一周"_qs, {}, 7}},
                         clock, parent);
}

}  // namespace vellora
