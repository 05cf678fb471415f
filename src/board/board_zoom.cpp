#include "board/board_zoom.h"

#include "grid/surface/grid_surface.h"
#include "shell/remembered.h"

#include <QEvent>
#include <QShortcut>
#include <QWheelEvent>

#include <algorithm>

namespace vellora {
namespace {

// In percent; a text of the board is 12 pixels high at 113.
constexpr int kLeast = 80;
constexpr int kMost = 250;
constexpr int kStep = 10;
constexpr int kLeastFitting = 113;
constexpr int kMostFitting = 150;

constexpr int kRowHeight = 38;    // pixels at 100 %: two lines of the board's font
constexpr int kColumnWidth = 76;  // seven characters

const QString kZoomKey = u"board/zoom"_qs;

}  // namespace

BoardZoom::BoardZoom(GridSurface& grid, const ApplicationState& state,
                     const std::function<void(const QString& message)>& say)
    : grid_(grid), state_(state), say_(say) {
  percent_ = remembered(state).value(kZoomKey).toInt();
  if (percent_ != 0) percent_ = std::clamp(percent_, kLeast, kMost);
  grid.viewport()->installEventFilter(this);
  const auto add = [&](const QKeySequence& keys, auto act) {
    auto* shortcut = new QShortcut(keys, grid.window());
    connect(shortcut, &QShortcut::activated, this, act);
  };
  add(QKeySequence::ZoomIn, [this] { step(1); });
  add(Qt::CTRL | Qt::Key_Equal, [this] { step(1); });
  add(QKeySequence::ZoomOut, [this] { step(-1); });
  add(Qt::CTRL | Qt::Key_0, [this] { choose(0); });
}

void BoardZoom::fit() {
  grid_.setZoom((percent_ == 0 ? fitting() : percent_) / 100.0);
}

int BoardZoom::fitting() const {
  const QSize room = grid_.viewport()->size();
  const int byHeight = room.height() / std::max(grid_.Rows(), 1) * 100 / kRowHeight;
  const int byWidth = room.width() * 100 / (kColumnWidth * std::max(grid_.Cols(), 1));
  return std::clamp(std::min(byHeight, byWidth), kLeastFitting, kMostFitting);
}

void BoardZoom::step(int direction) {
  const int shown = qRound(grid_.zoom() * 100);
  const int next = direction > 0 ? shown / kStep + 1 : (shown + kStep - 1) / kStep - 1;
  choose(std::clamp(next * kStep, kLeast, kMost));
}

void BoardZoom::choose(int percent) {
  percent_ = percent;
  remembered(state_).setValue(kZoomKey, percent);
  fit();
  say_(percent == 0 ? u"显示比例：适合窗口"_qs : u"显示比例：%1%"_qs.arg(percent));
}

bool BoardZoom::eventFilter(QObject* watched, QEvent* event) {
  // Without blocks there is no text, and its size would only load a font.
  if (event->type() == QEvent::Resize && grid_.Rows() > 1) fit();
  if (event->type() == QEvent::Wheel) {
    const auto* wheel = static_cast<QWheelEvent*>(event);
    if (wheel->modifiers() == Qt::ControlModifier) {
      if (wheel->angleDelta().y() != 0) step(wheel->angleDelta().y());
      return true;
    }
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace vellora
