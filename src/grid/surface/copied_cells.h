#pragma once

#include "grid/surface/clipboard_text.h"

#include <QMimeData>

namespace vellora {

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
// line breaks within cells, which only its HTML has. Throws WorkGivenUp.
TextTable textsOf(const QMimeData& data, const WorkProgress& progress);

}  // namespace vellora
