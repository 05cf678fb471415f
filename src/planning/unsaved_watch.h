#pragma once

#include "grid/sheet/sheet.h"

#include <QObject>
#include <QTimer>

#include <functional>

class QLabel;

namespace vellora {

class GridSurface;

// Keeps the unsaved rows of a grid marked, and tells how many they are, whatever changes the grid.
class UnsavedWatch : public QObject {
  Q_OBJECT

 public:
  using Question = std::function<bool(const Sheet& sheet, int row)>;

  UnsavedWatch(GridSurface& grid, QLabel& notice, Question isUnsaved);

  // Looks at every row again: after a listing or a save, when the answers may be others.
  void lookAgain();
  bool hasUnsaved();

 private:
  void catchUp();

  GridSurface& grid_;
  QLabel& notice_;
  Question is_unsaved_;
  QTimer later_;  // several changes are looked at once
  quint64 seen_revision_ = 0;
};

}  // namespace vellora
