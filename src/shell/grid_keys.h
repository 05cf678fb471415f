#pragma once

#include "routine/work_step.h"
#include "shell/application_state.h"

#include <QObject>

#include <functional>

class QKeyEvent;

namespace vellora {

class GridSurface;
class StatusLine;

// The print and export keys that every list window's grid answers to: F3 prints, F7 writes an HTML
// file and F8 an Excel file at ExportDir + "\" + base name. A box tells the path when the file is
// saved. A failed export shows no box; the status line tells its reason until the next export.
class GridKeys : public QObject {
  Q_OBJECT

 public:
  // `baseName` gives the list's name at the moment of the key: of the printed document, or of the
  // file, without its extension. Lives as long as the grid.
  GridKeys(GridSurface& grid, ApplicationState& state, StatusLine& status,
           std::function<QString()> baseName);

  // Does what one of the keys asks for and accepts it; false for any other key. The grid's own are
  // answered by themselves.
  bool answer(QKeyEvent* event);

 private:
  using Export = int (GridSurface::*)(const QString& path, QString* reason,
                                      const WorkProgress& progress) const;

  void print();
  void exportList(Export write, const QString& extension);
  bool writeList(Export write, const QString& path, QString* reason);

  GridSurface& grid_;
  ApplicationState& state_;
  StatusLine& status_;
  std::function<QString()> base_name_;
};

}  // namespace vellora
