#pragma once

#include <QtGlobal>

#include <limits>

namespace vellora::test {

// What goes wrong with the calls by which this process changes files: write, sync, truncate,
// rename, unlink, change of mode, and opening for writing. Linking failing_calls.cpp puts our own
// functions before the system's, also for the libraries, so that the program under test is the real
// one. Meant for a forked child: nothing here is undone.
struct CallFault {
  enum class Kind {
    None,
    FailsOnce,
    FailsFromThenOn,
    WritesHalf,           // which is no failure: the rest has to be written by a further call
    WritesHalfThenFails,  // that and every later write: the disk is full
    Kills,                // just before the call
    KillsHalfway,         // a write has written its first half
  };
  Kind kind = Kind::None;
  int at = 0;     // the call that meets the fault, counted from 0
  int error = 0;  // errno of a failing call

  // Bytes by which files can still grow before the disk is full.
  qint64 room = std::numeric_limits<qint64>::max();
  bool isReadOnly = false;
  bool isUnreadable = false;  // from now on
};

// From now on.
void breakCalls(const CallFault& fault);

// Whether a call has met the fault since then.
bool hasMetFault();

}  // namespace vellora::test
