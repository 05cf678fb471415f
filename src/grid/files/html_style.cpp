#include "grid/files/html_style.h"

#include "grid/files/exported_sheet.h"

#include <QStringEncoder>

#include <algorithm>

namespace vellora {
namespace {

QByteArray cssColour(PackedColour colour) {
  const QByteArray digits =
      QByteArray::number(redOf(colour) << 16 | greenOf(colour) << 8 | blueOf(colour), 16);
  return '#' + digits.rightJustified(6, '0');
}

// In a quoted CSS string; nothing in it can end the string, the rule or the style element.
QByteArray cssString(const QString& text) {
  QByteArray escaped;
  for (const char32_t character : text.toUcs4()) {
    const bool isPlain = QChar::isLetterOrNumber(character) || character == U' ' ||
                         character == U'_' || character == U'-';
    escaped += isPlain ? QString::fromUcs4(&character, 1).toUtf8()
                       : '\\' + QByteArray::number(static_cast<uint>(character), 16) + ' ';
  }
  return '"' + escaped + '"';
}

QByteArray fallbackFace(const QString& face) {
  if (face.contains(u"黑体")) return "sans-serif";
  return face.contains(u"楷体") ? R"("楷体",serif)" : "serif";
}

QByteArray across(int align) {
  if ((align & kAlignRight) != 0) return "right";
  return (align & kAlignCentre) != 0 ? "center" : "left";
}

QByteArray down(int align) {
  if ((align & kAlignBottom) != 0) return "bottom";
  return (align & kAlignTop) != 0 ? "top" : "middle";
}

bool isRefused(QChar unit) {
  return (unit < u' ' && unit != u'\t') || (unit >= u'\x7F' && unit <= u'\x9F') ||
         unit.isNonCharacter();
}

constexpr qsizetype kMostBytes = 6;  // that a UTF-16 unit becomes

// What stands for the character after another one; null for the character itself.
QByteArrayView substitute(QChar unit, QChar previous) {
  switch (unit.unicode()) {
    case u'&':
      return "&amp;";
    case u'<':
      return "&lt;";
    case u'>':
      return "&gt;";
    case u'"':
      return "&quot;";
    case u'\r':
      return "&#10;";
    case u'\n':
      return previous == u'\r' ? "" : "&#10;";
    case u' ':
      return previous == u' ' ? "&#32;" : QByteArrayView();
    default:
      return isRefused(unit) ? "\xEF\xBF\xBD" : QByteArrayView();
  }
}

// Puts the text, which has no halves of characters, where there is room for it; gives the end.
char* putHtml(char* out, QStringView text) {
  QStringEncoder encoder(QStringEncoder::Utf8);
  qsizetype begin = 0;
  for (qsizetype place = 0; place < text.size(); ++place) {
    const auto instead = substitute(text[place], place > 0 ? text[place - 1] : QChar());
    if (instead.isNull()) continue;
    out = encoder.appendToBuffer(out, text.sliced(begin, place - begin));
    out = std::copy(instead.begin(), instead.end(), out);
    begin = place + 1;
  }
  return encoder.appendToBuffer(out, text.sliced(begin));
}

}  // namespace

QByteArray cssOf(const CellStyle& style) {
  QByteArray css = "font:" + QByteArray(isBold(style.font) ? "bold " : "normal ") +
                   QByteArray::number(style.font.size) + "pt " + cssString(style.font.face) + ',' +
                   fallbackFace(style.font.face) + ";text-align:" + across(style.align) +
                   ";vertical-align:" + down(style.align);
  if (style.hasColours) {
    css += ";color:" + cssColour(style.textColour) + ";background:" + cssColour(style.backColour);
  }
  if (style.border && style.borderWidth > 0) {
    css += ";border:" + QByteArray::number(style.borderWidth) + "px solid " +
           cssColour(style.borderColour);
  }
  return css;
}

QByteArray cssOf(const PageSetup& setup) {
  const auto millimetres = [](double length) -> QByteArray {
    return QByteArray::number(length) + "mm ";
  };
  return QByteArray("@page{size:A4 ") + (setup.landscape ? "landscape" : "portrait") +
         ";margin:" + millimetres(setup.marginTop) + millimetres(setup.marginRight) +
         millimetres(setup.marginBottom) + millimetres(setup.marginLeft).trimmed() + '}';
}

void appendHtml(QByteArray& html, const QString& text) {
  if (text.isEmpty()) return;
  const QString whole = text.isValidUtf16() ? text : exportedText(text);
  const qsizetype old = html.size();
  html.resize(old + kMostBytes * whole.size());
  const char* end = putHtml(html.data() + old, whole);
  html.resize(end - html.constData());
}

}  // namespace vellora
