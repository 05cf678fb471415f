#pragma once

#include "grid/files/file_error.h"
#include "grid/print/page_layout.h"
#include "grid/sheet/workbook.h"
#include "routine/work_step.h"

class QPageLayout;
class QPagedPaintDevice;

namespace vellora {

// Paper of the size, with the orientation and margins of the set-up.
QPageLayout paperOf(const PageSetup& setup);

// Prints a sheet as text on as many pages of the device as it needs, always in the light colours of
// paper: headings repeated, pages numbered, texts wrapped, rows made higher or continued on further
// pages, nothing cut. Hidden rows and empty rows at the end are left out. The paper is the
// device's own; of the set-up only fitToOnePageWidth counts. Throws FileError when the device
// does not take the pages, and WorkCancelled.
void printSheet(const Sheet& sheet, const PageSetup& setup, const PrintOptions& options,
                QPagedPaintDevice& device, const WorkProgress& progress = {});

}  // namespace vellora
