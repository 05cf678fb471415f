#include "editors/daily_memo.h"

#include "routine/calendar_text.h"
#include "store/statements.h"

namespace vellora {

QString memoCaption(QDate day) {
  return u"备忘录  "_qs + longDate(day) + u' ' + weekdayName(day);
}

QString memoOf(ScheduleStore& store, QDate day) {
  auto rows = store.open(statements::memoOn(day));
  return rows.isEmpty() ? QString() : rows.text(u"Memo");
}

// Looking and writing are one change, so that two running copies never add two memos for a day.
void storeMemo(ScheduleStore& store, QDate day, const QString& text) {
  ScheduleStore::Transaction one(store);
  auto rows = store.open(statements::memoOn(day));
  if (rows.isEmpty()) {
    rows.addNew();
    rows.set(u"RQ", day);
  } else {
    rows.edit();
  }
  // A null text would store no value at all.
  rows.set(u"Memo", text.isNull() ? u""_qs : text);
  rows.update();
  one.commit();
}

}  // namespace vellora
