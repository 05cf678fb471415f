#include "shell/work_dialog.h"

#include "shell/application_state.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QPushButton>
#include <QShortcut>

#include <limits>

namespace vellora {
namespace {

constexpr qint64 kPatience = 200;  // milliseconds until the dialog appears
constexpr qint64 kBetween = 30;    // milliseconds from one look at the user to the next

QString textOf(const WorkStep& step) {
  if (step.total > 0) return u"%1 %2 / %3"_qs.arg(step.what).arg(step.done).arg(step.total);
  return step.done > 0 ? u"%1 %2"_qs.arg(step.what).arg(step.done) : step.what;
}

}  // namespace

WorkDialog::WorkDialog(QWidget* parent)
    : QProgressDialog(parent), cancel_(new QPushButton(u"取消"_qs, this)) {
  setObjectName(u"WorkDialog"_qs);
  setWindowTitle(parent ? parent->windowTitle() : programTitle());
  setWindowModality(Qt::ApplicationModal);
  setMinimumDuration(std::numeric_limits<int>::max());  // shown by show() alone
  setAutoReset(false);
  setAutoClose(false);
  setMinimumWidth(360);
  setCancelButton(cancel_);
  // The base makes one Escape for each button that it ever had, and ambiguous ones do nothing.
  for (auto* shortcut : findChildren<QShortcut*>()) shortcut->setEnabled(false);
  begin();
}

void WorkDialog::begin() {
  reset();
  begun_.start();
  shown_.start();
}

void WorkDialog::reject() {
  if (cancel_->isEnabled()) cancel();
}

void WorkDialog::closeEvent(QCloseEvent* event) {
  event->ignore();
  reject();
}

WorkProgress WorkDialog::progress() {
  return [this](const WorkStep& step) { return show(step); };
}

bool WorkDialog::show(const WorkStep& step) {
  if (shown_.elapsed() < kBetween) return !wasCanceled();
  shown_.restart();
  display(step);
  const bool late = begun_.elapsed() >= kPatience;
  if (late && !isVisible() && !wasCanceled()) QWidget::show();
  QCoreApplication::processEvents(isVisible() ? QEventLoop::AllEvents
                                              : QEventLoop::ExcludeUserInputEvents);
  return !wasCanceled();
}

void WorkDialog::display(const WorkStep& step) {
  cancel_->setEnabled(step.canStop);
  setLabelText(textOf(step));
  setMaximum(static_cast<int>(step.total));
  setValue(static_cast<int>(step.done));
}

void runWithDialog(QWidget* window, const std::function<void(const WorkProgress&)>& work) {
  WorkDialog dialog(window);
  work(dialog.progress());
}

}  // namespace vellora
