#pragma once

#include <QWidget>

namespace vellora {

// The six categories on their colours, which no skin changes.
class CategoryLegend : public QWidget {
 public:
  explicit CategoryLegend(QWidget* parent = nullptr);
};

}  // namespace vellora
