#include "shell/wheel_guard.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QEvent>

namespace vellora {

bool WheelGuard::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::Wheel) return false;
  auto* box = qobject_cast<QWidget*>(watched);
  const bool isBox = qobject_cast<QComboBox*>(box) || qobject_cast<QAbstractSpinBox*>(box);
  if (!isBox || box->hasFocus()) return false;
  event->ignore();  // it goes on to what the box stands in
  return true;
}

}  // namespace vellora
