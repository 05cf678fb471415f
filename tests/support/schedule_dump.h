#pragma once

#include "store/schedule_store.h"

#include <QStringList>

namespace vellora::test {

// Every row of the five schedule tables, sorted, with ID columns left out.
inline QStringList dumpOf(ScheduleStore& store) {
  QStringList rows;
  for (const auto& table : {u"SJ"_qs, u"HD"_qs, u"JH"_qs, u"BW"_qs, u"MM"_qs}) {
    RowCursor cursor = store.readOnce(table);
    while (cursor.next()) {
      QString row = table;
      for (int i = 0; i < cursor.columnCount(); ++i) {
        if (cursor.columnName(i) == u"ID"_qs) continue;
        const QVariant value = cursor.value(i);
        row += u'|' + (value.isValid() ? cursor.text(i) : u"NULL"_qs);
      }
      rows << row;
    }
  }
  rows.sort();
  return rows;
}

// Every saved entry.
inline QStringList savedPlans(ScheduleStore& store) {
  QStringList plans;
  for (const QString& row : dumpOf(store).filter(u"JH|"_qs)) plans << row.mid(3);
  return plans;
}

}  // namespace vellora::test
