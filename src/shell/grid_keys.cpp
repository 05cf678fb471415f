#include "shell/grid_keys.h"

#include "grid/files/export_file.h"
#include "grid/surface/grid_surface.h"
#include "routine/calendar_text.h"
#include "shell/drives.h"
#include "shell/status_line.h"
#include "shell/work_dialog.h"

#include <QKeyEvent>

namespace vellora {

GridKeys::GridKeys(GridSurface& grid, ApplicationState& state, StatusLine& status,
                   std::function<QString()> baseName)
    : QObject(&grid), grid_(grid), state_(state), status_(status), base_name_(std::move(baseName)) {
  connect(&grid, &GridSurface::GridKeyDown, this, &GridKeys::answer);
  grid.setDocumentName(base_name_);
  grid.setPageTitle([this] { return PageTitle{base_name_(), isoDate(state_.clock.today())}; });
  grid.setWorkRunner(runWithDialog);
}

bool GridKeys::answer(QKeyEvent* event) {
  const int key = event->key();
  if (key != Qt::Key_F3 && key != Qt::Key_F7 && key != Qt::Key_F8) return false;
  event->accept();
  status_.showMessage({});
  if (key == Qt::Key_F3) print();
  if (key == Qt::Key_F7) exportList(&GridSurface::ExportHtml, u".HTM"_qs);
  if (key == Qt::Key_F8) exportList(&GridSurface::ExportExcel, u".xls"_qs);
  return true;
}

void GridKeys::print() {
  grid_.PrintSheet(false);
}

// The message shows the path as the list's name gives it, the file's name holds what it can.
void GridKeys::exportList(Export write, const QString& extension) {
  const QString name = base_name_() + extension;
  const QString folder = state_.ExportDir + u'\\';
  QString reason;
  if (writeList(write, folder + fileNameFor(name), &reason)) {
    state_.prompts.inform(grid_.window(), folder + name + u"已保存！");
  } else {
    status_.showMessage(u"没有导出："_qs + reason);
  }
}

bool GridKeys::writeList(Export write, const QString& path, QString* reason) {
  try {
    const QString file = realPath(path);
    WorkDialog dialog(grid_.window());
    return (grid_.*write)(file, reason, dialog.progress()) == 1;
  } catch (const FileError& error) {
    *reason = error.description();
    return false;
  }
}

}  // namespace vellora
