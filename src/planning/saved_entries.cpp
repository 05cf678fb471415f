#include "planning/saved_entries.h"

#include "store/statements.h"

namespace vellora {

SavedEntries::SavedEntries(ScheduleStore& store, const QString& activity) {
  read(store.open(statements::plansOfActivity(activity)));
}

SavedEntries::SavedEntries(ScheduleStore& store, QDate date) {
  read(store.open(statements::plansOn(date)));
}

void SavedEntries::read(Recordset entries) {
  for (; !entries.atEnd(); entries.moveNext()) {
    if (!isReadable(entries)) {
      ++unreadable_;
      continue;
    }
    const Place place(entries.date(u"RQ"), entries.text(u"SJKH"));
    if (!entries_.contains(place)) entries_.insert(place, planTexts(entries));
  }
}

const PlanTexts* SavedEntries::find(QDate date, const QString& code) const {
  const auto entry = entries_.constFind({date, code});
  return entry == entries_.cend() ? nullptr : &*entry;
}

bool isReadable(RowReader& entry) {
  return entry.date(u"RQ").isValid() && !entry.text(u"SJKH").isEmpty();
}

}  // namespace vellora
