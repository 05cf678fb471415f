#pragma once

#include <QDate>
#include <QFrame>

class QCalendarWidget;

namespace vellora {

// A month to pick a day from, which opens at a field and is gone with the choice, with Escape or
// with a click beside it. Weeks begin on Monday and carry their ISO numbers; today has a ring.
class CalendarPopup : public QFrame {
  Q_OBJECT

 public:
  struct Days {
    QDate selected;
    QDate today;
    QDate first;
    QDate last;
  };

  CalendarPopup(const Days& days, QWidget* field);

  // Opens below the field, or wherever the screen has room for the whole of it.
  void open();

 signals:
  void picked(QDate day);

 private:
  void pick(QDate day);

  QCalendarWidget* calendar_;
};

}  // namespace vellora
