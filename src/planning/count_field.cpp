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

// The words keep their text; they and the blanks between them are drawn so far apart that the box
// fits into the gap.
void CountField::widenGap() {
  QFont plain = font();
  plain.setLetterSpacing(QFont::AbsoluteSpacing, 0);
  box_->setFont(plain);
  const QFontMetrics metrics(plain);
  const QString blanks(text().count(u' '), u' ');
  const int box =
      metrics.horizontalAdvance(QString(kDigits, u'0')) + 4 * metrics.averageCharWidth();
  const int missing = box - metrics.horizontalAdvance(blanks);
  QFont wide = plain;
  wide.setLetterSpacing(QFont::AbsoluteSpacing,
                        static_cast<qreal>(missing) / static_cast<qreal>(blanks.size() + 1));
  if (wide != font()) setFont(wide);
}

QSize CountField::sizeHint() const {
  return QLabel::sizeHint().expandedTo({0, box_->sizeHint().height()});
}

void CountField::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  const QFontMetrics metrics(box_->font());
  const int gap = metrics.averageCharWidth() / 2;
  const int left = metrics.horizontalAdvance(text().section(u' ', 0, 0)) + gap;
  const int right = fontMetrics().horizontalAdvance(text().chopped(1)) - gap;
  const int boxHeight = box_->sizeHint().height();
  box_->setGeometry(left, (height() - boxHeight) / 2, right - left, boxHeight);
}

void CountField::changeEvent(QEvent* event) {
  QLabel::changeEvent(event);
  if (event->type() == QEvent::FontChange) widenGap();
}

}  // namespace vellora
