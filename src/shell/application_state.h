#pragma once

#include "routine/clock.h"
#include "shell/prompts.h"
#include "store/schedule_store.h"

#include <QString>

#include <functional>

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
  // Backs up before what cannot be undone; false when the user would rather not go on.
  std::function<bool(QWidget* window)> copyFirst = [](QWidget*) { return true; };

  QString programFile(const QString& name) const { return programDir + u'/' + name; }
};

}  // namespace vellora
