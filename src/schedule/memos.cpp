#include "schedule/memos.h"

#include "routine/calendar_text.h"
#include "store/statements.h"
#include "store/store_error.h"

namespace vellora {

QString memoCaption(QDate day) {
  return u"备忘录  "_qs + longDate(day) + u' ' + weekdayName(day);
}

QString memoOf(ScheduleStore& store, QDate day) {
  auto rows = store.open(statements::memoOn(day));
  return rows.isEmpty() ? QString() : rows.text(u"Memo");
}

// Looking and writing are one change, so that two running copies never add two memos for a day.
void storeMemo(ScheduleStore& store, QDate day, const QString& text, const QString* asRead) {
  ScheduleStore::Transaction one(store);
  auto rows = store.open(statements::memoOn(day));
  if (asRead && (rows.isEmpty() ? QString() : rows.text(u"Memo")) != *asRead) {
    throw StoreError(StoreFault::RowChanged, u"另一个程序已经改动了这一天的备忘。"_qs);
  }
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

QString memoText(QString raw, const QString& asRead) {
  return raw.replace(QChar::ParagraphSeparator,
                     asRead.contains(u"\r\n"_qs) ? u"\r\n"_qs : u"\n"_qs);
}

}  // namespace vellora
