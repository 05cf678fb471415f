#include "shell/status_line.h"

#include <QAccessible>

namespace vellora {

StatusLine::StatusLine(QWidget* parent) : QLabel(parent) {
  setObjectName(u"StatusLine"_qs);
  setTextFormat(Qt::PlainText);
  setTextInteractionFlags(Qt::TextSelectableByMouse);
  setWordWrap(true);
  hide();
}

// A label's text is its accessible name only while it has no other; screen readers hear of it.
void StatusLine::showMessage(const QString& text) {
  setText(text);
  setAccessibleName(text.isEmpty() ? QString() : u"提示："_qs + text);
  setVisible(!text.isEmpty());
  if (text.isEmpty()) return;
  QAccessibleEvent alert(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

}  // namespace vellora
