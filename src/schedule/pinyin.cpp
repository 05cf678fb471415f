#include "schedule/pinyin.h"

#include <QCollator>
#include <QLocale>

#include <algorithm>

namespace vellora {
namespace {

// The first character under each letter in the reading order of CLDR's Chinese collation, which Qt
// sorts by. No reading begins with i, u or v.
constexpr QStringView kFirstUnder = u"阿丷嚓咑妸发旮哈丌咔垃呣嗯喔妑七呥仨他屲夕丫帀";
constexpr QStringView kLetters = u"abcdefghjklmnopqrstwxyz";
static_assert(kFirstUnder.size() == kLetters.size());

bool isHan(QChar c) {
  return c >= QChar(0x4e00) && c <= QChar(0x9fff);
}

}  // namespace

QString pinyinInitials(const QString& name) {
  static const QCollator kByReading(QLocale(QLocale::Chinese, QLocale::China));
  QString initials = name.toLower();
  for (QChar& c : initials) {
    if (!isHan(c)) continue;
    const auto next = std::upper_bound(
        kFirstUnder.begin(), kFirstUnder.end(), c,
        [](QChar a, QChar b) { return kByReading.compare(QString(a), QString(b)) < 0; });
    if (next != kFirstUnder.begin()) c = kLetters[next - kFirstUnder.begin() - 1];
  }
  return initials;
}

}  // namespace vellora
