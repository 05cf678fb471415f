#pragma once

#include <QByteArray>

namespace vellora {

// Files on their way to take the place of others. A program that is killed leaves its unfinished
// file behind; the next one to write into that folder removes it. As long as a file is being
// written it is locked (flock), by which the two are told apart. Where a file system knows no
// locks, nothing is ever removed.

// A new name in the folder: hidden, and short whatever the name is that the file will get.
QByteArray unfinishedName(const QByteArray& folder);

// Locks a file that was just made, until it is closed. False when another program took it for a
// left-over just before: it is gone then, and needs a new name.
bool claimUnfinished(int descriptor);

// What cannot be removed stays.
void removeLeftOvers(const QByteArray& folder);

}  // namespace vellora
