#pragma once

#include "grid/files/safe_file.h"
#include "grid/sheet/workbook.h"

#include <functional>

namespace vellora {

// The planner's own file of a whole workbook, used for the board template and the backup: eight
// bytes that tell what it is, two of a version (big endian), the workbook in CBOR (RFC 8949, see
// workbook_cbor.h), and a SHA-256 over everything before it at the end.

// All call `pulse` every few milliseconds; it may throw to give the work up, and a file that was
// being written then stays as it was.

// Throws FileError for a file that cannot be read, is something else, was written by a newer
// version, or differs by as little as one bit from what was written.
Workbook readWorkbookFile(const QString& path, const std::function<void()>& pulse = {});

// Whether the file, read as above, holds exactly this workbook. It is compared while it is read: a
// second workbook would take as much memory again.
bool holdsWorkbook(const QString& path, const Workbook& expected,
                   const std::function<void()>& pulse = {});

// Writes a workbook of at most 1,000 sheets into a file that its owner commits.
void writeWorkbook(const Workbook& workbook, SafeFile& file,
                   const std::function<void()>& pulse = {});

// Replaces the file whole or, throwing FileError, not at all. At most 1,000 sheets.
void writeWorkbookFile(const Workbook& workbook, const QString& path,
                       const std::function<void()>& pulse = {});

}  // namespace vellora
