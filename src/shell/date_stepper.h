#pragma once

#include <QDate>
#include <QWidget>

#include <initializer_list>

class QDateEdit;
class QLabel;

namespace vellora {

// A date picker with buttons that step by days and a label that names its weekday. A date being
// typed counts once it is entered or left, so that no window reads a day for each of its parts.
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
  DateStepper(const Names& names, std::initializer_list<StepButton> buttons,
              QWidget* parent = nullptr);

  // Takes in what is still being typed, like leaving the picker.
  QDate date();
  // Emits dateChanged when the date is another one.
  void setDate(QDate date);
  QDateEdit* picker() const { return picker_; }

 signals:
  void dateChanged(QDate date);

 private:
  void showWeekday();

  QDateEdit* picker_ = nullptr;
  QLabel* weekday_ = nullptr;
};

// With the buttons Cm1 to Cm4: << < > >>.
DateStepper* makeArrowStepper(const DateStepper::Names& names, QWidget* parent);
// With the buttons Command1 to Command4: 前一天 后一天 上一周 下一周.
DateStepper* makeWordStepper(const DateStepper::Names& names, QWidget* parent);

}  // namespace vellora
