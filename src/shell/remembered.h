#pragma once

#include "shell/application_state.h"

#include <QSettings>

namespace vellora {

// What the program remembers of its windows, in vellora.ini beside the schedule. A file that cannot
// be read gives defaults, one that cannot be written stays as it is.
inline QSettings remembered(const ApplicationState& state) {
  return QSettings(state.programFile(u"vellora.ini"_qs), QSettings::IniFormat);
}

}  // namespace vellora
