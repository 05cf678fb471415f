#pragma once

#include "store/schema_tables.h"

namespace vellora {

class Connection;

// Makes a new schedule without any rows. Throws StoreError, and leaves whatever is there as it was,
// when the file exists or cannot be written.
void createSchedule(const QString& path);

// Throws StoreFault::TableMissing or ColumnMissing, naming the first of the planner's tables and
// columns that is not there; a view or a virtual table is none. A schedule may have more.
void requireSchema(Connection& database);

// Throws StoreFault::Damaged when the end of the file is cut off. The engine itself does not notice
// when only a part of the last page is missing.
void requireWholeFile(Connection& database, const QString& path);

// Whether the engine finds no damage in the whole file.
bool isSound(Connection& database);

// Adds the planner's indices that are missing. They only speed look-ups up: where they cannot be
// written, or where the file is damaged, the schedule is used without them.
void addMissingIndices(Connection& database);

}  // namespace vellora
