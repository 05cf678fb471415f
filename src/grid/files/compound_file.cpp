#include "grid/files/compound_file.h"

#include <QtEndian>

#include <algorithm>
#include <numeric>

namespace vellora {
namespace {

constexpr quint32 kSectorSize = 512;
constexpr quint32 kEntriesPerSector = kSectorSize / 4;
constexpr quint32 kFatSectorsInHeader = 109;
constexpr quint32 kFatSectorsPerDifatSector =
    kEntriesPerSector - 1;  // the last entry: the next one
constexpr qint64 kMinStreamSize = 4'096;

constexpr quint32 kDifatSector = 0xFFFF'FFFC;
constexpr quint32 kFatSector = 0xFFFF'FFFD;
constexpr quint32 kEndOfChain = 0xFFFF'FFFE;
constexpr quint32 kFree = 0xFFFF'FFFF;

constexpr qsizetype kEntryNameSize = 64;
constexpr quint8 kRootEntry = 5;
constexpr quint8 kStreamEntry = 2;
constexpr quint8 kBlackNode = 1;

quint32 sectorsFor(qint64 items, quint32 perSector) {
  return static_cast<quint32>((items + perSector - 1) / perSector);
}

template <typename Integer>
void put(QByteArray& bytes, Integer value) {
  const Integer little = qToLittleEndian(value);
  bytes.append(reinterpret_cast<const char*>(&little), sizeof(little));
}

void putRepeated(QByteArray& bytes, quint32 value, quint32 count) {
  for (; count > 0; --count) put(bytes, value);
}

// Which sector holds what: the stream, its directory, the FAT, the list of the FAT's sectors.
struct Layout {
  explicit Layout(qint64 streamSize) : size(std::max(streamSize, kMinStreamSize)) {
    streamSectors = sectorsFor(size, kSectorSize);
    // The FAT lists its own sectors and those of its list, so both grow until all are covered.
    for (quint32 used = 0; used != total();) {
      used = total();
      fatSectors = sectorsFor(used, kEntriesPerSector);
      const qint64 listed = std::max(qint64{fatSectors} - kFatSectorsInHeader, qint64{0});
      difatSectors = sectorsFor(listed, kFatSectorsPerDifatSector);
    }
  }
  quint32 directory() const { return streamSectors; }
  quint32 firstFat() const { return streamSectors + 1; }
  quint32 firstDifat() const { return firstFat() + fatSectors; }
  quint32 total() const { return firstDifat() + difatSectors; }

  qint64 size;
  quint32 streamSectors = 0;
  quint32 fatSectors = 0;
  quint32 difatSectors = 0;
};

// The FAT sectors' numbers from the given one on; free entries where there are no more.
void putFatSectors(QByteArray& bytes, const Layout& layout, quint32 first, quint32 count) {
  for (quint32 fat = first; fat < first + count; ++fat) {
    put(bytes, fat < layout.fatSectors ? layout.firstFat() + fat : kFree);
  }
}

QByteArray header(const Layout& layout) {
  QByteArray bytes = QByteArray::fromHex("D0CF11E0A1B11AE1") + QByteArray(16, '\0');
  for (const int field : {0x003E, 3, 0xFFFE, 9, 6, 0, 0, 0}) {  // version, byte order, sector sizes
    put(bytes, static_cast<quint16>(field));
  }
  put(bytes, quint32{0});
  put(bytes, layout.fatSectors);
  put(bytes, layout.directory());
  put(bytes, quint32{0});
  put(bytes, static_cast<quint32>(kMinStreamSize));
  put(bytes, kEndOfChain);  // no small streams
  put(bytes, quint32{0});
  put(bytes, layout.difatSectors > 0 ? layout.firstDifat() : kEndOfChain);
  put(bytes, layout.difatSectors);
  putFatSectors(bytes, layout, 0, kFatSectorsInHeader);
  return bytes;
}

struct Entry {
  QString name;
  quint8 kind;
  quint32 child;
  quint32 firstSector;
  qint64 size;
};

QByteArray directoryEntry(const Entry& entry) {
  QByteArray bytes;
  for (const QChar unit : entry.name) put(bytes, unit.unicode());
  bytes.resize(kEntryNameSize, '\0');
  put(bytes, static_cast<quint16>(2 * (entry.name.size() + 1)));
  put(bytes, entry.kind);
  put(bytes, kBlackNode);
  put(bytes, kFree);
  put(bytes, kFree);
  put(bytes, entry.child);
  bytes.append(36, '\0');  // class, flags and times
  put(bytes, entry.firstSector);
  put(bytes, static_cast<quint64>(entry.size));
  return bytes;
}

QByteArray directory(const Layout& layout, const QString& streamName) {
  QByteArray unused(kEntryNameSize + 4, '\0');
  putRepeated(unused, kFree, 3);
  unused.append(128 - unused.size(), '\0');
  return directoryEntry({QStringLiteral("Root Entry"), kRootEntry, 1, kEndOfChain, 0}) +
         directoryEntry({streamName, kStreamEntry, kFree, 0, layout.size}) + unused + unused;
}

QByteArray fat(const Layout& layout) {
  QByteArray bytes;
  bytes.reserve(qsizetype{layout.fatSectors} * kSectorSize);
  for (quint32 sector = 1; sector < layout.streamSectors; ++sector) put(bytes, sector);
  put(bytes, kEndOfChain);
  put(bytes, kEndOfChain);  // the directory's one sector
  putRepeated(bytes, kFatSector, layout.fatSectors);
  putRepeated(bytes, kDifatSector, layout.difatSectors);
  putRepeated(bytes, kFree, layout.fatSectors * kEntriesPerSector - layout.total());
  return bytes;
}

QByteArray difat(const Layout& layout) {
  QByteArray bytes;
  for (quint32 sector = 0; sector < layout.difatSectors; ++sector) {
    const quint32 first = kFatSectorsInHeader + sector * kFatSectorsPerDifatSector;
    putFatSectors(bytes, layout, first, kFatSectorsPerDifatSector);
    const bool isLast = sector + 1 == layout.difatSectors;
    put(bytes, isLast ? kEndOfChain : layout.firstDifat() + sector + 1);
  }
  return bytes;
}

void writePiece(const QByteArray& piece, QIODevice& device, const WorkProgress& progress) {
  constexpr qsizetype kBytesPerStep = 1 << 20;
  for (qsizetype place = 0; place < piece.size(); place += kBytesPerStep) {
    report(progress, {u"正在写入磁盘……"_qs, place, piece.size()});
    device.write(piece.constData() + place, std::min(kBytesPerStep, piece.size() - place));
  }
}

}  // namespace

void writeCompoundFile(const QString& streamName, const std::vector<QByteArray>& pieces,
                       QIODevice& device, const WorkProgress& progress) {
  const qint64 size =
      std::accumulate(pieces.begin(), pieces.end(), qint64{0},
                      [](qint64 sum, const QByteArray& piece) { return sum + piece.size(); });
  const Layout layout(size);
  device.write(header(layout));
  for (const QByteArray& piece : pieces) writePiece(piece, device, progress);
  device.write(QByteArray(qint64{layout.streamSectors} * kSectorSize - size, '\0'));
  device.write(directory(layout, streamName));
  device.write(fat(layout));
  device.write(difat(layout));
}

}  // namespace vellora
