#include "shell/date_picker.h"

#include "routine/calendar_text.h"
#include "routine/clock.h"
#include "shell/calendar_popup.h"
#include "store/moment.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QRegularExpression>
#include <QStyleOptionComboBox>
#include <QStylePainter>
#include <QTimer>
#include <QToolTip>

#include <algorithm>

namespace vellora {
namespace {

const QDate kLastDate(9999, 12, 24);

QString usage() {
  return u"输入日期，如 2027-06-07、2027/6/7 或 2027年6月7日，按 Enter 确认，Esc 取消\n"
         u"↑ ↓ 前后一天；Shift+↑ ↓ 前后一周；PageUp PageDown 前后一月\n"
         u"Ctrl+T 今天；F4 或 Alt+↓ 打开日历"_qs;
}

// What keeps a text from being a date of the field; empty when nothing does.
QString faultOf(const std::optional<QDate>& date) {
  if (!date) return u"不是日期"_qs;
  if (*date >= kFirstDay && *date <= kLastDate) return {};
  return u"日期不在 %1 到 %2 之间"_qs.arg(isoDate(kFirstDay), isoDate(kLastDate));
}

// Can be read on the paper of light and dark skins.
QColor faultColour(const QPalette& palette) {
  constexpr int kDark = 128;  // lightness of 255
  return palette.color(QPalette::Base).lightness() < kDark ? QColor(255, 150, 150)
                                                           : QColor(176, 0, 0);
}

}  // namespace

DatePicker::DatePicker(const QString& objectName, const QString& accessibleName, const Clock& clock,
                       QWidget* parent)
    : QAbstractSpinBox(parent), clock_(clock), date_(2000, 1, 1) {
  setObjectName(objectName);
  setAccessibleName(accessibleName);
  setButtonSymbols(NoButtons);
  setFocusPolicy(Qt::StrongFocus);  // a wheel that passes by takes no focus
  showDate();
}

void DatePicker::setDate(QDate date) {
  const QDate before = date_;
  date_ = std::clamp(date, kFirstDay, kLastDate);
  showDate();
  if (date_ != before) emit dateChanged(date_);
}

void DatePicker::goToToday() {
  setDate(clock_.today());
}

bool DatePicker::finishTyping() {
  const auto typed = readDate(text());
  const QString fault = faultOf(typed);
  mark(fault);
  if (fault.isEmpty()) setDate(*typed);
  return fault.isEmpty();
}

void DatePicker::showDate() {
  lineEdit()->setText(isoDate(date_));
  mark({});
}

// A field that is left as it should not be says so where the user looks.
void DatePicker::mark(const QString& fault) {
  QPalette colours;
  if (!fault.isEmpty()) colours.setColor(QPalette::Text, faultColour(palette()));
  lineEdit()->setPalette(colours);
  setAccessibleDescription(fault);
  setToolTip(fault.isEmpty() ? usage() : fault + u'\n' + usage());
  if (fault.isEmpty() || !isVisible()) return;
  QToolTip::showText(mapToGlobal(rect().bottomLeft()), u"“%1”%2"_qs.arg(text(), fault), this);
}

bool DatePicker::revert() {
  if (text() == isoDate(date_)) return false;
  showDate();
  selectAll();
  return true;
}

// A step counts from a date that was typed, not from the one before it.
void DatePicker::stepBy(int days) {
  finishTyping();
  stepTo(date_.addDays(days));
}

void DatePicker::stepTo(QDate date) {
  setDate(date);
  selectAll();
}

// Year, month or day, to be typed anew alone.
void DatePicker::selectNumber(bool forward) {
  static const QRegularExpression kNumber(u"\\d+"_qs);
  const int at =
      lineEdit()->hasSelectedText() ? lineEdit()->selectionStart() : lineEdit()->cursorPosition();
  QRegularExpressionMatch wanted;
  for (auto numbers = kNumber.globalMatch(text()); numbers.hasNext();) {
    const auto number = numbers.next();
    const bool isBehind = number.capturedStart() > at;
    if (forward ? isBehind : number.capturedStart() < at) wanted = number;
    if (isBehind) break;
  }
  if (!wanted.hasMatch()) return;
  lineEdit()->setSelection(static_cast<int>(wanted.capturedStart()),
                           static_cast<int>(wanted.capturedLength()));
}

void DatePicker::keyPressEvent(QKeyEvent* event) {
  const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (isEnter) {
    event->setAccepted(!finishTyping());  // the window's default button is for a date
    selectAll();
  } else if (event->key() == Qt::Key_Escape) {
    event->setAccepted(revert());
  } else if (!answer(*event)) {
    QAbstractSpinBox::keyPressEvent(event);
  }
}

bool DatePicker::answer(const QKeyEvent& event) {
  constexpr int kWeek = 7;
  const auto keys = event.modifiers() & ~Qt::KeypadModifier;
  const int key = event.key();
  const int way = key == Qt::Key_Up || key == Qt::Key_PageUp ? 1 : -1;
  const bool isArrow = key == Qt::Key_Up || key == Qt::Key_Down;
  if ((keys == Qt::AltModifier && isArrow) || (keys == Qt::NoModifier && key == Qt::Key_F4)) {
    openCalendar();
  } else if (isArrow && (keys == Qt::NoModifier || keys == Qt::ShiftModifier)) {
    stepBy(keys == Qt::NoModifier ? way : way * kWeek);
  } else if (key == Qt::Key_PageUp || key == Qt::Key_PageDown) {
    finishTyping();
    stepTo(date_.addMonths(way));
  } else if (keys == Qt::ControlModifier && (key == Qt::Key_Left || key == Qt::Key_Right)) {
    selectNumber(key == Qt::Key_Right);
  } else if (keys == Qt::ControlModifier && key == Qt::Key_T) {
    goToToday();
  } else {
    return false;
  }
  return true;
}

// A click that brings the focus selects the date, like Tab: what is typed then replaces it. A text
// that was left half-typed for another window goes on.
void DatePicker::focusInEvent(QFocusEvent* event) {
  QAbstractSpinBox::focusInEvent(event);
  QTimer::singleShot(0, this, [this] {
    if (hasFocus() && text() == isoDate(date_)) selectAll();
  });
}

void DatePicker::focusOutEvent(QFocusEvent* event) {
  QAbstractSpinBox::focusOutEvent(event);
  if (event->reason() != Qt::PopupFocusReason) finishTyping();
}

void DatePicker::wheelEvent(QWheelEvent* event) {
  hasFocus() ? QAbstractSpinBox::wheelEvent(event) : event->ignore();
}

void DatePicker::mousePressEvent(QMouseEvent* event) {
  if (partOf(QStyle::SC_ComboBoxArrow).contains(event->pos())) {
    openCalendar();
  } else {
    QAbstractSpinBox::mousePressEvent(event);
  }
}

void DatePicker::openCalendar() {
  finishTyping();
  auto* calendar = new CalendarPopup({date_, clock_.today(), kFirstDay, kLastDate}, this);
  connect(calendar, &CalendarPopup::picked, this, &DatePicker::stepTo);
  calendar->open();
}

QStyleOptionComboBox DatePicker::comboOption() const {
  QStyleOptionSpinBox box;
  initStyleOption(&box);
  QStyleOptionComboBox option;
  option.initFrom(this);
  option.editable = true;
  option.frame = box.frame;
  option.subControls = QStyle::SC_All;
  option.activeSubControls = box.activeSubControls;
  return option;
}

QRect DatePicker::partOf(int subControl) const {
  const QStyleOptionComboBox box = comboOption();
  return style()->subControlRect(QStyle::CC_ComboBox, &box,
                                 static_cast<QStyle::SubControl>(subControl), this);
}

QSize DatePicker::sizeHint() const {
  const QStyleOptionComboBox box = comboOption();
  const int width = fontMetrics().horizontalAdvance(u"9999-12-24 "_qs);
  const QSize content(width, lineEdit()->sizeHint().height());
  return style()->sizeFromContents(QStyle::CT_ComboBox, &box, content, this);
}

void DatePicker::resizeEvent(QResizeEvent* event) {
  QAbstractSpinBox::resizeEvent(event);
  lineEdit()->setGeometry(partOf(QStyle::SC_ComboBoxEditField));
}

void DatePicker::paintEvent(QPaintEvent* /*event*/) {
  QStylePainter(this).drawComplexControl(QStyle::CC_ComboBox, comboOption());
}

}  // namespace vellora
