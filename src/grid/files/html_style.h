#pragma once

#include "grid/sheet/workbook.h"

#include <QString>

namespace vellora {

// A cell's look as CSS declarations.
QByteArray cssOf(const CellStyle& style);

// Paper and margins in print.
QByteArray cssOf(const PageSetup& setup);

// The text in a place of an HTML document: escaped, lines separated by line elements, what the
// format cannot hold (control characters, halves of characters) replaced by U+FFFD.
QByteArray htmlText(const QString& text);

}  // namespace vellora
