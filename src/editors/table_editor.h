#pragma once

#include "schedule/whole_table.h"
#include "shell/edited_window.h"

#include <functional>

class QHBoxLayout;

namespace vellora {

// A window that edits one table whole in one grid. The grid is the working copy: 打开 reads the
// table again, 保存 replaces the table.
class TableEditor : public EditedWindow {
  Q_OBJECT

 public:
  struct Kind {
    QString objectName;
    QString caption;
    QString gridName;      // what assistive tools call the grid
    QString documentName;  // of prints and exports
    QString emptyHint;     // what to do while there are no rows
    QSize size;            // at which the window opens
    void (*setUp)(Sheet&);
    TableRows (*load)(ScheduleStore&, Sheet&);  // throws StoreError
    // Throws CellRefused, StoreError.
    TableRows (*save)(ScheduleStore&, const Sheet&, const TableRows* asRead);
    Changes (*changes)(const Sheet&, const TableRows& stored);
  };

 protected:
  // Takes the widgets that stand above and below the grid; either may be null.
  TableEditor(ApplicationState& state, const Kind& kind, QWidget* above, QWidget* below,
              QWidget* parent);

  GridSurface& grid() const { return *grid_; }
  // Moves the current cell as the program does it: no CellEntered.
  void moveTo(int col, int row);
  // Changes of the program, as one undo step. Says and shows what is wrong when the change is
  // refused.
  void change(const QString& name, const std::function<void()>& changes);

  void onActivate() override;
  Changes changes() override;
  bool save() override;
  // Saves the grid; throws CellRefused and StoreError.
  virtual TableRows write(const TableRows* asRead);
  const TableRows& stored() const { return stored_; }
  void readAgain() override { open(); }
  void setTypable(bool on) override;
  void finishTyping() override;

 private:
  QHBoxLayout* makeButtons();
  void open();
  void showStored();
  void show(const CellRefused& refused);

  Kind kind_;
  GridSurface* grid_ = nullptr;
  QPushButton* save_ = nullptr;
  TableRows stored_;  // when the table was last read or saved
};

}  // namespace vellora
