#pragma once

#include "planning/plan_entry.h"
#include "store/schedule_store.h"

#include <QDate>
#include <QHash>
#include <QString>

#include <utility>

namespace vellora {

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
