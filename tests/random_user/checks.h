#pragma once

#include "random_user/script.h"
#include "shell/planner_window.h"

#include <QPointer>

#include <memory>

namespace vellora::test {

// What a habit remembers while it is followed, and what must hold at its end.
class Checks {
 public:
  using Tell = std::function<void(const QString& fault, const QString& details)>;
  Checks(Script& script, Tell tell);

  // Gives the name of the window's date picker.
  QString noteDate();
  // Whether the window still takes keys, or a box has come up.
  void noteHand();
  void noteTyped(const QString& text) { notes_->typed = text; }
  void noteCells();
  // Takes back the one row that has changed since, if there is one.
  void undo();
  void sameAfterUndo();
  void sameAfterEscape();
  void showsTypedDate();
  void showsOldDate();

 private:
  struct Notes {
    QPointer<PlannerWindow> window;
    QStringList rows;
    QStringList edit;
    QString typed;
    QString picker;
    QString date;
    bool isInHand = false;

    QStringList changes() const;
  };

  void compare(const QString& fault, bool afterUndo);
  void compareDate(const QString& fault, bool isTaken);

  Script& script_;
  Tell tell_;
  std::shared_ptr<Notes> notes_ = std::make_shared<Notes>();
};

}  // namespace vellora::test
