#pragma once

#include <QDialog>

class QFormLayout;
class QPushButton;

namespace vellora {

// A form over 确定 and 取消, which Enter and Escape press.
class FormDialog : public QDialog {
 public:
  FormDialog(QWidget* parent, const QString& title);

  // The first field is where typing begins.
  void add(const QString& label, QWidget* field);
  void addText(const QString& text);
  QPushButton& ok() { return *ok_; }
  // Shows the dialog until it is answered.
  bool isAccepted();

 private:
  QFormLayout* form_;
  QPushButton* ok_;
  QWidget* first_ = nullptr;
};

}  // namespace vellora
