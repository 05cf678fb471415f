#pragma once

#include <QString>

namespace vellora {

// A cell's text as other programs take it: lines end with character 10, and a half of a character,
// which no file may hold, is U+FFFD.
QString exportedText(const QString& cellText);

}  // namespace vellora
