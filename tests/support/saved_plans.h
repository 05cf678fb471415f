#pragma once

#include "store/schedule_store.h"

#include <QStringList>

namespace vellora::test {

// Every saved entry as a line of text, by date, block and order of writing.
inline QStringList savedPlans(ScheduleStore& store) {
  QStringList lines;
  auto rows = store.open(QStringLiteral("SELECT * FROM JH ORDER BY RQ,SJKH"));
  for (; !rows.atEnd(); rows.moveNext()) {
    QStringList texts;
    for (const char16_t* column : {u"RQ", u"SJKH", u"HDMC", u"HDYQ", u"ZYDJ"}) {
      texts << rows.text(column);
    }
    lines << texts.join(u'|');
  }
  return lines;
}

}  // namespace vellora::test
