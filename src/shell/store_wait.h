#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>

namespace vellora {

class WorkDialog;

// Keeps the windows alive while the store waits for another program that is saving, and says so
// once that takes longer than a moment.
class StoreWait : public QObject {
  Q_OBJECT

 public:
  StoreWait();

  // To be asked often while the store waits; false once the user gives up.
  bool goesOn();

 private:
  void end();

  QPointer<WorkDialog> dialog_;
  QTimer over_;  // nobody tells when a wait is over: it is not asked about any more
};

}  // namespace vellora
