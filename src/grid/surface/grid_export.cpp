#include "grid/files/excel_writer.h"
#include "grid/files/html_writer.h"
#include "grid/surface/grid_surface.h"

#include <QFileInfo>

namespace vellora {
namespace {

template <typename Writer>
int exported(Writer write, const GridSurface& grid, const QString& path, QString* reason) {
  try {
    const QString title = QFileInfo(path).completeBaseName();
    write(grid.sheet(), grid.workbook().pageSetup, title, path);
    return 1;
  } catch (const FileError& error) {
    if (reason) *reason = error.description();
    return 0;
  }
}

}  // namespace

int GridSurface::ExportHtml(const QString& path, QString* reason) const {
  return exported(writeHtmlFile, *this, path, reason);
}

int GridSurface::ExportExcel(const QString& path, QString* reason) const {
  return exported(writeExcelFile, *this, path, reason);
}

}  // namespace vellora
