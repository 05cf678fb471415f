#pragma once

#include "grid/sheet/workbook.h"
#include "grid/surface/text_layouts.h"

#include <QHeaderView>

namespace vellora {

struct GridAppearance;

// The headings above a sheet's columns, or the numbers beside its rows, painted flat in the skin's
// colours.
class HeadingStrip final : public QHeaderView {
  Q_OBJECT

 public:
  HeadingStrip(Qt::Orientation orientation, const Workbook& book, const GridAppearance& appearance,
               TextLayouts& texts);

 protected:
  void paintSection(QPainter* painter, const QRect& rect, int section) const override;
  QSize sectionSizeFromContents(int section) const override;

 private:
  QString text(int section) const;
  const CellStyle& style(int section) const;

  const Workbook& book_;
  const GridAppearance& appearance_;
  TextLayouts& texts_;
};

}  // namespace vellora
