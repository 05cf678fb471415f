#pragma once

#include "store/schedule_store.h"

#include <QDate>
#include <QString>

namespace vellora {

// One free text for each date.

// "备忘录  2007年3月5日 星期一", the caption over a day's memo.
QString memoCaption(QDate day);

// Empty when the day has no memo.
QString memoOf(ScheduleStore& store, QDate day);

// Stores the text, an empty one too, as the only memo of its day. Throws StoreFault::RowChanged
// when the day's memo is not `asRead` any more, unless that is null.
void storeMemo(ScheduleStore& store, QDate day, const QString& text,
               const QString* asRead = nullptr);

// The text that an edited memo holds, as a document's raw text gives it: its lines end like those
// of the memo that was read.
QString memoText(QString raw, const QString& asRead);

}  // namespace vellora
