#pragma once

#include <QWidget>

namespace vellora::test {

// What the user can see of a kind of control in a window, parts of Qt's own controls included.
template <typename Control>
QList<Control*> shown(const QWidget& window) {
  QList<Control*> controls = window.findChildren<Control*>();
  controls.removeIf([](const Control* control) { return !control->isVisible(); });
  return controls;
}

// Kind, name and text of a control, for the message of a failed check.
std::string described(const QWidget& control);

// Assistive tools are told the name and the role of whatever can be used, and every cell with its
// headings.
void expectReadable(QWidget& window);
// The Tab key goes through everything that can be used, in the order in which it is read, and Alt
// with a letter means one control.
void expectReachedByKeys(QWidget& window);
// Every caption, date and count has the room that it asks for, and the window that of the screen.
void expectRoomForTexts(QWidget& window);

}  // namespace vellora::test
