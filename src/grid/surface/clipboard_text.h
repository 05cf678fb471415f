#pragma once

#include "grid/sheet/sheet.h"
#include "grid/surface/cell_range.h"
#include "routine/work_step.h"

#include <QStringList>

#include <vector>

namespace vellora {

// Cells as they come from other programs: rows of texts, lines of one text separated by line feeds.
using TextTable = std::vector<QStringList>;

// Tab-separated text as spreadsheets exchange it: a text that holds a tab, a line break or a
// leading quote stands in quotes, quotes inside doubled. Every row ends with a line feed; hidden
// rows are left out.
QString tabSeparated(const Sheet& sheet, const CellRange& range);

// Reads any spreadsheet's tab-separated text, or plain lines; line ends of every system. A quote
// that never closes stands for itself. Rows may differ in length. Throws WorkGivenUp.
TextTable readTabSeparated(const QString& text, const WorkProgress& progress = {});

// The same cells for spreadsheets, which keep a text as it stands, word processors and mail.
QString htmlTable(const Sheet& sheet, const CellRange& range);

// The cells of a page that holds one table and nothing else, places that others cover empty; no
// rows for any other page, or one so long that reading it would be felt.
TextTable readHtmlTable(const QString& html);

}  // namespace vellora
