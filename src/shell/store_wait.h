#pragma once

#include <QObject>
#include <QTimer>

#include <memory>

namespace vellora {

class WorkDialog;

// Keeps the windows alive while the store waits for another program that is saving, and says so
// once that takes longer than a moment; also when the planner is not in front or has no window yet.
class StoreWait : public QObject {
  Q_OBJECT

 public:
  StoreWait();
  ~StoreWait() override;

  // To be asked often while the store waits; false once the user gives up.
  bool mayContinue();

 private:
  void begin();
  void end();

  // Kept until the program ends: a wait can be over inside the dialog's own turn of events.
  std::unique_ptr<WorkDialog> dialog_;
  QTimer over_;  // nobody tells when a wait is over: it is not asked about any more
};

}  // namespace vellora
