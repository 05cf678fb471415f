#pragma once

#include "grid/sheet/workbook.h"

#include <QString>

#include <stdexcept>

namespace vellora {

// Why a file could not be read or written: one plain Chinese sentence made for the user.
class FileError : public std::runtime_error {
 public:
  explicit FileError(const QString& description);
  QString description() const;
};

// The planner's own file of a whole workbook: board template and backup. A magic number and
// version, CBOR (RFC 8949), and a SHA-256 over everything before it at the end. Any flipped bit or
// missing tail is refused with a FileError.
Workbook readWorkbookFile(const QString& path);

// Replaces the file whole or, throwing FileError, not at all.
void writeWorkbookFile(const Workbook& workbook, const QString& path);

}  // namespace vellora
