#include "shell/store_wait.h"

#include "shell/work_dialog.h"

#include <QApplication>
#include <QWindow>

namespace vellora {

StoreWait::StoreWait() {
  constexpr int kUntilOver = 100;  // milliseconds
  over_.setSingleShot(true);
  over_.setInterval(kUntilOver);
  connect(&over_, &QTimer::timeout, this, &StoreWait::end);
}

StoreWait::~StoreWait() = default;

bool StoreWait::mayContinue() {
  if (!dialog_) dialog_ = std::make_unique<WorkDialog>(nullptr);
  if (!over_.isActive()) begin();
  over_.start();
  const bool mayContinue = dialog_->progress()({u"另一个程序正在使用日程文件，正在等待……"_qs});
  if (!mayContinue) end();
  return mayContinue;
}

// Stays over the window in front without belonging to it, which may be closed meanwhile.
void StoreWait::begin() {
  dialog_->begin();
  dialog_->winId();  // makes the handle
  const QWidget* front = QApplication::activeWindow();
  const bool isOther = front && front != dialog_.get();
  dialog_->windowHandle()->setTransientParent(isOther ? front->windowHandle() : nullptr);
}

void StoreWait::end() {
  over_.stop();
  dialog_->hide();
}

}  // namespace vellora
