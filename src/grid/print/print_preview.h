#pragma once

#include "grid/print/sheet_printer.h"

#include <functional>

class QWidget;

namespace vellora {

// Runs work that may take long, tells the user over this window how far it is, and passes on what
// the work throws.
using WorkRunner =
    std::function<void(QWidget* window, const std::function<void(const WorkProgress&)>& work)>;

// The runner that tells nothing.
void runWithoutProgress(QWidget* window, const std::function<void(const WorkProgress&)>& work);

// Shows a preview of the printed sheet from which the user prints or saves a PDF file. Gives back
// the set-up as the user left it, which belongs to the workbook. Giving up the layout closes the
// preview.
PageSetup previewSheet(const Sheet& sheet, const PageSetup& setup, const PrintOptions& options,
                       const QString& documentName, QWidget* parent,
                       const WorkRunner& run = runWithoutProgress);

// Replaces the file whole or, throwing FileError or WorkCancelled, not at all.
void savePdf(const Sheet& sheet, const PageSetup& setup, const PrintOptions& options,
             const QPageLayout& paper, const QString& documentName, const QString& path,
             const WorkProgress& progress = {});

}  // namespace vellora
