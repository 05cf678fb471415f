#include "shell/form_dialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>

namespace vellora {

FormDialog::FormDialog(QWidget* parent, const QString& title)
    : QDialog(parent), form_(new QFormLayout) {
  setWindowTitle(title);
  auto* all = new QVBoxLayout(this);
  all->addLayout(form_);
  auto* buttons = new QDialogButtonBox(this);
  ok_ = buttons->addButton(u"确定"_qs, QDialogButtonBox::AcceptRole);
  buttons->addButton(u"取消"_qs, QDialogButtonBox::RejectRole);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  all->addWidget(buttons);
}

void FormDialog::add(const QString& label, QWidget* field) {
  form_->addRow(label, field);
  if (!first_) first_ = field;
}

void FormDialog::addText(const QString& text) {
  auto* label = new QLabel(text, this);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setMinimumWidth(label->fontMetrics().horizontalAdvance(u'周') * 30);
  form_->addRow(label);
}

bool FormDialog::isAccepted() {
  if (first_) first_->setFocus(Qt::TabFocusReason);
  return exec() == Accepted;
}

}  // namespace vellora
