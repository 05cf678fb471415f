#pragma once

#include "grid/files/safe_file.h"

#include <QCoreApplication>

#include <functional>

namespace vellora {

// The name with `_` for every character that a file name cannot hold here or on the drives that
// people carry along: \ / : * ? " < > | and control characters.
QString fileNameFor(const QString& wanted);

// Throws FileError when writing to the path would replace one of the planner's own files: the
// schedule or a journal of it, the board's template, a skin, the remembered sizes, the program.
// They are known by what they are, whatever way or link leads there; names that are still free
// count in the program's folder.
void requireNoProgramFile(const QString& path,
                          const QString& programDir = QCoreApplication::applicationDirPath());

// Where every export goes: replaces the file whole or, throwing FileError or what `write` throws,
// not at all, and never one of the planner's own.
void exportFile(const QString& path, const std::function<void(SafeFile& file)>& write);

}  // namespace vellora
