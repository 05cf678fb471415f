#pragma once

#include <QString>

namespace vellora {

// Throws FileError when writing to the path would replace one of the planner's own files: the
// schedule or a journal of it, the board's template, a skin, the remembered sizes, the program.
// They are known by what they are, whatever way or link leads there; names that are still free
// count in the program's folder.
void requireNoProgramFile(const QString& path, const QString& programDir);

}  // namespace vellora
