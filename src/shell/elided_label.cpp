#include "shell/elided_label.h"

#include <QEvent>
#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace vellora {

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

QSize ElidedLabel::sizeHint() const {
  return {QLabel::sizeHint().width(), minimumSizeHint().height()};
}

QSize ElidedLabel::minimumSizeHint() const {
  return {0, fontMetrics().size(Qt::TextSingleLine, text()).height() + 1 + 2 * margin()};
}

// One line: a line break would hide what stands behind it.
QString ElidedLabel::shownText() const {
  return fontMetrics().elidedText(text().simplified(), Qt::ElideRight, contentsRect().width());
}

bool ElidedLabel::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QLabel::event(event);
  const bool isCut = shownText() != text();
  QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                     isCut ? text().toHtmlEscaped() : QString(), this);
  return true;
}

void ElidedLabel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  style()->drawItemText(&painter, contentsRect(), static_cast<int>(alignment()), palette(),
                        isEnabled(), shownText(), foregroundRole());
}

}  // namespace vellora
