#pragma once

#include "routine/planner_error.h"

struct sqlite3;

namespace vellora {

// The numbers are shown to the user: add new faults at the end.
enum class StoreFault {
  FileMissing = 1,
  NotADatabase,
  TableMissing,
  ColumnMissing,
  Syntax,
  NoCurrentRow,
  NotUpdatable,
  TextTooLong,
  NumberOutOfRange,
  NotADateOrTime,
  Busy,
  ReadOnly,
  DiskFull,
  InputOutput,
  Damaged,
  Other,
  NotANumber,
  RowChanged,         // another set or another program changed or deleted the row meanwhile
  FileMoved,          // the path leads no longer to the file that was opened
  SavedDespiteError,  // the last step of the save failed, but what it wrote is in the file
};

// Any failure of the store.
class StoreError : public PlannerError {
 public:
  StoreError(StoreFault fault, const QString& description)
      : PlannerError(static_cast<int>(fault), description) {}

  StoreFault fault() const { return static_cast<StoreFault>(number()); }
};

// Begins the message of a function of ours that was given a text which is no date or time.
inline constexpr const char* kNotATime = "not a time: ";

// The store's error for a result code of the engine (extended or not) and the engine's English
// message, from which missing names are taken.
StoreError engineError(int code, const QString& message);

// The same for the last failure on a handle; StoreFault::FileMoved where that explains it.
StoreError engineError(sqlite3* handle);

// Whether the path leads no longer to the file that the connection has opened.
bool isMoved(sqlite3* handle);
StoreError movedError(sqlite3* handle);

}  // namespace vellora
