#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;

namespace vellora {

// A label such as "共       天" with a text box in the gap between its two words, for a number that
// its words belong to.
class CountField : public QWidget {
  Q_OBJECT

 public:
  // The text box gets its object name and its name for assistive tools.
  CountField(const QString& words, const QString& objectName, const QString& accessibleName,
             QWidget* parent = nullptr);

  QLineEdit* box() const { return box_; }
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void widenGap();

  QLabel* words_;
  QLineEdit* box_;
};

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
