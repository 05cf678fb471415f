#include "shell/planner_window.h"

#include "grid/surface/grid_surface.h"
#include "shell/grid_keys.h"
#include "shell/remembered.h"
#include "shell/skin.h"
#include "shell/status_line.h"

#include <QCloseEvent>
#include <QEventLoop>
#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>

#include <algorithm>

namespace vellora {
namespace {

const QString kMaximized = u"maximized"_qs;

// What a window may take of a screen, so that its frame and the desktop's bars have room too.
QRect roomOn(const QScreen& screen) {
  QRect room = screen.availableGeometry();
  const QPoint centre = room.center();
  room.setSize(room.size() * 9 / 10);
  room.moveCenter(centre);
  return room;
}

QPushButton* defaultButton(const QWidget& window) {
  const auto buttons = window.findChildren<QPushButton*>();
  const auto found = std::find_if(buttons.begin(), buttons.end(),
                                  [](const auto* button) { return button->isDefault(); });
  return found == buttons.end() ? nullptr : *found;
}

}  // namespace

PlannerWindow::PlannerWindow(ApplicationState& state, QWidget* parent)
    : QWidget(parent, Qt::Window), state_(state), status_line_(new StatusLine(this)) {}

void PlannerWindow::putSkinOn() {
  applySkin(state_.SkinPath, *this);
}

void PlannerWindow::showTitle(const QString& title) {
  setWindowTitle(QString(title).replace(u"[*]"_qs, u"[*][*]"_qs));
}

QWidget* PlannerWindow::statusLine() {
  return status_line_;
}

void PlannerWindow::showMessage(const QString& text) {
  status_line_->showMessage(text);
}

void PlannerWindow::answerGridKeys(GridSurface& grid, const std::function<QString()>& baseName) {
  grid_keys_ = new GridKeys(grid, state_, *status_line_, baseName);
}

void PlannerWindow::reportTrimmedPastes(GridSurface& grid) {
  connect(&grid, &GridSurface::PasteCut, this, [this](int rows, int cols) {
    QStringList parts;
    if (rows > 0) parts << u"%1 行"_qs.arg(rows);
    if (cols > 0) parts << u"%1 列"_qs.arg(cols);
    prompts().warn(this,
                   u"粘贴的内容比表格多出 "_qs + parts.join(u'、') + u"，多出的部分没有粘贴。");
  });
}

void PlannerWindow::Load() {
  for (auto* button : findChildren<QPushButton*>()) button->setAutoDefault(!button->isDefault());
  putSkinOn();
  onLoad();
}

QString PlannerWindow::sizeKey() const {
  return u"windows/"_qs + objectName();
}

// No larger than the screen has room for, and over the window that opened it.
void PlannerWindow::placeOnScreen() {
  const QRect room = roomOn(*(parentWidget() ? parentWidget()->screen() : screen()));
  const QSize usual = testAttribute(Qt::WA_Resized) ? size() : sizeHint();
  const QVariant last = remembered(state_).value(sizeKey());
  if (last == kMaximized) setWindowState(Qt::WindowMaximized);
  const QSize wanted = last.toSize().isValid() ? last.toSize() : usual;
  resize(wanted.boundedTo(room.size()).expandedTo(minimumSizeHint()));
  if (!parentWidget()) return;
  QRect place = rect();
  place.moveCenter(parentWidget()->window()->geometry().center());
  place.moveRight(std::min(place.right(), room.right()));
  place.moveBottom(std::min(place.bottom(), room.bottom()));
  place.moveLeft(std::max(place.left(), room.left()));
  place.moveTop(std::max(place.top(), room.top()));
  setGeometry(place);
}

void PlannerWindow::Show() {
  placeOnScreen();
  opened_at_ = size();
  show();
  onActivate();
}

void PlannerWindow::ShowModal() {
  setWindowModality(Qt::ApplicationModal);
  QEventLoop untilClosed;
  connect(this, &PlannerWindow::closed, &untilClosed, &QEventLoop::quit);
  Show();
  untilClosed.exec();
}

void PlannerWindow::closeEvent(QCloseEvent* event) {
  if (!mayClose()) return event->ignore();
  onUnload();
  const QVariant last = isMaximized() ? QVariant(kMaximized) : QVariant(size());
  if (isVisible() && size() != opened_at_) remembered(state_).setValue(sizeKey(), last);
  event->accept();
  emit closed();
}

// What the control with the focus had no use for comes here. A field may have handed the focus on
// to a button by then, which this Enter is not for.
void PlannerWindow::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  const bool isEnter = key == Qt::Key_Return || key == Qt::Key_Enter;
  auto* button = isEnter ? defaultButton(*this) : nullptr;
  if (button && !qobject_cast<QPushButton*>(focusWidget())) {
    button->click();
  } else if (key == Qt::Key_Escape && closesOnEscape()) {
    close();
  } else if (!grid_keys_ || !grid_keys_->answer(event)) {
    QWidget::keyPressEvent(event);
  }
}

}  // namespace vellora
