#pragma once

#include "routine/work_step.h"
#include "shell/planner_window.h"

#include <functional>

class QComboBox;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace vellora {

class FolderList;
class GridSurface;

// Copies the schedule's tables into a backup file and back. Whoever opens the window rebuilds what
// shows the schedule after it has closed.
class BackupWindow : public PlannerWindow {
  Q_OBJECT

 public:
  explicit BackupWindow(ApplicationState& state, QWidget* parent = nullptr);

 protected:
  void onLoad() override;
  void closeEvent(QCloseEvent* event) override;

 private:
  struct Wording {
    QString done;    // with %1 for the number of records
    QString failed;  // follows the reason
  };

  using Job = std::function<qint64(const WorkProgress&)>;  // gives the number of records

  void layOut();
  QLayout* makePlaces();
  QLayout* makeCopies();
  QLayout* makeButtons();
  void showTables();
  void showPath();
  void goToDrive();
  void chooseFile();
  void backUp();
  void restore();
  void restoreFrom(const QString& file);
  void listCopies();
  void restoreCopy();
  void run(const Wording& wording, const Job& job);
  // What the user is told; "" when the work was given up.
  QString outcomeOf(const Wording& wording, const Job& job);
  QString file() const;

  QComboBox* drives_;
  FolderList* folders_;
  QLineEdit* name_;
  QLineEdit* path_;
  QListWidget* copies_;
  QComboBox* tables_;
  GridSurface* grid_;
  bool busy_ = false;
};

}  // namespace vellora
