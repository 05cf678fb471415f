#pragma once

#include <QLabel>

namespace vellora {

// A line at a window's foot for what the user should know but need not answer. Takes no room while
// there is nothing to tell.
class StatusLine : public QLabel {
  Q_OBJECT

 public:
  explicit StatusLine(QWidget* parent);

  // An empty text takes the line away.
  void showMessage(const QString& text);
};

}  // namespace vellora
