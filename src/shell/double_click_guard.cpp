#include "shell/double_click_guard.h"

#include <QEvent>
#include <QWidget>

namespace vellora {

bool DoubleClickGuard::eventFilter(QObject* watched, QEvent* event) {
  auto* receiver = qobject_cast<QWidget*>(watched);
  return receiver && swallows(*receiver, *event);
}

// A widget that ignores a press hands it on to its parent, in the same window.
bool DoubleClickGuard::swallows(QWidget& receiver, const QEvent& event) {
  switch (event.type()) {
    case QEvent::MouseButtonPress:
      pressed_ = receiver.window();
      swallows_release_ = false;
      return false;
    case QEvent::MouseButtonDblClick:
      swallows_release_ = pressed_ != receiver.window();
      return swallows_release_;
    case QEvent::MouseButtonRelease:
      return swallows_release_;
    default:
      return false;
  }
}

}  // namespace vellora
