#pragma once

#include "grid/files/file_error.h"
#include "grid/sheet/workbook.h"

#include <QIODevice>

namespace vellora {

// Writes a sheet as an HTML5 document in UTF-8 that needs no other file and looks like the grid in
// light colours: texts, looks, sizes, headings (repeated in print) if one has a text. Hidden rows
// are left out. The device remembers its own failures.
void writeHtml(const Sheet& sheet, const PageSetup& setup, const QString& title, QIODevice& device);

// Replaces the file whole or, throwing FileError, not at all.
void writeHtmlFile(const Sheet& sheet, const PageSetup& setup, const QString& title,
                   const QString& path);

}  // namespace vellora
