#pragma once

struct sqlite3;

namespace vellora {

// Gives a connection the dialect's functions Hour and Minute of a stored date or time: whole
// numbers, nothing for nothing, 0 for a date alone. A text that is no date or time fails the
// statement.
void addClockFunctions(sqlite3* handle);

}  // namespace vellora
