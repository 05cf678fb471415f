#include "planning/count_field.h"

#include "schedule/plan_repetition.h"

#include <QEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>

namespace vellora {
namespace {

constexpr int kDigits = 6;      // that the gap has room for
constexpr int kMostDigits = 5;  // that can be typed

}  // namespace

CountField::CountField(const QString& words, const QString& objectName,
                       const QString& accessibleName, QWidget* parent)
    : QWidget(parent), words_(new QLabel(words, this)), box_(new QLineEdit(this)) {
  box_->setObjectName(objectName);
  box_->setAccessibleName(accessibleName);
  box_->setAlignment(Qt::AlignCenter);
  box_->setMaxLength(kMostDigits);
  words_->setBuddy(box_);
  widenGap();
}

// The words keep their text; they and the blanks between them are drawn so far apart that the box
// fits into the gap.
void CountField::widenGap() {
  const QFontMetrics metrics(font());
  const QString blanks(words_->text().count(u' '), u' ');
  const int box =
      metrics.horizontalAdvance(QString(kDigits, u'0')) + 4 * metrics.averageCharWidth();
  const int missing = box - metrics.horizontalAdvance(blanks);
  QFont wide = font();
  wide.setLetterSpacing(QFont::AbsoluteSpacing,
                        static_cast<qreal>(missing) / static_cast<qreal>(blanks.size() + 1));
  words_->setFont(wide);
}

QSize CountField::sizeHint() const {
  return words_->sizeHint().expandedTo({0, box_->sizeHint().height()});
}

void CountField::resizeEvent(QResizeEvent*) {
  words_->setGeometry(rect());
  const QFontMetrics metrics(font());
  const int gap = metrics.averageCharWidth() / 2;
  const QString words = words_->text();
  const int left = metrics.horizontalAdvance(words.section(u' ', 0, 0)) + gap;
  const int right = words_->fontMetrics().horizontalAdvance(words.chopped(1)) - gap;
  const int boxHeight = box_->sizeHint().height();
  box_->setGeometry(left, (height() - boxHeight) / 2, right - left, boxHeight);
}

void CountField::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange) widenGap();
}

WeekCountKeys::WeekCountKeys(QLineEdit& box) : QObject(&box), box_(box) {
  box.installEventFilter(this);
}

bool WeekCountKeys::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) beforeKey(static_cast<QKeyEvent*>(event)->key());
  return QObject::eventFilter(watched, event);
}

// A count that had to be mended is selected, so that a digit replaces it.
void WeekCountKeys::beforeKey(int key) {
  const int change = key == Qt::Key_Up ? 1 : key == Qt::Key_Down ? -1 : 0;
  const QString weeks = boundedWeeks(box_.text(), change);
  if (weeks == box_.text()) return;
  box_.setText(weeks);
  box_.selectAll();
}

}  // namespace vellora
