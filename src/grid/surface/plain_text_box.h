#pragma once

#include <QPlainTextEdit>

namespace vellora {

// A box for texts of several lines that can be pasted into, and dropped on, whatever the clipboard
// holds: Qt's own crashes where that has no formats, as when the program that had it is gone.
class PlainTextBox : public QPlainTextEdit {
  Q_OBJECT

 public:
  using QPlainTextEdit::QPlainTextEdit;

 protected:
  void insertFromMimeData(const QMimeData* source) override;
};

}  // namespace vellora
