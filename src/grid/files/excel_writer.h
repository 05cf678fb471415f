#pragma once

#include "grid/files/file_error.h"
#include "grid/sheet/workbook.h"
#include "routine/work_step.h"

namespace vellora {

// Writes a sheet as a binary Excel file (BIFF8 in a compound file; published as MS-XLS): texts,
// numbers, looks, sizes, hidden rows, page set-up, and the headings, if one has a text, as a first
// row that is repeated in print. Dates stay the texts that the grid shows. What has more than
// 65,536 rows goes on, with the headings, on further sheets. A binary Excel file knows only 56
// colours; see ExcelPalette.
//
// Replaces the file whole or, throwing FileError or WorkCancelled, not at all. Refuses more than
// 256 columns, texts over 32,767 characters and more looks than the format has room for.
void writeExcelFile(const Sheet& sheet, const PageSetup& setup, const QString& sheetName,
                    const QString& path, const WorkProgress& progress = {});

}  // namespace vellora
