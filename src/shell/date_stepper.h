#pragma once

#include <QDate>
#include <QWidget>

#include <initializer_list>

class QLabel;

namespace vellora {

class Clock;
class DatePicker;

// A date picker with buttons that step by days and a label that names its weekday. A date being
// typed counts once it is entered or left, so that no window reads a day for each of its parts.
// Until then date() is the one before it: what a window shows and saves. Ctrl+T goes to today from
// everywhere in the window.
class DateStepper : public QWidget {
  Q_OBJECT

 public:
  struct StepButton {
    QString objectName;
    QString caption;
    QString toolTip;
    int days;
  };
  struct Names {
    QString picker;        // object name of the date picker
    QString weekdayLabel;  // object name of the weekday label
    QString accessible;    // what assistive tools call the picker
  };

  // Buttons that step back stand before the picker, the others behind it.
  DateStepper(const Names& names, std::initializer_list<StepButton> buttons, const Clock& clock,
              QWidget* parent = nullptr);

  QDate date() const;
  // Emits dateChanged when the date is another one.
  void setDate(QDate date);
  // Takes in a date that is still being typed, like leaving the picker. For buttons that keep the
  // focus where it is: a save first stores what is shown and then turns to the typed date.
  void finishTyping();
  DatePicker* picker() const { return picker_; }
  QLabel* weekdayLabel() const { return weekday_; }
  void goToToday();

 signals:
  void dateChanged(QDate date);

 private:
  void stepBy(int days);
  void showWeekday();

  DatePicker* picker_ = nullptr;
  QLabel* weekday_ = nullptr;
};

// With the buttons Cm1 to Cm4: << < > >>.
DateStepper* makeArrowStepper(const DateStepper::Names& names, const Clock& clock, QWidget* parent);
// With the buttons Command1 to Command4: 前一天 后一天 上一周 下一周.
DateStepper* makeWordStepper(const DateStepper::Names& names, const Clock& clock, QWidget* parent);

}  // namespace vellora
