#pragma once

#include "store/store_error.h"

struct sqlite3;

namespace vellora {

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
