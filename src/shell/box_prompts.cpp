#include "shell/box_prompts.h"

#include "shell/application_state.h"

#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>

namespace vellora {
namespace {

// A box looks like the window it belongs to.
void takeLook(QDialog& box, const QWidget* parent) {
  if (parent) box.setPalette(parent->palette());
}

void showText(QWidget* parent, QMessageBox::Icon icon, const QString& text) {
  QMessageBox box(icon, programTitle(), text, QMessageBox::NoButton, parent);
  takeLook(box, parent);
  box.setTextFormat(Qt::PlainText);
  box.addButton(u"确定"_qs, QMessageBox::AcceptRole);
  box.exec();
}

}  // namespace

void BoxPrompts::warn(QWidget* parent, const QString& text) {
  showText(parent, QMessageBox::Warning, text);
}

void BoxPrompts::inform(QWidget* parent, const QString& text) {
  showText(parent, QMessageBox::NoIcon, text);
}

bool BoxPrompts::ask(QWidget* parent, const QString& question) {
  QMessageBox box(QMessageBox::Question, programTitle(), question, QMessageBox::NoButton, parent);
  takeLook(box, parent);
  box.setTextFormat(Qt::PlainText);
  const auto* yes = box.addButton(u"是"_qs, QMessageBox::YesRole);
  auto* no = box.addButton(u"否"_qs, QMessageBox::NoRole);
  box.setDefaultButton(no);
  box.setEscapeButton(no);
  box.exec();
  return box.clickedButton() == yes;
}

QString BoxPrompts::chooseFile(QWidget* parent, const QString& title, const QString& filter,
                               const QString& folder) {
  const QString name = filter.section(u'|', 0, 0);
  const QString pattern = filter.section(u'|', 1);
  QFileDialog dialog(parent, title, folder, name + u" (" + pattern + u')');
  takeLook(dialog, parent);
  dialog.setFileMode(QFileDialog::ExistingFile);
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  if (dialog.exec() != QDialog::Accepted) return {};
  return dialog.selectedFiles().value(0);
}

}  // namespace vellora
