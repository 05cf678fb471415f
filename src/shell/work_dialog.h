#pragma once

#include "routine/work_step.h"

#include <QElapsedTimer>
#include <QProgressDialog>

namespace vellora {

// Keeps the program alive during long work on its only thread, and shows how far it is once that
// takes longer than a moment. Its window must take no input meanwhile.
class WorkDialog : public QProgressDialog {
  Q_OBJECT

 public:
  explicit WorkDialog(QWidget* parent);

  // Forgets earlier work and its cancelling; the moment of patience begins anew.
  void begin();
  // To be told often; false once the user wants to give up. Valid while the dialog lives.
  WorkProgress progress();

 protected:
  void reject() override;
  void closeEvent(QCloseEvent* event) override;

 private:
  bool show(const WorkStep& step);
  void display(const WorkStep& step);

  QElapsedTimer begun_;
  QElapsedTimer shown_;
  QPushButton* cancel_;
};

// Runs work under a dialog over the window, and passes on what the work throws.
void runWithDialog(QWidget* window, const std::function<void(const WorkProgress&)>& work);

}  // namespace vellora
