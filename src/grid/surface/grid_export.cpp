#include "grid/files/excel_writer.h"
#include "grid/files/html_writer.h"
#include "grid/surface/grid_surface.h"

#include <QFileInfo>

namespace vellora {
namespace {

template <typename Writer>
int exported(Writer write, const GridSurface& grid, const QString& path, QString* reason,
             const WorkProgress& progress) {
  try {
    const QString title = QFileInfo(path).completeBaseName();
    write(grid.sheet(), grid.workbook().pageSetup, title, path, progress);
    return 1;
  } catch (const FileError& error) {
    if (reason) *reason = error.description();
    return 0;
  } catch (const WorkGivenUp&) {
    if (reason) *reason = u"已取消，原来的文件没有改动。"_qs;
    return 0;
  }
}

}  // namespace

int GridSurface::ExportHtml(const QString& path, QString* reason,
                            const WorkProgress& progress) const {
  return exported(writeHtmlFile, *this, path, reason, progress);
}

int GridSurface::ExportExcel(const QString& path, QString* reason,
                             const WorkProgress& progress) const {
  return exported(writeExcelFile, *this, path, reason, progress);
}

}  // namespace vellora
