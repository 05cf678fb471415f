#pragma once

#include "grid/sheet/cell_style.h"

#include <array>
#include <deque>
#include <unordered_map>
#include <vector>

namespace vellora {

enum class CellProperty : std::size_t {
  Font,
  Colours,
  Border,
  Align,
  Input,
  Option,
  Wrap,
  Category
};
inline constexpr std::size_t kPropertyCount = 8;

constexpr quint32 bitOf(CellProperty property) {
  return 1U << static_cast<unsigned>(property);
}

// Sets of properties, each kept once under a small number. A property is packed into one word, so
// that setting it on a cell compares and hashes a few words and never a font name.
class StyleTable {
 public:
  using Number = quint32;
  static constexpr Number kNothingSet = 0;

  StyleTable();

  // Numbers of the set changed by one property.
  Number with(Number set, CellProperty property, quint64 word);
  Number without(Number set, CellProperty property);
  // The properties of both; where both have one, that of upper.
  Number over(Number upper, Number lower);

  // What a set of properties looks like; absent ones have their first values.
  const CellStyle& style(Number set) const { return styles_[set]; }
  CellSettings settings(Number set) const;
  Number numberOf(const CellSettings& settings);
  quint32 properties(Number set) const { return sets_[set].properties; }

  quint64 fontWord(const CellFont& font);
  static quint64 coloursWord(const CellColours& colours);
  static quint64 borderWord(const CellBorder& border);
  static quint64 plainWord(int value) { return static_cast<quint32>(value); }

 private:
  struct Set {
    std::array<quint64, kPropertyCount> words{};
    quint32 properties = 0;
    bool has(CellProperty property) const { return (properties & bitOf(property)) != 0; }
    quint64 word(CellProperty property) const { return words[static_cast<std::size_t>(property)]; }
    void put(CellProperty property, quint64 word);
    friend bool operator==(const Set&, const Set&) = default;
  };
  struct SetHash {
    std::size_t operator()(const Set& set) const;
  };

  Number keep(const Set& set);
  CellStyle styleOf(const Set& set) const;
  CellFont fontOf(quint64 word) const;

  std::vector<Set> sets_;
  std::deque<CellStyle> styles_;  // does not move what StyleAt() refers to
  std::unordered_map<Set, Number, SetHash> numbers_;
  std::vector<QString> faces_;
};

}  // namespace vellora
