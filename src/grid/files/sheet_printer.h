#pragma once

#include "grid/sheet/sheet.h"
#include "grid/sheet/workbook.h"

class QPrinter;
class QWidget;

namespace vellora {

// What repeats on every page: the heading strip of a list, or row 0 of the board.
enum class PrintHeadings { HeadingStrip, FirstRow };

// Prints a sheet as text on as many pages as it needs, always in the light colours of paper:
// headings repeated, pages numbered, long texts wrapped, nothing cut.
void printSheet(const Sheet& sheet, const PageSetup& setup, PrintHeadings headings,
                QPrinter& printer);

// Shows a preview from which the user prints or saves a PDF file.
void previewSheet(const Sheet& sheet, const PageSetup& setup, PrintHeadings headings,
                  const QString& documentName, QWidget* parent);

}  // namespace vellora
