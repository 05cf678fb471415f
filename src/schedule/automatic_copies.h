#pragma once

#include "routine/work_step.h"
#include "store/schedule_store.h"

#include <QDateTime>
#include <QString>

#include <optional>
#include <vector>

namespace vellora {

// A backup that the program made by itself. What it holds is told by its file's name:
// "自动备份 2026-11-24 08-30-15 计划1234 共1500.KTZ".
struct AutomaticCopy {
  QString path;
  QDateTime time;
  qint64 plans = 0;
  qint64 records = 0;
  qint64 bytes = 0;
};

// The program's own backups, in the folder 备份 beside the schedule. The last fourteen are kept,
// and the fullest of the older ones as long as none of the fourteen that can be read holds at least
// half of its plans.
class AutomaticCopies {
 public:
  explicit AutomaticCopies(const QString& programDir);

  // The newest first.
  std::vector<AutomaticCopy> list() const;
  // Makes one and lets the oldest go; an empty schedule needs none. Throws as BackupTables() does.
  void make(ScheduleStore& store, const QDateTime& now, const WorkProgress& progress = {});
  bool isMadeOn(QDate day) const;
  // The newest copy, when it has more than twice the plans of the schedule. Throws StoreError.
  std::optional<AutomaticCopy> lostSince(ScheduleStore& store) const;

 private:
  void prune() const;
  QString freePath(const QDateTime& now, qint64 plans, qint64 records) const;

  QString program_dir_;
  QString folder_;
};

}  // namespace vellora
