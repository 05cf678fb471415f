#pragma once

#include "grid/sheet/sheet.h"
#include "grid/surface/cell_range.h"
#include "routine/work_step.h"

#include <QMimeData>
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
// that never closes stands for itself. Rows may differ in length. Throws WorkCancelled.
TextTable readTabSeparated(const QString& text, const WorkProgress& progress = {});

// The same cells for spreadsheets, which keep a text as it stands, word processors and mail.
QString htmlTable(const Sheet& sheet, const CellRange& range);

// The cells of a page that holds one table and nothing else, places that others cover empty; no
// rows for any other page, or one so long that reading it would be felt.
TextTable readHtmlTable(const QString& html);

// Cells on the clipboard. This program takes them with everything that they have; others get text
// and HTML, which are made only when one asks.
class CopiedCells final : public QMimeData {
  Q_OBJECT

 public:
  CopiedCells(const Sheet& sheet, const CellRange& range) : sheet_(sheet), range_(range) {}

  const Sheet& sheet() const { return sheet_; }
  const CellRange& range() const { return range_; }

  QStringList formats() const override;
  bool hasFormat(const QString& mimeType) const override;

 protected:
  QVariant retrieveData(const QString& mimeType, QMetaType type) const override;

 private:
  Sheet sheet_;
  CellRange range_;
};

// What the clipboard holds now; null while it is empty.
const QMimeData* clipboardData();

// The cells that another program put on the clipboard. Its text is as it was shown there, but for
// line breaks within cells, which only its HTML has. Throws WorkCancelled.
TextTable textsOf(const QMimeData& data, const WorkProgress& progress);

}  // namespace vellora
