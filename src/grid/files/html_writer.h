#pragma once

#include "grid/files/file_error.h"
#include "grid/sheet/workbook.h"
#include "routine/work_step.h"

namespace vellora {

// Writes a sheet as an HTML5 document in UTF-8 that needs no other file and looks like the grid in
// light colours: texts, looks, sizes, headings (repeated in print) if one has a text. Texts wrap,
// so that none is cut. Hidden rows and columns are left out. Spreadsheets that open it keep texts
// such as 001 and =1+1 as they are.
//
// Replaces the file whole or, throwing FileError or WorkCancelled, not at all.
void writeHtmlFile(const Sheet& sheet, const PageSetup& setup, const QString& title,
                   const QString& path, const WorkProgress& progress = {});

}  // namespace vellora
