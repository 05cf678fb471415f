#include "grid/files/compound_file.h"

#include "support/text_output.h"

#include <QBuffer>
#include <QtEndian>

#include <gtest/gtest.h>

namespace vellora {
namespace {

constexpr quint32 kEndOfChain = 0xFFFF'FFFE;
constexpr quint32 kFree = 0xFFFF'FFFF;

// Follows the file's own tables, as its readers do.
class CompoundReader {
 public:
  explicit CompoundReader(const QByteArray& file) : file_(file) {
    for (int entry = 0; entry < 109; ++entry) addFatSector(at(76 + 4 * entry));
    for (quint32 sector = at(68); sector != kEndOfChain;) {
      for (int entry = 0; entry < 127; ++entry) addFatSector(at(offset(sector) + 4 * entry));
      sector = at(offset(sector) + 4 * 127);
    }
  }

  QString streamName() const {
    const auto size = qFromLittleEndian<quint16>(file_.constData() + entry() + 64);
    const auto* units = reinterpret_cast<const char16_t*>(file_.constData() + entry());
    return QString::fromUtf16(units, size / 2 - 1);
  }
  QByteArray stream() const {
    QByteArray bytes;
    for (quint32 sector = at(entry() + 116); sector != kEndOfChain; sector = fat_.at(sector)) {
      bytes += file_.mid(offset(sector), 512);
    }
    return bytes.first(at(entry() + 120));
  }
  quint32 fatSectors() const { return at(44); }
  quint32 difatSectors() const { return at(72); }
  qsizetype usedSectors() const {
    return std::count_if(fat_.begin(), fat_.end(), [](quint32 next) { return next != kFree; });
  }

 private:
  static qsizetype offset(quint32 sector) { return 512 * (qsizetype{sector} + 1); }
  quint32 at(qsizetype place) const {
    return qFromLittleEndian<quint32>(file_.constData() + place);
  }
  qsizetype entry() const { return offset(at(48)) + 128; }  // after the root's
  void addFatSector(quint32 sector) {
    if (sector == kFree) return;
    for (int entry = 0; entry < 128; ++entry) fat_.push_back(at(offset(sector) + 4 * entry));
  }

  QByteArray file_;
  std::vector<quint32> fat_;
};

QByteArray patterned(qsizetype size) {
  QByteArray bytes(size, Qt::Uninitialized);
  for (qsizetype place = 0; place < size; ++place) {
    bytes[place] = static_cast<char>(place % 251 ^ place / 512);
  }
  return bytes;
}

QByteArray written(const std::vector<QByteArray>& pieces) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  writeCompoundFile(u"Workbook"_qs, pieces, buffer);
  return buffer.data();
}

}  // namespace

TEST(CompoundFile, GivesTheStreamBackWhateverItsSize) {
  constexpr qsizetype kFatSectorCovers = 128 * 512;
  for (const qsizetype size :
       {qsizetype{4'096}, qsizetype{4'097}, qsizetype{4'608}, kFatSectorCovers - 1'024,
        kFatSectorCovers - 1'023, 109 * kFatSectorCovers - 110 * 512,
        109 * kFatSectorCovers - 110 * 512 + 1, 237 * kFatSectorCovers}) {
    const QByteArray bytes = patterned(size);
    const QByteArray file = written({bytes.first(100), bytes.sliced(100)});
    const CompoundReader reader(file);
    EXPECT_EQ(reader.streamName(), u"Workbook"_qs);
    EXPECT_TRUE(reader.stream() == bytes) << size;
    EXPECT_EQ(512 * (reader.usedSectors() + 1), file.size()) << size;
  }
}

TEST(CompoundFile, ListsItsFatBeyondTheHeaderOnlyWhereTheHeaderIsFull) {
  constexpr qsizetype kHeaderCovers = 109 * 128 * 512 - 110 * 512;  // less FAT and directory
  EXPECT_EQ(CompoundReader(written({patterned(kHeaderCovers)})).difatSectors(), 0U);
  const CompoundReader larger(written({patterned(kHeaderCovers + 1)}));
  EXPECT_EQ(larger.fatSectors(), 110U);
  EXPECT_EQ(larger.difatSectors(), 1U);
}

TEST(CompoundFile, FillsASmallStreamWithZerosToTheLeastSize) {
  EXPECT_EQ(CompoundReader(written({})).stream(), QByteArray(4'096, '\0'));
  EXPECT_EQ(CompoundReader(written({"abc"})).stream(), "abc" + QByteArray(4'093, '\0'));
}

}  // namespace vellora
