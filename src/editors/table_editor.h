#pragma once

#include "shell/planner_window.h"

#include <functional>

class QHBoxLayout;

namespace vellora {

class CellRefused;
class GridSurface;
class Sheet;

// A window that edits one table whole in one grid. The grid is the working copy: 打开 reads the
// table again and drops what was not saved, 保存 replaces the table, closing saves nothing.
class TableEditor : public PlannerWindow {
  Q_OBJECT

 public:
  struct Kind {
    QString objectName;
    QString caption;
    QString gridName;      // what assistive tools call the grid
    QString documentName;  // of prints and exports
    QSize size;            // at which the window opens
    void (*setUp)(Sheet&);
    void (*load)(ScheduleStore&, Sheet&);        // throws StoreError
    void (*save)(ScheduleStore&, const Sheet&);  // throws CellRefused, StoreError
  };

 protected:
  // Takes the widgets that stand above and below the grid; either may be null.
  TableEditor(ApplicationState& state, const Kind& kind, QWidget* above, QWidget* below,
              QWidget* parent);

  GridSurface& grid() const { return *grid_; }
  // Moves the current cell as the program does it: no CellEntered.
  void moveTo(int col, int row);
  // Changes of the program that closing would lose, as one undo step. Says and shows what is wrong
  // when the change is refused.
  void change(const QString& name, const std::function<void()>& changes);

  void activate() override;
  bool hasUnsavedTyping() const override;

 private:
  QHBoxLayout* makeButtons();
  void closeCell();
  void open();
  void save();
  void show(const CellRefused& refused);

  Kind kind_;
  GridSurface* grid_;
  bool changed_ = false;         // by the program, since the table was read
  quint64 stored_revision_ = 0;  // of the sheet when it was last read or saved
};

}  // namespace vellora
