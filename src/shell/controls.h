#pragma once

#include <QString>

#include <functional>

class QLabel;
class QPushButton;
class QWidget;

// How every window makes its controls. The parent owns them.
namespace vellora {

// `act` runs when the button is pressed, by mouse or key.
QPushButton* makeButton(const QString& objectName, const QString& caption, QWidget* parent,
                        const std::function<void()>& act = {});
// Names a control; Alt and its underlined letter, if it has one, goes there.
QLabel* makeLabel(const QString& text, QWidget* control);

// A control without a caption has a name for assistive tools.
template <typename Control>
Control* named(Control* control, const QString& objectName, const QString& accessibleName = {}) {
  control->setObjectName(objectName);
  control->setAccessibleName(accessibleName);
  return control;
}

}  // namespace vellora
