#pragma once

#include <QString>

namespace vellora {

// Given paths use `\` and drives. Where the system has no drive letters, the root of the current
// drive is the user's home folder, and a path that names a drive leads nowhere.

bool hasDriveLetters();

// The file that a given path means: `\列表.HTM` lies in the current drive's root, a path that
// begins with `/` is one of the system's own. `\` and `/` both separate folders. Throws FileError
// for a path on a drive that this system cannot have.
QString realPath(const QString& givenPath, const QString& currentDriveRoot);
QString realPath(const QString& givenPath);

}  // namespace vellora
