#pragma once

#include "shell/application_state.h"

#include <QObject>

#include <functional>

class QKeyEvent;

namespace vellora {

class GridSurface;

// The print and export keys that every list window's grid answers to: F3 prints, F7 writes an HTML
// file and F8 an Excel file at ExportDir + "\" + base name. A box tells the path when the file is
// saved. A failed export shows no box; its reason appears beside the grid for a while.
class GridKeys : public QObject {
  Q_OBJECT

 public:
  // `baseName` gives the list's name at the moment of the key: of the printed document, or of the
  // file, without its extension.
  GridKeys(GridSurface& grid, ApplicationState& state, std::function<QString()> baseName);

 signals:
  void ExportFailed(const QString& reason);

 private:
  using Export = int (GridSurface::*)(const QString& path, QString* reason) const;

  void handle(QKeyEvent* event);
  void print();
  void exportList(Export write, const QString& extension);
  void showReason(const QString& reason);

  GridSurface& grid_;
  ApplicationState& state_;
  std::function<QString()> base_name_;
};

}  // namespace vellora
