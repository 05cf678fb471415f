#pragma once

#include <QObject>

namespace vellora {

// Keeps the wheel from changing a box that has not got the focus: who scrolls past one means the
// list behind it. Made for the whole program.
class WheelGuard : public QObject {
  Q_OBJECT

 public:
  using QObject::QObject;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace vellora
