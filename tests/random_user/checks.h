#pragma once

#include "random_user/script.h"
#include "shell/planner_window.h"

#include <QPointer>

#include <memory>

namespace vellora::test {

// `fault` says in a few words what is wrong, always the same for the same fault.
using Tell = std::function<void(const QString& fault, const QString& details)>;

// What a habit remembers while it is followed, and what must hold at its end.
class Checks {
 public:
  Checks(Script& script, Tell tell) : script_(script), tell_(std::move(tell)) {}

  void noteCells();
  // Takes back the one row that has changed since, if there is one.
  void undo();
  // Every row is again as it was noted, after an undo or after Escape.
  void compareCells(const QString& fault, bool afterUndo);

  // Gives the name of the window's date picker.
  QString noteDate();
  // Whether the window still takes keys, or a box has come up.
  void noteHand();
  void noteTyped(const QString& text) { notes_->typed = text; }
  // The date that was typed is taken, or given up.
  void compareDate(const QString& fault, bool isTaken);

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

  Script& script_;
  Tell tell_;
  std::shared_ptr<Notes> notes_ = std::make_shared<Notes>();
};

}  // namespace vellora::test
