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

// Stores the text, an empty one too, as the only memo of its day.
void storeMemo(ScheduleStore& store, QDate day, const QString& text);

}  // namespace vellora
