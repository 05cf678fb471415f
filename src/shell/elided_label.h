#pragma once

#include <QLabel>

namespace vellora {

// A line of stored text that never widens its window: what does not fit is cut with an ellipsis and
// stands whole in the tool tip. text() and assistive tools have the whole of it. Never read as
// HTML.
class ElidedLabel : public QLabel {
  Q_OBJECT

 public:
  explicit ElidedLabel(QWidget* parent);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QString shownText() const;
};

}  // namespace vellora
