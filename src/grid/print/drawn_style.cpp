#include "grid/print/drawn_style.h"

#include "routine/category.h"

#include <QFontDatabase>
#include <QHash>
#include <QStringList>

#include <algorithm>

namespace vellora {
namespace {

// Best first; any Chinese face is better than none.
QStringList standInsFor(const QString& face) {
  const QStringList sans{u"SimHei"_qs, u"Noto Sans CJK SC"_qs, u"WenQuanYi Micro Hei"_qs};
  if (face == u"宋体"_qs) {
    return QStringList{u"SimSun"_qs, u"Noto Serif CJK SC"_qs, u"AR PL UMing CN"_qs} + sans;
  }
  if (face == u"楷体_GB2312"_qs) {
    return QStringList{u"KaiTi"_qs, u"AR PL KaitiM GB"_qs, u"AR PL UKai CN"_qs} + sans;
  }
  return face == u"黑体"_qs ? sans : QStringList();
}

QString search(const QString& face) {
  const QStringList installed = QFontDatabase::families();
  for (const QString& candidate : QStringList(face) + standInsFor(face)) {
    if (installed.contains(candidate)) return candidate;
  }
  return face;
}

}  // namespace

QColor colourOf(PackedColour colour) {
  return {redOf(colour), greenOf(colour), blueOf(colour)};
}

QFont fontOf(const CellFont& font, qreal scale) {
  QFont drawn(installedFace(font.face));
  drawn.setPointSizeF(std::max(font.size, 1) * scale);
  drawn.setBold(isBold(font));
  return drawn;
}

Qt::Alignment alignmentOf(int flags) {
  Qt::Alignment horizontal = Qt::AlignLeft;
  if ((flags & kAlignCentre) != 0) horizontal = Qt::AlignHCenter;
  if ((flags & kAlignRight) != 0) horizontal = Qt::AlignRight;
  Qt::Alignment vertical = Qt::AlignVCenter;
  if ((flags & kAlignTop) != 0) vertical = Qt::AlignTop;
  if ((flags & kAlignBottom) != 0) vertical = Qt::AlignBottom;
  return horizontal | vertical;
}

QColor edgeColourOf(const CellStyle& style, double contrast) {
  if (!style.hasColours) return {};
  const auto shade = edgeFor(style.textColour, style.backColour, contrast);
  return shade ? colourOf(*shade) : QColor();
}

PackedColour categoryColour(int category) {
  return categories().at(static_cast<std::size_t>(category - 1)).colour;
}

QString installedFace(const QString& face) {
  static QHash<QString, QString> found;
  const auto known = found.constFind(face);
  return known != found.constEnd() ? *known : *found.insert(face, search(face));
}

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
