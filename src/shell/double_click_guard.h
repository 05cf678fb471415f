#pragma once

#include <QObject>
#include <QPointer>

class QWidget;

namespace vellora {

// Keeps the second half of a double click from a window that did not get the first: when a click
// closes a box or opens a window, the desktop's double click would otherwise press what has
// appeared under the mouse. To be installed on the application.
class DoubleClickGuard : public QObject {
  Q_OBJECT

 public:
  using QObject::QObject;

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool swallows(QWidget& receiver, const QEvent& event);

  QPointer<QWidget> pressed_;  // the window that got the last press; none once it is gone
  bool swallows_release_ = false;
};

}  // namespace vellora
