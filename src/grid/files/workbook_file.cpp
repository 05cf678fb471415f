#include "grid/files/workbook_file.h"

#include "grid/files/hashing_device.h"
#include "grid/files/workbook_cbor.h"
#include "grid/files/workbook_comparison.h"

#include <QCborStreamWriter>
#include <QFile>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

namespace vellora {
namespace {

// A byte over 127, line ends of both kinds and an end-of-file mark: text transfers spoil it at
// once.
constexpr QByteArrayView kMagic("\x8BVWB\r\n\x1A\n", 8);
constexpr QByteArrayView kVersion("\x00\x01", 2);
constexpr qint64 kHeadSize = 10;
constexpr qint64 kHashSize = 32;
constexpr qint64 kPieceSize = 65'536;

// Rows take microseconds; whoever shows progress need not hear of each.
class SparePulse {
 public:
  explicit SparePulse(const std::function<void()>& pulse) : pulse_(pulse) {}

  void operator()() {
    constexpr int kRowsBetween = 256;
    if (pulse_ && ++calls_ % kRowsBetween == 0) pulse_();
  }

 private:
  std::function<void()> pulse_;
  unsigned calls_ = 0;
};

FileError damaged(const QString& path) {
  return FileError(u"文件“%1”已损坏或不完整，无法读取。"_qs.arg(path));
}

// Opened by hand for the system's own reason of a failure; a pipe must not make it wait.
void openForReading(QFile& file, const QString& path) {
  const int descriptor =
      ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (descriptor < 0) throw cannotRead(path, errno);
  struct stat status {};
  const bool isPlain = ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
  file.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle);
  if (!isPlain) throw cannotRead(path, EISDIR);
}

// Whether the file ends with the hash of what comes before.
bool hasRightHash(QFile& file, const std::function<void()>& pulse) {
  QCryptographicHash hash(QCryptographicHash::Sha256);
  for (qint64 left = file.size() - kHashSize; left > 0;) {
    const QByteArray piece = file.read(std::min(left, kPieceSize));
    if (piece.isEmpty()) return false;
    hash.addData(piece);
    left -= piece.size();
    if (pulse) pulse();
  }
  return file.read(kHashSize) == hash.result();
}

void checkWhole(QFile& file, const QString& path, const std::function<void()>& pulse) {
  const QByteArray magic = file.read(kMagic.size());
  if (magic != kMagic) {
    throw FileError(u"文件“%1”不是日程表的数据文件，无法读取。"_qs.arg(path));
  }
  file.seek(0);
  if (file.size() < kHeadSize + kHashSize || !hasRightHash(file, pulse)) throw damaged(path);
  file.seek(kMagic.size());
  if (file.read(kVersion.size()) != kVersion) {
    throw FileError(u"文件“%1”由更新版本的程序写成，无法读取。"_qs.arg(path));
  }
}

Workbook readRows(const QString& path, const std::function<void()>& pulse,
                  const RowTaker& takeRow) {
  QFile file;
  openForReading(file, path);
  checkWhole(file, path, pulse);
  try {
    // In one piece, for the reader asks a device anew at every item. Its hash was right.
    CborInput input(file.read(file.size() - kHeadSize - kHashSize));
    Workbook workbook = decodeWorkbook(input, takeRow);
    if (!input.atEnd()) throw MalformedContent();
    return workbook;
  } catch (const MalformedContent&) {
    throw FileError(u"文件“%1”的内容有误，无法读取。"_qs.arg(path));
  }
}

}  // namespace

Workbook readWorkbookFile(const QString& path, const std::function<void()>& pulse) {
  SparePulse spare(pulse);
  return readRows(path, pulse, [&spare](int, Sheet& sheet, const DecodedRow& row) {
    spare();
    putRow(sheet, row);
  });
}

bool holdsWorkbook(const QString& path, const Workbook& expected,
                   const std::function<void()>& pulse) {
  SparePulse spare(pulse);
  WorkbookComparison comparison(expected);
  const Workbook read = readRows(path, pulse, [&](int index, Sheet&, const DecodedRow& row) {
    spare();
    comparison.take(index, row);
  });
  return comparison.isSame(read);
}

void writeWorkbook(const Workbook& workbook, SafeFile& file, const std::function<void()>& pulse) {
  HashingDevice hashed(file);
  hashed.write(kMagic.data(), kMagic.size());
  hashed.write(kVersion.data(), kVersion.size());
  QCborStreamWriter writer(&hashed);
  SparePulse spare(pulse);
  encodeWorkbook(workbook, writer, [&] {
    spare();
    return file.hasFailed();
  });
  file.write(hashed.finish());
}

void writeWorkbookFile(const Workbook& workbook, const QString& path,
                       const std::function<void()>& pulse) {
  if (workbook.SheetCount() > kMaxSheets) {
    throw FileError(u"无法写入文件“%1”：工作表超过 %2 张。"_qs.arg(path).arg(kMaxSheets));
  }
  SafeFile file(path);
  writeWorkbook(workbook, file, pulse);
  file.commit();
}

}  // namespace vellora
