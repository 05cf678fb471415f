#pragma once

#include <QString>

#include <stdexcept>

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

// Any failure of the store. The description is one plain Chinese sentence made for the user.
class StoreError : public std::runtime_error {
 public:
  StoreError(StoreFault fault, const QString& description);

  StoreFault fault() const { return fault_; }
  int number() const { return static_cast<int>(fault_); }
  QString description() const;

 private:
  StoreFault fault_;
};

// Begins the message of a function of ours that was given a text which is no date or time.
inline constexpr const char* kNotATime = "not a time: ";

// The store's error for a result code of the engine (extended or not) and the engine's English
// message, from which missing names are taken.
StoreError engineError(int code, const QString& message);

// The same for the last failure on a connection; StoreFault::FileMoved where that explains it.
StoreError engineError(sqlite3* connection);

// Whether the path leads no longer to the file that the connection has opened.
bool isMoved(sqlite3* connection);
StoreError movedError(sqlite3* connection);

}  // namespace vellora
