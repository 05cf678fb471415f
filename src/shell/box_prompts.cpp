#include "shell/box_prompts.h"

#include "shell/application_state.h"
#include "shell/file_dialog.h"

#include <QMessageBox>
#include <QPushButton>

namespace vellora {
namespace {

// Gives the position of the answer whose button was pressed, the last when the box is closed.
int show(QWidget* parent, QMessageBox::Icon icon, const QString& text, const QStringList& answers,
         int usual) {
  QMessageBox box(icon, programTitle(), text, QMessageBox::NoButton, parent);
  box.setTextFormat(Qt::PlainText);
  QList<QPushButton*> buttons;
  // Of one role, so that they stand in their order.
  for (const QString& answer : answers) buttons << box.addButton(answer, QMessageBox::ActionRole);
  box.setDefaultButton(buttons[usual]);
  box.setEscapeButton(buttons.last());
  box.exec();
  const auto pressed = buttons.indexOf(static_cast<QPushButton*>(box.clickedButton()));
  return static_cast<int>(pressed < 0 ? buttons.size() - 1 : pressed);
}

}  // namespace

void BoxPrompts::warn(QWidget* parent, const QString& text) {
  show(parent, QMessageBox::Warning, text, {u"确定"_qs}, 0);
}

void BoxPrompts::inform(QWidget* parent, const QString& text) {
  show(parent, QMessageBox::NoIcon, text, {u"确定"_qs}, 0);
}

bool BoxPrompts::ask(QWidget* parent, const QString& question) {
  return show(parent, QMessageBox::Question, question, {u"是"_qs, u"否"_qs}, 1) == 0;
}

int BoxPrompts::choose(QWidget* parent, const QString& question, const QStringList& answers,
                       int usual) {
  return show(parent, QMessageBox::Question, question, answers, usual);
}

QString BoxPrompts::chooseFile(QWidget* parent, const QString& title, const QString& filter,
                               const QString& folder) {
  return askForFile(parent, title, filter, folder);
}

}  // namespace vellora
