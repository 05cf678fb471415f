#pragma once

#include "shell/application_state.h"

#include <QObject>

#include <functional>

class QKeyEvent;

namespace vellora {

class GridSurface;

// The print and export keys that every list window's grid answers to: F3 prints.
class GridKeys : public QObject {
  Q_OBJECT

 public:
  // `baseName` gives the list's name at the moment of the key: the name of the printed document.
  GridKeys(GridSurface& grid, ApplicationState& state, std::function<QString()> baseName);

 private:
  void handle(QKeyEvent* event);

  GridSurface& grid_;
  std::function<QString()> base_name_;
};

}  // namespace vellora
