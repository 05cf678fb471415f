#include "shell/date_picker.h"

#include <QCalendarWidget>
#include <QChildEvent>
#include <QDateEdit>
#include <QTextCharFormat>

namespace vellora {
namespace {

const QDate kFirstDate(1752, 9, 14);
const QDate kLastDate(9999, 12, 24);

// The usual red of the weekend cannot be read well on every skin.
void markWeekendsByWeight(QCalendarWidget& calendar) {
  QTextCharFormat bold;
  bold.setFontWeight(QFont::Bold);
  for (const auto day : {Qt::Saturday, Qt::Sunday}) calendar.setWeekdayTextFormat(day, bold);
}

// The calendar takes longer to make than all the rest, so that it waits until it is opened.
class DatePicker : public QDateEdit {
 public:
  using QDateEdit::QDateEdit;

 protected:
  void childEvent(QChildEvent* event) override {
    QDateEdit::childEvent(event);
    auto* calendar = event->polished() ? event->child()->findChild<QCalendarWidget*>() : nullptr;
    if (calendar) markWeekendsByWeight(*calendar);
  }
};

}  // namespace

QDateEdit* makeDatePicker(const QString& objectName, const QString& accessibleName,
                          QWidget* parent) {
  auto* picker = new DatePicker(parent);
  picker->setObjectName(objectName);
  picker->setAccessibleName(accessibleName);
  picker->setDisplayFormat(u"yyyy-MM-dd"_qs);
  picker->setDateRange(kFirstDate, kLastDate);
  picker->setCalendarPopup(true);
  return picker;
}

}  // namespace vellora
