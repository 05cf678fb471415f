#include "grid/sheet/style_table.h"

#include <algorithm>

namespace vellora {
namespace {

constexpr int kMaxFontSize = 1000;
constexpr int kMaxFontStyle = 255;
constexpr int kMaxBorderWidth = 100;

CellColours coloursOf(quint64 word) {
  return {static_cast<PackedColour>(word & 0xFFFFFFFFU), static_cast<PackedColour>(word >> 32U)};
}

CellBorder borderOf(quint64 word) {
  return {static_cast<int>(word >> 32U), static_cast<PackedColour>(word & 0xFFFFFFFFU)};
}

int plainOf(quint64 word) {
  return static_cast<int>(static_cast<quint32>(word));
}

}  // namespace

void StyleTable::Set::put(CellProperty property, quint64 word) {
  words[static_cast<std::size_t>(property)] = word;
  properties |= bitOf(property);
}

std::size_t StyleTable::SetHash::operator()(const Set& set) const {
  quint64 hash = set.properties;
  for (const quint64 word : set.words) {
    hash = (hash ^ word) * 0x9E3779B97F4A7C15U;
    hash ^= hash >> 29U;
  }
  return hash;
}

StyleTable::StyleTable() {
  keep(Set{});
}

StyleTable::Number StyleTable::with(Number set, CellProperty property, quint64 word) {
  Set changed = sets_[set];
  changed.put(property, word);
  return keep(changed);
}

StyleTable::Number StyleTable::without(Number set, CellProperty property) {
  Set changed = sets_[set];
  changed.put(property, 0);
  changed.properties &= ~bitOf(property);
  return keep(changed);
}

StyleTable::Number StyleTable::over(Number upper, Number lower) {
  Set both = sets_[upper];
  for (std::size_t i = 0; i < kPropertyCount; ++i) {
    const auto property = static_cast<CellProperty>(i);
    if (!both.has(property) && sets_[lower].has(property)) {
      both.put(property, sets_[lower].word(property));
    }
  }
  return keep(both);
}

CellSettings StyleTable::settings(Number number) const {
  const Set& set = sets_[number];
  CellSettings settings;
  const auto read = [&set](CellProperty property, auto& target, auto unpack) {
    if (set.has(property)) target = unpack(set.word(property));
  };
  read(CellProperty::Font, settings.font, [this](quint64 word) { return fontOf(word); });
  read(CellProperty::Colours, settings.colours, coloursOf);
  read(CellProperty::Border, settings.border, borderOf);
  read(CellProperty::Align, settings.align, plainOf);
  read(CellProperty::Input, settings.inputMode, plainOf);
  read(CellProperty::Option, settings.option, plainOf);
  read(CellProperty::Wrap, settings.wrap, [](quint64 word) { return word != 0; });
  read(CellProperty::Category, settings.category, plainOf);
  return settings;
}

StyleTable::Number StyleTable::numberOf(const CellSettings& settings) {
  Set set;
  if (settings.font) set.put(CellProperty::Font, fontWord(*settings.font));
  if (settings.colours) set.put(CellProperty::Colours, coloursWord(*settings.colours));
  if (settings.border) set.put(CellProperty::Border, borderWord(*settings.border));
  if (settings.align) set.put(CellProperty::Align, plainWord(*settings.align));
  if (settings.inputMode) set.put(CellProperty::Input, plainWord(*settings.inputMode));
  if (settings.option) set.put(CellProperty::Option, plainWord(*settings.option));
  if (settings.wrap) set.put(CellProperty::Wrap, *settings.wrap ? 1 : 0);
  if (settings.category) set.put(CellProperty::Category, plainWord(*settings.category));
  return keep(set);
}

quint64 StyleTable::fontWord(const CellFont& font) {
  auto face = std::find(faces_.begin(), faces_.end(), font.face);
  if (face == faces_.end()) face = faces_.insert(face, font.face);
  const auto size = static_cast<quint64>(std::clamp(font.size, 1, kMaxFontSize));
  const auto style = static_cast<quint64>(std::clamp(font.style, 0, kMaxFontStyle));
  return static_cast<quint64>(face - faces_.begin()) << 32U | size << 16U | style;
}

quint64 StyleTable::coloursWord(const CellColours& colours) {
  return static_cast<quint64>(colours.back) << 32U | colours.text;
}

quint64 StyleTable::borderWord(const CellBorder& border) {
  const auto width = static_cast<quint64>(std::clamp(border.width, 0, kMaxBorderWidth));
  return width << 32U | border.colour;
}

StyleTable::Number StyleTable::keep(const Set& set) {
  const auto known = numbers_.find(set);
  if (known != numbers_.end()) return known->second;
  const auto number = static_cast<Number>(sets_.size());
  sets_.push_back(set);
  styles_.push_back(styleOf(set));
  numbers_.emplace(set, number);
  return number;
}

CellStyle StyleTable::styleOf(const Set& set) const {
  CellStyle style;
  if (set.has(CellProperty::Font)) style.font = fontOf(set.word(CellProperty::Font));
  if (set.has(CellProperty::Colours)) {
    const CellColours colours = coloursOf(set.word(CellProperty::Colours));
    style.hasColours = true;
    style.textColour = colours.text;
    style.backColour = colours.back;
  }
  if (set.has(CellProperty::Border)) {
    const CellBorder border = borderOf(set.word(CellProperty::Border));
    style.border = border.width > 0;
    style.borderWidth = border.width;
    style.borderColour = border.colour;
  }
  if (set.has(CellProperty::Align)) style.align = plainOf(set.word(CellProperty::Align));
  if (set.has(CellProperty::Input)) style.inputMode = plainOf(set.word(CellProperty::Input));
  if (set.has(CellProperty::Option)) style.option = plainOf(set.word(CellProperty::Option));
  style.wrap = set.has(CellProperty::Wrap) && set.word(CellProperty::Wrap) != 0;
  if (set.has(CellProperty::Category)) style.category = plainOf(set.word(CellProperty::Category));
  return style;
}

CellFont StyleTable::fontOf(quint64 word) const {
  return {faces_[word >> 32U], static_cast<int>(word >> 16U & 0xFFFFU),
          static_cast<int>(word & 0xFFFFU)};
}

}  // namespace vellora
