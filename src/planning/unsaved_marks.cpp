#include "planning/unsaved_marks.h"

#include <QEvent>
#include <QHeaderView>
#include <QPainter>
#include <QScrollBar>
#include <QTableView>

#include <algorithm>

namespace vellora {
namespace {

constexpr int kBarWidth = 5;               // pixels at 100 %
constexpr QColor kBarColour(224, 122, 0);  // seen on light and on dark cells

}  // namespace

UnsavedMarks::UnsavedMarks(QTableView& grid)
    : QWidget(&grid), grid_(grid), viewport_(*grid.viewport()) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFocusPolicy(Qt::NoFocus);
  viewport_.installEventFilter(this);
  const auto repaint = qOverload<>(&QWidget::update);
  connect(grid.verticalScrollBar(), &QScrollBar::valueChanged, this, repaint);
  connect(grid.verticalHeader(), &QHeaderView::sectionResized, this, repaint);
  cover();
}

void UnsavedMarks::setRows(std::vector<int> rows) {
  rows_ = std::move(rows);
  update();
}

void UnsavedMarks::cover() {
  QRect edge = viewport_.geometry();
  edge.setWidth(kBarWidth);
  setGeometry(edge);
  raise();
}

bool UnsavedMarks::eventFilter(QObject* watched, QEvent* event) {
  const bool hasMoved = event->type() == QEvent::Resize || event->type() == QEvent::Move ||
                        event->type() == QEvent::Show;
  if (watched == &viewport_ && hasMoved) cover();
  return QWidget::eventFilter(watched, event);
}

void UnsavedMarks::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const int first = std::max(grid_.rowAt(0), 0);
  for (auto row = std::lower_bound(rows_.begin(), rows_.end(), first); row != rows_.end(); ++row) {
    const int top = grid_.rowViewportPosition(*row);
    if (top > height()) return;
    painter.fillRect(0, top, kBarWidth, grid_.rowHeight(*row) - 1, kBarColour);
  }
}

}  // namespace vellora
