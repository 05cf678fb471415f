#pragma once

#include "schedule/calendar_import.h"
#include "schedule/time_blocks.h"
#include "shell/planner_window.h"

#include <functional>

class QCheckBox;
class QComboBox;
class QLabel;
class QListWidget;
class QPushButton;

namespace vellora {

class DatePicker;
class ElidedLabel;
class GridSurface;

// Shows what a calendar file would bring into the schedule, and brings it in once the user agrees.
class CalendarImportWindow : public PlannerWindow {
  Q_OBJECT

 public:
  explicit CalendarImportWindow(ApplicationState& state, QWidget* parent = nullptr);

 protected:
  void onLoad() override;
  // The first thing is to choose a file.
  void onActivate() override;

 private:
  void layOut();
  QLayout* makeFileLine();
  QLayout* makeConflictLine();
  QLayout* makeActivities();
  QLayout* makeButtons();
  void chooseFile();
  void open(const QString& path);
  // Compares the file with the schedule anew, for the chosen days.
  void compare();
  void show(CalendarImport import);
  void markConflicts();
  void showCategory();
  void setCategory();
  void setReplaces(int row, bool replaces);
  void setAll(bool replace);
  void toggle(int row);
  void updateButtons();
  void save();
  // Tells a failure; false when there was one or the user gave it up.
  bool guarded(const std::function<void(const WorkProgress&)>& work);

  ElidedLabel* name_;
  DatePicker* first_;
  DatePicker* last_;
  GridSurface* grid_;
  QPushButton* replace_all_;
  QPushButton* keep_all_;
  QListWidget* activities_;
  QComboBox* category_;
  QCheckBox* memos_;
  QLabel* summary_;
  QPushButton* import_button_;
  bool has_asked_ = false;
  QString folder_;
  CalendarFile file_;
  CalendarOccurrences occurrences_;  // of the file
  CalendarImport import_;            // of the file
  TimeBlockList blocks_;
};

}  // namespace vellora
