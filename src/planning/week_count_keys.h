#pragma once

#include <QObject>

class QLineEdit;

namespace vellora {

// The keys of a box that holds a week count: up and down step it, and any key first brings it back
// within its bounds.
class WeekCountKeys : public QObject {
  Q_OBJECT

 public:
  explicit WeekCountKeys(QLineEdit& box);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void beforeKey(int key);

  QLineEdit& box_;
};

}  // namespace vellora
