#pragma once

#include "routine/clock.h"
#include "shell/prompts.h"
#include "store/schedule_store.h"

#include <QString>

namespace vellora {

inline QString programTitle() {
  return u"Vellora日程表"_qs;
}

// What all windows share; made once at start-up and outlived by none of them.
struct ApplicationState {
  ScheduleStore& Db;
  Prompts& prompts;
  const Clock& clock;
  QString programDir;  // where the executable, the schedule, the skins and the template lie
  QString SkinPath;    // full path of the skin that every window puts on
  QString ExportDir;   // put before every export's path; stays empty

  QString programFile(const QString& name) const { return programDir + u'/' + name; }
};

}  // namespace vellora
