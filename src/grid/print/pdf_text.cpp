#include "grid/print/pdf_text.h"

#include <QRegularExpression>
#include <QString>

#include <algorithm>
#include <array>
#include <map>

namespace vellora {
namespace {

struct LookAlike {
  char16_t radical;
  char16_t character;
};

// Radicals that Chinese fonts draw with the glyph of an ordinary character and that have no
// compatibility decomposition to it; in the order of the radicals.
constexpr std::array<LookAlike, 80> kLookAlikes{
    {{0x2E82, 0x4E5B}, {0x2E83, 0x4E5A}, {0x2E85, 0x4EBB}, {0x2E89, 0x5202}, {0x2E8B, 0x353E},
     {0x2E8E, 0x5140}, {0x2E8F, 0x5C23}, {0x2E90, 0x5C22}, {0x2E92, 0x5DF3}, {0x2E93, 0x5E7A},
     {0x2E94, 0x5F51}, {0x2E95, 0x5F50}, {0x2E96, 0x5FC4}, {0x2E98, 0x624C}, {0x2E99, 0x6535},
     {0x2E9B, 0x65E1}, {0x2E9E, 0x6B7A}, {0x2E9F, 0x6BCD}, {0x2EA0, 0x6C11}, {0x2EA1, 0x6C35},
     {0x2EA3, 0x706C}, {0x2EA4, 0x722B}, {0x2EA6, 0x4E2C}, {0x2EA8, 0x72AD}, {0x2EAB, 0x7F52},
     {0x2EAD, 0x793B}, {0x2EAF, 0x7CF9}, {0x2EB0, 0x7E9F}, {0x2EB1, 0x7F53}, {0x2EB2, 0x7F52},
     {0x2EB3, 0x34C1}, {0x2EB9, 0x8002}, {0x2EBA, 0x8080}, {0x2EBE, 0x8279}, {0x2EBF, 0x8279},
     {0x2EC1, 0x864E}, {0x2EC2, 0x8864}, {0x2EC3, 0x8980}, {0x2EC4, 0x897F}, {0x2EC5, 0x89C1},
     {0x2EC6, 0x89D2}, {0x2EC8, 0x8BA0}, {0x2EC9, 0x8D1D}, {0x2ECB, 0x8F66}, {0x2ECC, 0x8FB6},
     {0x2ECD, 0x8FB6}, {0x2ECE, 0x8FB6}, {0x2ED0, 0x9485}, {0x2ED1, 0x9577}, {0x2ED2, 0x9578},
     {0x2ED3, 0x957F}, {0x2ED4, 0x95E8}, {0x2ED6, 0x961D}, {0x2ED8, 0x9752}, {0x2ED9, 0x97E6},
     {0x2EDA, 0x9875}, {0x2EDB, 0x98CE}, {0x2EDC, 0x98DE}, {0x2EDD, 0x98DF}, {0x2EDF, 0x98E0},
     {0x2EE0, 0x9963}, {0x2EE2, 0x9A6C}, {0x2EE3, 0x9AA8}, {0x2EE4, 0x9B3C}, {0x2EE5, 0x9C7C},
     {0x2EE6, 0x9E1F}, {0x2EE7, 0x5364}, {0x2EE8, 0x9EA6}, {0x2EE9, 0x9EC4}, {0x2EEA, 0x9EFE},
     {0x2EEB, 0x6589}, {0x2EEC, 0x9F50}, {0x2EED, 0x6B6F}, {0x2EEE, 0x9F7F}, {0x2EEF, 0x7ADC},
     {0x2EF0, 0x9F99}, {0x2EF1, 0x9F9C}, {0x2EF2, 0x4E80}, {0x2EF3, 0x9F9F}, {0x2F3E, 0x6237}}};

constexpr int kMaxMapEntries = 100;  // in one block of a character map

using CharacterMap = std::map<uint, uint>;  // by glyph

void addRange(CharacterMap& map, const QRegularExpressionMatch& range) {
  const uint first = range.captured(1).toUInt(nullptr, 16);
  const uint last = range.captured(2).toUInt(nullptr, 16);
  const QStringList named = range.captured(3).split(u'>', Qt::SkipEmptyParts);
  for (uint glyph = first; glyph <= last && glyph - first <= 0xFFFF; ++glyph) {
    const bool isList = named.size() > static_cast<qsizetype>(glyph - first);
    const QString& hex = isList ? named[glyph - first] : named.constFirst();
    const uint code = QStringView(hex).mid(hex.indexOf(u'<') + 1).toUInt(nullptr, 16);
    map[glyph] = meantCharacter(static_cast<char16_t>(isList ? code : code + glyph - first));
  }
}

CharacterMap readMap(const QByteArray& text) {
  static const QRegularExpression kRange(
      u"<([0-9A-F]+)> <([0-9A-F]+)> (?|\\[([^\\]]*)\\]|(<[0-9A-F]+>))"_qs,
      QRegularExpression::CaseInsensitiveOption);
  CharacterMap map;
  auto ranges = kRange.globalMatch(QString::fromLatin1(text));
  while (ranges.hasNext()) addRange(map, ranges.next());
  return map;
}

QByteArray hex(uint number) {
  return '<' + QByteArray::number(number, 16).rightJustified(4, '0') + '>';
}

QByteArray writeMap(const CharacterMap& map) {
  QByteArray text;
  auto left = static_cast<int>(map.size());
  int room = 0;
  for (const auto& [glyph, character] : map) {
    if (room == 0) {
      room = std::min(left, kMaxMapEntries);
      text += QByteArray::number(room) + " beginbfchar\n";
    }
    text += hex(glyph) + ' ' + hex(character) + '\n';
    --left;
    if (--room == 0) text += "endbfchar\n";
  }
  return text;
}

// The stream of a character map with the meant characters; as it was where it is built otherwise.
QByteArray corrected(const QByteArray& stream) {
  static const QByteArray kHeadEnd = "endcodespacerange\n";
  const qsizetype head = stream.indexOf(kHeadEnd) + kHeadEnd.size();
  const qsizetype tail = stream.indexOf("endcmap");
  if (head < kHeadEnd.size() || tail < head) return stream;
  return stream.first(head) + writeMap(readMap(stream.sliced(head, tail - head))) +
         stream.sliced(tail);
}

// Objects that replace earlier ones of the same number, behind the end of the file.
class IncrementalUpdate {
 public:
  explicit IncrementalUpdate(const QByteArray& pdf) : pdf_(pdf) {}

  void replaceStream(const QByteArray& number, const QByteArray& stream) {
    references_ += number + " 1\n" + offset() + " 00000 n \n";
    objects_ += number + " 0 obj\n<< /Length " + QByteArray::number(stream.size()) +
                " >>\nstream\n" + stream + "\nendstream\nendobj\n";
  }

  QByteArray finished() const {
    const qsizetype trailer = pdf_.lastIndexOf("trailer");
    const qsizetype begin = pdf_.indexOf("<<", trailer) + 2;
    const qsizetype end = pdf_.indexOf(">>", begin);
    const qsizetype start = pdf_.indexOf("startxref", end);
    if (objects_.isEmpty() || trailer < 0 || begin < 2 || end < 0 || start < 0) return pdf_;
    const QByteArray previous = pdf_.sliced(start + 9).trimmed().split('\n').constFirst().trimmed();
    return pdf_ + objects_ + "xref\n" + references_ + "trailer\n<<" +
           pdf_.sliced(begin, end - begin) + "/Prev " + previous + "\n>>\nstartxref\n" + offset() +
           "\n%%EOF\n";
  }

 private:
  QByteArray offset() const {
    return QByteArray::number(pdf_.size() + objects_.size()).rightJustified(10, '0');
  }

  const QByteArray& pdf_;
  QByteArray objects_;
  QByteArray references_;
};

}  // namespace

char16_t meantCharacter(char16_t named) {
  if (named == u'\t') return u' ';
  if (named < 0x2E80 || named > 0x2FDF) return named;
  const auto* known = std::lower_bound(
      kLookAlikes.begin(), kLookAlikes.end(), named,
      [](const LookAlike& entry, char16_t radical) { return entry.radical < radical; });
  if (known != kLookAlikes.end() && known->radical == named) return known->character;
  const QString plain = QString(QChar(named)).normalized(QString::NormalizationForm_KC);
  return plain.size() == 1 ? plain[0].unicode() : named;
}

QByteArray withReadableText(const QByteArray& pdf) {
  static const QByteArray kMapStart = "stream\n/CIDInit";
  IncrementalUpdate update(pdf);
  for (qsizetype at = pdf.indexOf(kMapStart); at >= 0; at = pdf.indexOf(kMapStart, at + 1)) {
    const qsizetype object = pdf.lastIndexOf(" 0 obj", at);
    const qsizetype line = pdf.lastIndexOf('\n', object);
    const qsizetype begin = at + 7;  // behind "stream" and its line end
    const qsizetype end = pdf.indexOf("\nendstream", begin);
    if (object < 0 || line < 0 || end < 0) continue;
    update.replaceStream(pdf.sliced(line + 1, object - line - 1),
                         corrected(pdf.sliced(begin, end - begin)));
  }
  return update.finished();
}

}  // namespace vellora
