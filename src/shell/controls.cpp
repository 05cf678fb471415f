#include "shell/controls.h"

#include <QLabel>
#include <QPushButton>

namespace vellora {

QPushButton* makeButton(const QString& objectName, const QString& caption, QWidget* parent,
                        const std::function<void()>& act) {
  auto* button = new QPushButton(caption, parent);
  button->setObjectName(objectName);
  if (act) QObject::connect(button, &QPushButton::clicked, button, [act] { act(); });
  return button;
}

QLabel* makeLabel(const QString& text, QWidget* control) {
  auto* label = new QLabel(text, control->parentWidget());
  label->setBuddy(control);
  return label;
}

}  // namespace vellora
