#pragma once

#include "random_user/shown.h"

#include <QPointer>
#include <QWidget>

#include <SQLiteCpp/Database.h>
#include <functional>

namespace vellora::test {

// Reads a schedule past the program, on a connection of its own.
class TableReader {
 public:
  explicit TableReader(const QString& path);

  const Tables& tables() const { return tables_; }
  // Reads again; true when anything was written since the last time. Does nothing while another
  // program keeps the file locked.
  bool readChanges();

 private:
  Rows rowsOf(const QString& table);

  SQLite::Database database_;
  int version_ = -1;
  Tables tables_;
};

// Looks at windows and tables before and after everything that the user does, and tells what must
// not be.
class Witness {
 public:
  // `tell` gets what is wrong in a few words, always the same for the same fault, and the details.
  using Tell = std::function<void(const QString& fault, const QString& details)>;
  Witness(const QString& schedule, Tell tell);

  // Changes of another program, which are no fault of this one.
  void lookAway();
  void lookBefore(bool mayWrite);
  void lookAfter();
  // The program has ended, every window with it.
  void forget();

 private:
  // The window in the user's hand, since it was opened.
  struct Desk {
    QPointer<PlannerWindow> window;
    QString title;
    bool isFresh = false;      // opened without what is stored in its place
    bool hasTimes = false;     // its first column was seen full
    bool isDisturbed = false;  // by another program
    bool isKnown = false;      // what was read or saved last is
    Rows known;
  };
  struct Before {
    QPointer<PlannerWindow> window;
    QPointer<QWidget> front;
    QString kind;
    QString named;  // in the activity plan
    Row item;       // the row of the catalogue that is selected
    Shown shown;
    bool mayWrite = false;
    bool wasBox = false;
    bool asksToDelete = false;  // the plan of an activity that its text names
  };

  void fault(const QString& what, const QString& details = {}) const;
  void lookAtTables(const Tables& before);
  void lookAtItems(const Rows& gone, const Rows& added) const;
  void lookAtSaved();
  void lookAtClosed() const;
  void lookAtWindow();
  bool isOwn(const QString& table, const Row& row) const;

  TableReader reader_;
  Tell tell_;
  Desk desk_;
  Before before_;
  QPointer<QWidget> told_;  // the box that was looked at
};

}  // namespace vellora::test
