#pragma once

#include "grid/sheet/workbook.h"

#include <QString>

namespace vellora {

// A cell's look as CSS declarations.
QByteArray cssOf(const CellStyle& style);

// Paper and margins in print.
QByteArray cssOf(const PageSetup& setup);

// Appends a text as the content of an element of an HTML document in which white space counts:
// escaped, what the format cannot hold (control characters, halves of characters) replaced by
// U+FFFD. Line ends and repeated blanks are character references, because some spreadsheets make a
// row of its own of every line element and take plain blanks together.
void appendHtml(QByteArray& html, const QString& text);

}  // namespace vellora
