#pragma once

#include <QtGlobal>

#include <limits>

namespace vellora::test {

// What goes wrong with the calls by which this process changes files: write, sync, truncate,
// rename, unlink, change of mode, and opening for writing. Linking failing_calls.cpp puts our own
// functions before the system's, also for the libraries, so that the program under test is the real
// one. Meant for a forked child: nothing here is undone.
struct CallFault {
  qint64 at = std::numeric_limits<qint64>::max();  // the call that meets it, counted from 0
  int error = 0;                                   // errno of a failing call
  bool lasts = false;                              // later calls fail as well
  bool kills = false;                              // this process, before the call
  // Only writes meet the fault, and the first still writes its first half. Without an error to
  // follow this is no failure: the rest has to be written by a further call.
  bool halves = false;

  // Bytes by which files can still grow before the disk is full.
  qint64 room = std::numeric_limits<qint64>::max();
  // Steps until the user cancels the work, which its progress has to ask about: that is no call.
  qint64 steps = std::numeric_limits<qint64>::max();
  int closed = 0;  // errno wherever a file is opened for writing, renamed or removed
};

// From now on.
void breakCalls(const CallFault& fault);

// Whether a call has met the fault since then.
bool hasMetFault();

}  // namespace vellora::test
