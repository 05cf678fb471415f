#include "shell/calendar_popup.h"

#include <QCalendarWidget>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QTextCharFormat>
#include <QVBoxLayout>

#include <algorithm>

namespace vellora {
namespace {

class RingedCalendar : public QCalendarWidget {
 public:
  RingedCalendar(QDate today, QWidget* parent) : QCalendarWidget(parent), today_(today) {}

 protected:
  void paintCell(QPainter* painter, const QRect& cell, QDate day) const override {
    QCalendarWidget::paintCell(painter, cell, day);
    if (day != today_) return;
    const bool isSelected = day == selectedDate();
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(
        QPen(palette().color(isSelected ? QPalette::HighlightedText : QPalette::Text), 1.5));
    painter->drawRoundedRect(cell.adjusted(2, 2, -2, -2), 5, 5);
    painter->restore();
  }

 private:
  QDate today_;
};

// The usual red of the weekend cannot be read well on every skin.
void markWeekendsByWeight(QCalendarWidget& calendar) {
  QTextCharFormat bold;
  bold.setFontWeight(QFont::Bold);
  for (const auto day : {Qt::Saturday, Qt::Sunday}) calendar.setWeekdayTextFormat(day, bold);
}

}  // namespace

CalendarPopup::CalendarPopup(const Days& days, QWidget* field)
    : QFrame(field, Qt::Popup), calendar_(new RingedCalendar(days.today, this)) {
  setAttribute(Qt::WA_DeleteOnClose);
  setFrameShape(QFrame::StyledPanel);
  calendar_->setDateRange(days.first, days.last);
  calendar_->setFirstDayOfWeek(Qt::Monday);
  calendar_->setVerticalHeaderFormat(QCalendarWidget::ISOWeekNumbers);
  calendar_->setSelectedDate(days.selected);
  markWeekendsByWeight(*calendar_);
  auto* today = new QPushButton(u"今天"_qs, this);
  auto* all = new QVBoxLayout(this);
  all->addWidget(calendar_);
  all->addWidget(today);
  connect(today, &QPushButton::clicked, this, [this, day = days.today] { pick(day); });
  connect(calendar_, &QCalendarWidget::clicked, this, &CalendarPopup::pick);
  connect(calendar_, &QCalendarWidget::activated, this, &CalendarPopup::pick);
}

void CalendarPopup::open() {
  const QWidget& field = *parentWidget();
  const QRect room = field.screen()->availableGeometry();
  QRect place(field.mapToGlobal(QPoint(0, field.height())), sizeHint());
  if (place.bottom() > room.bottom()) place.moveBottom(field.mapToGlobal(QPoint()).y() - 1);
  place.moveLeft(std::max(room.left(), std::min(place.left(), room.right() - place.width())));
  place.moveTop(std::max(place.top(), room.top()));
  setGeometry(place);
  show();
  calendar_->setFocus();
}

// An Enter on a day tells of it twice.
void CalendarPopup::pick(QDate day) {
  if (!isVisible()) return;
  close();
  emit picked(day);
}

}  // namespace vellora
