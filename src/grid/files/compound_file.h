#pragma once

#include "routine/work_step.h"

#include <QByteArray>
#include <QIODevice>

#include <vector>

namespace vellora {

// The largest stream that a compound file of this version holds is a little under 2 GiB.
inline constexpr qint64 kMaxCompoundStream = 0x7FC0'0000;

// Writes a compound file (OLE2; published as MS-CFB, version 3) with one stream at its root, given
// in pieces. The stream is filled with zeros to at least 4,096 bytes, below which the format wants
// another place for it. At most kMaxCompoundStream bytes; the device remembers its own failures.
// Throws WorkCancelled.
void writeCompoundFile(const QString& streamName, const std::vector<QByteArray>& pieces,
                       QIODevice& device, const WorkProgress& progress = {});

}  // namespace vellora
