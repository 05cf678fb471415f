#include "editors/memo_window.h"

#include "editors/daily_memo.h"
#include "shell/date_stepper.h"
#include "store/store_error.h"

#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace vellora {
namespace {

QPlainTextEdit* makeTextBox(QWidget* parent) {
  auto* box = new QPlainTextEdit(parent);
  box->setObjectName(u"Text1"_qs);
  box->setAccessibleName(u"备忘内容"_qs);
  box->setFont(QFont(u"楷体_GB2312"_qs, 12));
  box->setTabChangesFocus(true);
  return box;
}

}  // namespace

MemoWindow::MemoWindow(ApplicationState& state, QWidget* parent)
    : PlannerWindow(state, parent),
      days_(makeArrowStepper({u"D1"_qs, u"Lxq"_qs, u"备忘日期"_qs}, state.clock, this)),
      text_(makeTextBox(this)),
      update_(new QPushButton(u"更新(&U) "_qs, this)) {
  setObjectName(u"FormBWL"_qs);
  setWindowTitle(u"备忘录"_qs);
  update_->setObjectName(u"CmdSV"_qs);
  update_->setFocusPolicy(Qt::TabFocus);  // a click must not turn to a typed date before it stores
  layOut();
  connect(days_, &DateStepper::dateChanged, this, &MemoWindow::showOtherDay);
  connect(update_, &QPushButton::clicked, this, &MemoWindow::store);
}

void MemoWindow::layOut() {
  auto* end = new QPushButton(u"关闭(&Q) "_qs, this);
  end->setObjectName(u"CmdEND"_qs);
  connect(end, &QPushButton::clicked, this, &QWidget::close);
  auto* top = new QHBoxLayout;
  top->addWidget(days_);
  top->addStretch();
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(update_);
  buttons->addWidget(end);
  auto* all = new QVBoxLayout(this);
  all->addLayout(top);
  all->addWidget(text_, 1);
  all->addLayout(buttons);
  resize(520, 400);
}

// A memo that cannot be read when the window opens is no reason to keep the window from opening.
void MemoWindow::load() {
  const QSignalBlocker onceIsEnough(days_);
  days_->setDate(state().clock.today());
  try {
    ShowMemo();
  } catch (const StoreError&) {
    return;
  }
  text_->setFocus();
}

// Text and button stay disabled while the date's memo is unknown, so that no text typed for one
// date ends up over the memo of another.
void MemoWindow::ShowMemo() {
  const QDate day = days_->date();
  setWindowTitle(memoCaption(day));
  setEditable(false);
  text_->clear();
  text_->setPlainText(memoOf(state().Db, day));
  setEditable(true);
}

void MemoWindow::setEditable(bool on) {
  text_->setEnabled(on);
  update_->setEnabled(on);
}

void MemoWindow::showOtherDay() {
  try {
    ShowMemo();
  } catch (const StoreError& error) {
    prompts().warn(this, error.description());
  }
}

void MemoWindow::store() {
  try {
    storeMemo(state().Db, days_->date(), text_->toPlainText());
    text_->document()->setModified(false);
    days_->finishTyping();
  } catch (const StoreError& error) {
    prompts().warn(this, error.description());
  }
}

bool MemoWindow::hasUnsavedTyping() const {
  return text_->document()->isModified();
}

}  // namespace vellora
