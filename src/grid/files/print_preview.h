#pragma once

#include "grid/files/sheet_printer.h"

class QWidget;

namespace vellora {

// Shows a preview of the printed sheet from which the user prints or saves a PDF file. Gives back
// the set-up as the user left it, which belongs to the workbook.
PageSetup previewSheet(const Sheet& sheet, const PageSetup& setup, PrintHeadings headings,
                       const QString& documentName, QWidget* parent);

// Replaces the file whole or, throwing FileError, not at all.
void savePdf(const Sheet& sheet, const PageSetup& setup, PrintHeadings headings,
             const QPageLayout& paper, const QString& documentName, const QString& path);

}  // namespace vellora
