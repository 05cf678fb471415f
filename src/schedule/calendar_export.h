#pragma once

#include "routine/work_step.h"
#include "store/schedule_store.h"

#include <QDate>
#include <QString>

#include <optional>

class QDateTime;

// Plans as a calendar file (RFC 5545) that phones and mail programs read.
namespace vellora {

struct CalendarSelection {
  QDate first;  // both belong to it
  QDate last;
  QString activity = {};             // unless empty: all of its plans, whatever their date
  bool withMemos = false;            // as events of a whole day; never with an activity
  std::optional<int> reminder = {};  // minutes before each block
};

struct CalendarCounts {
  qint64 plans = 0;
  qint64 memos = 0;
  qint64 leftOut = 0;  // their block is gone or has no times
};

// Replaces the file whole or not at all. Each plan becomes an event in local time without a zone,
// so that a block stays at its hours wherever the file is read. Its UID is that of its date and
// block: importing a later export updates the earlier one's events. Other programs cannot save
// while the plans are read. Throws StoreError, FileError, WorkCancelled.
CalendarCounts exportCalendar(ScheduleStore& store, const CalendarSelection& selection,
                              const QString& path, const QDateTime& now,
                              const WorkProgress& progress = {});

// A text as it comes back from a calendar file: its lines end in line feeds, without blanks around
// and control characters.
QString textInCalendar(QString text);

// The UID of a block's plan, and the block's code in it; empty for any other UID.
QString calendarUid(QDate date, const QString& code);
QString blockInUid(const QString& uid);

}  // namespace vellora
