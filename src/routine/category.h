#pragma once

#include "routine/colour.h"

#include <QString>

#include <array>
#include <optional>

namespace vellora {

// One of the six fixed kinds of activity. The label is stored whole, digit included.
struct Category {
  QString label;
  PackedColour colour;
};

inline constexpr int kCategoryCount = 6;

const std::array<Category, kCategoryCount>& categories();

// What a text or paper of a category is called where only its colour is seen.
QString categoryHint(int index);

// Position of a stored label; none for any text that is not exactly one of the six.
std::optional<int> categoryIndex(const QString& label);

// The filter entry that stands for every category; it is never stored.
QString allCategoriesLabel();

}  // namespace vellora
