#include "grid/files/exported_text.h"

namespace vellora {
namespace {

void replaceHalves(QString& text) {
  for (qsizetype place = 0; place < text.size(); ++place) {
    if (!text[place].isSurrogate()) continue;
    const bool isPair = text[place].isHighSurrogate() && place + 1 < text.size() &&
                        text[place + 1].isLowSurrogate();
    if (isPair) {
      ++place;
    } else {
      text[place] = QChar::ReplacementCharacter;
    }
  }
}

}  // namespace

QString exportedText(const QString& cellText) {
  QString text = cellText;
  if (!text.isValidUtf16()) replaceHalves(text);
  if (!text.contains(u'\r')) return text;
  return text.replace(u"\r\n"_qs, u"\n"_qs).replace(u'\r', u'\n');
}

}  // namespace vellora
