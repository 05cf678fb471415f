#include "planning/count_field.h"

#include <QEvent>
#include <QLineEdit>

namespace vellora {
namespace {

constexpr int kDigits = 6;      // that the gap has room for
constexpr int kMostDigits = 5;  // that can be typed

}  // namespace

CountField::CountField(const QString& words, const QString& objectName,
                       const QString& accessibleName, QWidget* parent)
    : QLabel(words, parent), box_(new QLineEdit(this)) {
  box_->setObjectName(objectName);
  box_->setAccessibleName(accessibleName);
  box_->setAlignment(Qt::AlignCenter);
  box_->setMaxLength(kMostDigits);
  setBuddy(box_);
  widenGap();
}

// The words keep their text; the blanks between them are drawn as wide as the box needs.
void CountField::widenGap() {
  QFont wide = font();
  wide.setWordSpacing(0);
  const QFontMetrics metrics(wide);
  const auto blanks = text().count(u' ');
  const int gap = metrics.horizontalAdvance(QString(kDigits, u'0')) + metrics.averageCharWidth();
  wide.setWordSpacing(static_cast<qreal>(gap) / static_cast<qreal>(blanks) -
                      metrics.horizontalAdvance(u' '));
  if (wide != font()) setFont(wide);
  box_->setFont(parentWidget() ? parentWidget()->font() : QFont());
}

int CountField::wordWidth(int section) const {
  const QString word = text().section(u' ', section, section);
  return fontMetrics().horizontalAdvance(word);
}

QSize CountField::sizeHint() const {
  return QLabel::sizeHint().expandedTo({0, box_->sizeHint().height()});
}

void CountField::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  const int words = fontMetrics().horizontalAdvance(text());
  const int space = fontMetrics().averageCharWidth() / 2;
  const int left = wordWidth(0) + space;
  const int right = words - wordWidth(-1) - space;
  const int height = box_->sizeHint().height();
  box_->setGeometry(left, (this->height() - height) / 2, right - left, height);
}

void CountField::changeEvent(QEvent* event) {
  QLabel::changeEvent(event);
  if (event->type() == QEvent::FontChange) widenGap();
}

}  // namespace vellora
