#pragma once

#include "routine/changes.h"
#include "shell/planner_window.h"

#include <QTimer>

#include <functional>
#include <vector>

class QPushButton;

namespace vellora {

// A window in which something is typed and saved. Its content is not read (reading has not happened
// or has failed), as read, or changed.
//
// Not read: the reason stands in the window with a button to try again, and nothing can be typed or
// saved, so that what was never shown is never replaced. Changed: the window says so, and closing
// asks. What a window discards without asking can be fetched back until it closes.
class EditedWindow : public PlannerWindow {
  Q_OBJECT

 public:
  explicit EditedWindow(ApplicationState& state, QWidget* parent = nullptr);

 protected:
  // What a save would do; asked only while the content is read.
  virtual Changes changes() = 0;
  // Saves and tells what came of it; false when something that could be stored is not.
  virtual bool save() = 0;
  // Reads the content anew, as 刷新 asks for.
  virtual void readAgain() = 0;
  // Lets the content be typed into and saved, or not.
  virtual void setTypable(bool on) = 0;
  // Takes over what is still being typed into a field or a cell.
  virtual void finishTyping() {}

  // Runs what reads the content; what it throws of StoreError is told, in a box unless quietly, and
  // true means that it was read. After a failure what was read before stays, unless forget() was
  // called.
  bool read(const std::function<void()>& reading, bool quietly = false);
  // The window turns to other content, of another date for one: that is not read yet.
  void forget();
  bool isRead() const { return is_read_; }
  // Brings marks and status up to date: what is shown or what is saved has changed.
  void updateChanges();
  // Whether a save would change anything. Looks again.
  bool isChanged();
  // Marks the changed rows of the grid, and looks again whenever it changes.
  void watch(GridSurface& grid);
  // The status, with 刷新 and 找回, which Tab reaches from `before`; to be put above the window's
  // buttons.
  QWidget* editStatus(QWidget* before);
  // Keeps what is about to be discarded; `bringBack` shows it again, false when it cannot yet.
  void keepDiscarded(const std::function<bool()>& bringBack);
  // Runs a save, which throws StoreFault::RowChanged when it would overwrite what another program
  // saved since the reading, unless it is told to overwrite. Then the user is asked; after
  // StoreFault::SavedDespiteError what is saved is read again. False when the window must not say
  // that it has saved; passes on every other StoreError.
  bool saveAsking(const std::function<void(bool overwrite)>& saving);

  bool mayClose() override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QWidget* makeStatus();
  bool overwritesByChoice();
  void showStatus();
  void bringBack();

  bool is_read_ = false;
  bool is_asking_ = false;
  QString reason_;  // why it is not read
  Changes changes_;
  std::vector<std::function<bool()>> discarded_;
  QTimer later_;  // several changes are looked at once
  GridSurface* grid_ = nullptr;
  StatusLine* text_ = nullptr;
  QPushButton* refresh_ = nullptr;
  QPushButton* fetch_ = nullptr;
  QWidget* status_;
};

}  // namespace vellora
