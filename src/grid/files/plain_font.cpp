#include "grid/files/plain_font.h"

#include <algorithm>

namespace vellora {

bool isPlainText(QStringView text) {
  constexpr QStringView kBetween = u" :-\\\r\n、。，：；！？（）《》“”";
  return std::all_of(text.begin(), text.end(), [&](QChar c) {
    const bool isHan = c >= QChar(0x4e00) && c <= QChar(0x9fff);
    const bool isDigit = c >= u'0' && c <= u'9';
    return isHan || isDigit || kBetween.contains(c);
  });
}

QFont plainFont(QFont font) {
  font.setStyleStrategy(QFont::PreferNoShaping);
  return font;
}

}  // namespace vellora
