#include "routine/category.h"

#include <algorithm>

namespace vellora {

const std::array<Category, kCategoryCount>& categories() {
  static const std::array<Category, kCategoryCount> kCategories{{
      {u"1-工作"_qs, packColour(255, 0, 0)},
      {u"2-学习"_qs, packColour(0, 0, 255)},
      {u"3-运动"_qs, packColour(0, 255, 0)},
      {u"4-社交"_qs, packColour(0, 192, 0)},
      {u"5-娱乐"_qs, packColour(255, 0, 255)},
      {u"6-休息"_qs, packColour(0, 0, 0)},
  }};
  return kCategories;
}

std::optional<int> categoryIndex(const QString& label) {
  const auto& all = categories();
  const auto found = std::find_if(
      all.begin(), all.end(), [&](const Category& category) { return category.label == label; });
  if (found == all.end()) return std::nullopt;
  return static_cast<int>(found - all.begin());
}

QString categoryHint(int index) {
  return u"类别："_qs + categories().at(static_cast<std::size_t>(index)).label;
}

QString allCategoriesLabel() {
  return u"所有类别"_qs;
}

}  // namespace vellora
