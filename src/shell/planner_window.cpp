#include "shell/planner_window.h"

#include "grid/surface/grid_surface.h"
#include "shell/grid_keys.h"
#include "shell/skin.h"
#include "shell/status_line.h"

#include <QCloseEvent>
#include <QEventLoop>
#include <QKeyEvent>

namespace vellora {

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

void PlannerWindow::answerGridKeys(GridSurface& grid, const std::function<QString()>& baseName) {
  new GridKeys(grid, state_, *status_line_, baseName);
}

void PlannerWindow::tellCutPastes(GridSurface& grid) {
  connect(&grid, &GridSurface::PasteCut, this, [this](int rows, int cols) {
    prompts().warn(
        this, u"粘贴的内容比表格多出 %1 行、%2 列，多出的部分没有粘贴。"_qs.arg(rows).arg(cols));
  });
}

void PlannerWindow::Load() {
  putSkinOn();
  load();
}

void PlannerWindow::Show() {
  show();
  activate();
}

void PlannerWindow::ShowModal() {
  setWindowModality(Qt::ApplicationModal);
  QEventLoop untilClosed;
  connect(this, &PlannerWindow::closed, &untilClosed, &QEventLoop::quit);
  Show();
  untilClosed.exec();
}

void PlannerWindow::closeEvent(QCloseEvent* event) {
  unload();
  event->accept();
  emit closed();
}

void PlannerWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Escape || !closesOnEscape() || hasUnsavedTyping()) {
    QWidget::keyPressEvent(event);
    return;
  }
  close();
}

}  // namespace vellora
