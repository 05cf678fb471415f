#include "planning/day_summary.h"

#include "routine/calendar_text.h"
#include "store/statements.h"

namespace vellora {
namespace {

constexpr QStringView kLineEnd = u"\r\n";

QString blockText(ScheduleStore& store, const QString& code) {
  auto block = store.open(statements::blockWithCode(code));
  if (block.isEmpty()) return code;
  return blockHours(block.time(u"SJ0"), block.time(u"SJ1")) + u' ' + block.text(u"sjkm");
}

}  // namespace

QString daySummary(ScheduleStore& store, QDate date) {
  const ScheduleStore::ReadTransaction oneView(store);
  QString text = isoDate(date) + u' ' + weekdayName(date) + kLineEnd + kLineEnd;
  auto entries = store.open(statements::plansOn(date));
  for (; !entries.atEnd(); entries.moveNext()) {
    text += blockText(store, entries.text(u"SJKH")) + kLineEnd;
    text += u"  " + entries.text(u"HDMC") + kLineEnd;
  }
  return text;
}

}  // namespace vellora
