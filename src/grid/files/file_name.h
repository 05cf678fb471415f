#pragma once

#include <QString>

namespace vellora {

// The name with `_` for every character that a file name cannot hold here or on the drives that
// people carry along: \ / : * ? " < > | and control characters.
QString fileNameFor(const QString& wanted);

}  // namespace vellora
