#include "shell/grid_keys.h"

#include "grid/surface/grid_surface.h"
#include "shell/drives.h"

#include <QKeyEvent>
#include <QToolTip>

namespace vellora {
namespace {

constexpr int kReasonShown = 15'000;  // milliseconds

}  // namespace

GridKeys::GridKeys(GridSurface& grid, ApplicationState& state, std::function<QString()> baseName)
    : QObject(&grid), grid_(grid), state_(state), base_name_(std::move(baseName)) {
  connect(&grid, &GridSurface::GridKeyDown, this, &GridKeys::handle);
  connect(this, &GridKeys::ExportFailed, this, &GridKeys::showReason);
}

void GridKeys::handle(QKeyEvent* event) {
  const int key = event->key();
  if (key != Qt::Key_F3 && key != Qt::Key_F7 && key != Qt::Key_F8) return;
  event->accept();
  if (key == Qt::Key_F3) print();
  if (key == Qt::Key_F7) exportList(&GridSurface::ExportHtml, u".HTM"_qs);
  if (key == Qt::Key_F8) exportList(&GridSurface::ExportExcel, u".xls"_qs);
}

void GridKeys::print() {
  grid_.setDocumentName(base_name_());
  grid_.PrintSheet(false);
}

// The message shows the path as the list's name gives it, the file's name holds what it can.
void GridKeys::exportList(Export write, const QString& extension) {
  const QString name = base_name_() + extension;
  const QString folder = state_.ExportDir + u'\\';
  QString reason;
  if ((grid_.*write)(realPath(folder + fileNameFor(name)), &reason) == 1) {
    grid_.setAccessibleDescription({});
    state_.prompts.inform(grid_.window(), folder + name + u"已保存！");
  } else {
    emit ExportFailed(reason);
  }
}

void GridKeys::showReason(const QString& reason) {
  grid_.setAccessibleDescription(reason);
  const QPoint below = grid_.mapToGlobal(grid_.rect().bottomLeft());
  QToolTip::showText(below, reason.toHtmlEscaped(), &grid_, {}, kReasonShown);
}

}  // namespace vellora
