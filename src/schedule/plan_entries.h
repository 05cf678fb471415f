#pragma once

#include "store/schedule_store.h"
#include "store/store_error.h"

#include <QDate>
#include <QHash>
#include <QString>

#include <optional>
#include <utility>

namespace vellora {

// What a person says about one plan entry, as typed.
struct PlanTexts {
  QString activity;
  QString requirement;
  QString level;  // its numeric value is stored; see numericValue
  friend bool operator==(const PlanTexts&, const PlanTexts&) = default;
};

// Whether two texts are stored alike: "3x" and "3" are one level.
bool areStoredAlike(const PlanTexts& one, const PlanTexts& other);

// Reads the current one of several plan entries.
PlanTexts readPlanTexts(RowReader& entry);

// The first entry that holds a block on a date; none when the block is free. Throws StoreError.
std::optional<PlanTexts> entryOfBlock(ScheduleStore& store, QDate date, const QString& code);

// Changes the current row to the texts, or leaves it alone when it says the same already. Throws
// StoreError when a text is too long or a level too large.
void editPlan(Recordset& entry, const PlanTexts& texts);
void addPlan(Recordset& entries, QDate date, const QString& code, const PlanTexts& texts);

// What a user reads when nothing at all was saved: because of the error, or because of it after a
// row had already failed.
QString nothingSaved(const QString& failureInRow, const StoreError& error);

// What the schedule held of an activity or a date when it was last read or saved, to tell what is
// not in it yet and what another program has saved since.
class SavedEntries {
 public:
  using Place = std::pair<QDate, QString>;  // date and block code

  SavedEntries() = default;
  // All of one activity, or all of one date. Throw StoreError.
  SavedEntries(ScheduleStore& store, const QString& activity);
  SavedEntries(ScheduleStore& store, QDate date);

  // The first entry of a block on a date; null when there is none.
  const PlanTexts* find(QDate date, const QString& code) const;
  qsizetype count() const { return entries_.size(); }
  // Entries without a date or a block that can be read: no list shows them and no save touches
  // them.
  int unreadable() const { return unreadable_; }

  friend bool operator==(const SavedEntries&, const SavedEntries&) = default;

 private:
  void read(Recordset entries);

  QHash<Place, PlanTexts> entries_;
  int unreadable_ = 0;
};

// Whether the current entry has a date and a block that can be read.
bool isReadable(RowReader& entry);

}  // namespace vellora
