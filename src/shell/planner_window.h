#pragma once

#include "shell/application_state.h"

#include <QWidget>

#include <functional>

namespace vellora {

class GridKeys;
class GridSurface;
class StatusLine;

// A window's life: Load once before it is shown, Activate when it is opened and again when a window
// that it opened has closed, Unload when it closes. The desktop's focus plays no part, so that
// coming back from a box or another program never reloads what the user typed. Enter presses the
// button that has the focus, else the window's default button.
class PlannerWindow : public QWidget {
  Q_OBJECT

 public:
  explicit PlannerWindow(ApplicationState& state, QWidget* parent = nullptr);

  // Puts the skin on, then runs the window's own load step.
  void Load();
  // Shows the window and activates it; returns at once. It opens at the size that the user last
  // gave it, else at that it was made with, else at what its content asks for, bounded by the
  // screen.
  void Show();
  // Shows the window over its parent, activates it, and returns when it has closed.
  void ShowModal();
  void Activate() { onActivate(); }

 protected:
  virtual void onLoad() {}
  virtual void onActivate() {}
  virtual void onUnload() {}
  // Asked before the window closes, whatever wants to close it.
  virtual bool mayClose() { return true; }
  // Whether Escape may close the window at all.
  virtual bool closesOnEscape() const { return true; }

  ApplicationState& state() { return state_; }
  const ApplicationState& state() const { return state_; }
  Prompts& prompts() { return state_.prompts; }
  void putSkinOn();
  // Shows a title as it stands; Qt alone would read "[*]" in it as a mark of its own.
  void showTitle(const QString& title);
  // For what the user should know but need not answer; to be put where the window's list ends.
  QWidget* statusLine();
  void showMessage(const QString& text);
  // From now on the grid answers to the print and export keys, wherever in the window the focus is;
  // see grid_keys.h.
  void answerGridKeys(GridSurface& grid, const std::function<QString()>& baseName);
  // From now on tells the user what a paste into the grid had to leave out.
  void reportTrimmedPastes(GridSurface& grid);

  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 signals:
  void closed();

 private:
  void placeOnScreen();
  QString sizeKey() const;

  ApplicationState& state_;
  StatusLine* status_line_;
  QSize opened_at_;
  GridKeys* grid_keys_ = nullptr;  // goes with its grid
};

}  // namespace vellora
