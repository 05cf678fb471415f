#pragma once

#include <QDate>
#include <QWidget>

namespace vellora {

class Clock;
class DateStepper;

// Picks the first day of a week, and adds it, or the weeks that follow, to a list.
class WeekBar : public QWidget {
  Q_OBJECT

 public:
  explicit WeekBar(const Clock& clock, QWidget* parent = nullptr);

  QDate date() const;
  void setDate(QDate date);

 signals:
  void addWeek();
  void addFollowingWeeks();

 private:
  DateStepper* days_;
};

}  // namespace vellora
