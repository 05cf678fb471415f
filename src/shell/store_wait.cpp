#include "shell/store_wait.h"

#include "shell/work_dialog.h"

#include <QApplication>

namespace vellora {

StoreWait::StoreWait() {
  constexpr int kUntilOver = 100;  // milliseconds
  over_.setSingleShot(true);
  over_.setInterval(kUntilOver);
  connect(&over_, &QTimer::timeout, this, &StoreWait::end);
}

bool StoreWait::goesOn() {
  if (!dialog_) {
    QWidget* window = QApplication::activeWindow();
    if (!window) return true;  // none to keep alive
    dialog_ = new WorkDialog(window);
  }
  over_.start();
  const bool goesOn = dialog_->progress()({u"另一个程序正在保存，请稍候……"_qs});
  if (!goesOn) end();
  return goesOn;
}

void StoreWait::end() {
  delete dialog_;
}

}  // namespace vellora
