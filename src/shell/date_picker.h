#pragma once

#include <QAbstractSpinBox>
#include <QDate>

class QStyleOptionComboBox;

namespace vellora {

class Clock;

// A field for a date that is typed as people type it, stepped by keys or wheel, or picked from a
// calendar, and bounded so that the seven days from any date in it have four-digit years.
//
// What is typed is free text until Enter, Tab or the loss of the focus ends it. A date is then
// shown in the usual form; anything else stays as typed, is marked as no date, and date() stays
// what it was. Escape takes back what is not yet a date. QDateEdit reads each part as it is typed,
// and so makes another date of a whole one typed or pasted over it.
class DatePicker : public QAbstractSpinBox {
  Q_OBJECT

 public:
  DatePicker(const QString& objectName, const QString& accessibleName, const Clock& clock,
             QWidget* parent);

  QDate date() const { return date_; }
  // Bounded by the first and last date. Whatever is being typed is gone.
  void setDate(QDate date);
  void goToToday();
  // Takes in what is typed, like leaving the field. False when it is no date.
  bool finishTyping();

  void stepBy(int days) override;
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 signals:
  void dateChanged(QDate date);

 protected:
  StepEnabled stepEnabled() const override { return StepUpEnabled | StepDownEnabled; }
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  bool answer(const QKeyEvent& event);
  bool revert();
  void stepTo(QDate date);
  void selectNumber(bool forward);
  void openCalendar();
  void showDate();
  void mark(const QString& fault);
  QStyleOptionComboBox comboOption() const;
  QRect partOf(int subControl) const;

  const Clock& clock_;
  QDate date_;
};

}  // namespace vellora
