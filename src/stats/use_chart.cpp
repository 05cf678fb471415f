#include "stats/use_chart.h"

#include "grid/print/drawn_style.h"
#include "schedule/time_use.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>

#include <algorithm>

namespace vellora {
namespace {

// Pixels.
constexpr int kAxisWidth = 48;
constexpr int kLegendHeight = 30;
constexpr int kLabelHeight = 36;
constexpr int kTopMargin = 12;
constexpr int kLeastColumn = 44;
constexpr int kMostColumn = 84;

constexpr int kMinutesInAnHour = 60;

// The hours between two lines of the axis, so that there are about five.
qint64 axisStep(qint64 hours) {
  for (const qint64 step : {1, 2, 4, 8, 12, 24, 48}) {
    if (hours <= step * 6) return step;
  }
  return hours / 5;
}

}  // namespace

UseChart::UseChart(QWidget* parent) : QAbstractScrollArea(parent) {
  setObjectName(u"UseChart"_qs);
  setAccessibleName(u"按周图"_qs);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setFocusPolicy(Qt::StrongFocus);
  viewport()->setMouseTracking(true);
  setMinimumHeight(200);
}

void UseChart::show(std::vector<PeriodUse> uses) {
  uses_ = std::move(uses);
  updateScrollBar();
  makeCurrent(0);
  viewport()->update();
}

void UseChart::setHint(const QString& hint) {
  hint_ = hint;
  viewport()->update();
}

std::vector<UseChart::Part> UseChart::partsOf(const PeriodUse& use) {
  std::vector<Part> parts;
  for (std::size_t i = 0; i < use.planned.size(); ++i) {
    const Category& category = categories()[i];
    parts.push_back({category.label, use.planned[i], colourOf(category.colour)});
  }
  parts.push_back({u"其他"_qs, use.other, QColor(128, 128, 128)});
  parts.push_back({u"空闲"_qs, use.free, QColor()});
  return parts;
}

QRect UseChart::area() const {
  return viewport()->rect().adjusted(kAxisWidth, kLegendHeight + kTopMargin, -8, -kLabelHeight);
}

int UseChart::columnWidth() const {
  const int count = std::max(1, static_cast<int>(uses_.size()));
  return std::clamp(area().width() / count, kLeastColumn, kMostColumn);
}

QRect UseChart::columnRect(int column) const {
  const int width = columnWidth();
  return {area().left() + column * width - horizontalScrollBar()->value(), area().top(), width,
          area().height()};
}

int UseChart::columnAt(QPoint point) const {
  if (uses_.empty() || point.x() < area().left()) return -1;
  const int column = (point.x() - area().left() + horizontalScrollBar()->value()) / columnWidth();
  return column < static_cast<int>(uses_.size()) ? column : -1;
}

qint64 UseChart::mostMinutes() const {
  qint64 most = kMinutesInAnHour;
  for (const PeriodUse& use : uses_) most = std::max(most, use.plannedInAll() + use.free);
  return most;
}

QString UseChart::textOf(int column) const {
  const PeriodUse& use = uses_[static_cast<std::size_t>(column)];
  QStringList lines{periodText(use)};
  for (const Part& part : partsOf(use)) {
    if (part.minutes != 0) lines << part.label + u"  "_qs + durationText(part.minutes);
  }
  return lines.join(u'\n');
}

void UseChart::makeCurrent(int column) {
  if (uses_.empty()) return setAccessibleDescription(hint_);
  current_ = std::clamp(column, 0, static_cast<int>(uses_.size()) - 1);
  const QRect shown = columnRect(current_);
  auto& bar = *horizontalScrollBar();
  if (shown.left() < area().left()) bar.setValue(bar.value() + shown.left() - area().left());
  if (shown.right() > area().right()) bar.setValue(bar.value() + shown.right() - area().right());
  setAccessibleDescription(textOf(current_));
  QAccessibleEvent changed(this, QAccessible::DescriptionChanged);
  QAccessible::updateAccessibility(&changed);
  viewport()->update();
}

void UseChart::updateScrollBar() {
  const int all = columnWidth() * static_cast<int>(uses_.size());
  horizontalScrollBar()->setRange(0, std::max(0, all - area().width()));
  horizontalScrollBar()->setPageStep(area().width());
  horizontalScrollBar()->setSingleStep(columnWidth());
}

void UseChart::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(viewport());
  painter.setFont(font());
  if (uses_.empty()) {
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap, hint_);
    return;
  }
  paintLegend(painter);
  paintAxis(painter);
  painter.setClipRect(area().adjusted(0, -kTopMargin, 0, kLabelHeight));
  for (int i = 0; i < static_cast<int>(uses_.size()); ++i) {
    if (columnRect(i).intersects(area())) paintColumn(painter, i);
  }
}

void UseChart::paintLegend(QPainter& painter) const {
  constexpr int kSign = 11;  // pixels
  constexpr int kGap = 6;
  int x = kAxisWidth;
  for (const Part& part : partsOf({})) {
    const QRect sign(x, (kLegendHeight - kSign) / 2, kSign, kSign);
    if (part.colour.isValid()) painter.fillRect(sign, part.colour);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(sign.adjusted(0, 0, -1, -1));
    painter.setPen(palette().color(QPalette::Text));
    const int width = fontMetrics().horizontalAdvance(part.label);
    painter.drawText(QRect(sign.right() + kGap, 0, width, kLegendHeight), Qt::AlignVCenter,
                     part.label);
    x = sign.right() + 3 * kGap + width;
  }
}

void UseChart::paintAxis(QPainter& painter) const {
  const qint64 hours = mostMinutes() / kMinutesInAnHour;
  const qint64 step = axisStep(hours);
  for (qint64 hour = 0; hour <= hours; hour += step) {
    const int y = area().bottom() -
                  static_cast<int>(hour * kMinutesInAnHour * area().height() / mostMinutes());
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawLine(area().left(), y, area().right(), y);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(QRect(0, y - 10, kAxisWidth - 6, 20), Qt::AlignRight | Qt::AlignVCenter,
                     u"%1 时"_qs.arg(hour));
  }
}

// Every part ends at a sum of minutes, so that rounding to pixels never adds up.
void UseChart::paintColumn(QPainter& painter, int column) const {
  constexpr int kBetween = 5;  // pixels to each side
  const PeriodUse& use = uses_[static_cast<std::size_t>(column)];
  const QRect rect = columnRect(column).adjusted(kBetween, 0, -kBetween, 0);
  const auto heightOf = [&](qint64 minutes) {
    return static_cast<int>(minutes * rect.height() / mostMinutes());
  };
  qint64 below = 0;
  for (const Part& part : partsOf(use)) {
    const qint64 minutes = std::max<qint64>(part.minutes, 0);
    const QRect bar(QPoint(rect.left(), rect.bottom() - heightOf(below + minutes) + 1),
                    QPoint(rect.right(), rect.bottom() - heightOf(below)));
    below += minutes;
    if (bar.height() <= 0) continue;
    if (part.colour.isValid()) painter.fillRect(bar, part.colour);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(bar.adjusted(0, 0, -1, -1));
  }
  painter.setPen(palette().color(QPalette::Text));
  const QRect label(columnRect(column).left(), area().bottom() + 3, columnWidth(), kLabelHeight);
  const QString second =
      use.first == use.last ? use.first.toString(u"ddd") : u"%1周"_qs.arg(use.first.weekNumber());
  painter.drawText(label, Qt::AlignHCenter | Qt::AlignTop,
                   use.first.toString(u"M-d") + u'\n' + second);
  if (column != current_ || !hasFocus()) return;
  painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
  painter.drawRect(columnRect(column).adjusted(1, -4, -1, 1));
}

void UseChart::resizeEvent(QResizeEvent* /*event*/) {
  updateScrollBar();
}

void UseChart::focusInEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusInEvent(event);
  viewport()->update();
}

void UseChart::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  const bool isEnter = key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space;
  if (uses_.empty()) return QAbstractScrollArea::keyPressEvent(event);
  if (key == Qt::Key_Left) return makeCurrent(current_ - 1);
  if (key == Qt::Key_Right) return makeCurrent(current_ + 1);
  if (key == Qt::Key_Home) return makeCurrent(0);
  if (key == Qt::Key_End) return makeCurrent(static_cast<int>(uses_.size()) - 1);
  if (isEnter) emit chosen(uses_[static_cast<std::size_t>(current_)].first);
  if (!isEnter) QAbstractScrollArea::keyPressEvent(event);
}

void UseChart::mouseReleaseEvent(QMouseEvent* event) {
  const int column = columnAt(event->position().toPoint());
  if (event->button() != Qt::LeftButton || column < 0) return;
  emit chosen(uses_[static_cast<std::size_t>(column)].first);
}

bool UseChart::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QAbstractScrollArea::viewportEvent(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  const int column = columnAt(help->pos());
  QToolTip::showText(help->globalPos(), column < 0 ? QString() : textOf(column), viewport());
  return true;
}

}  // namespace vellora
