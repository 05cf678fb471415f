#include "grid/files/workbook_file.h"

#include "grid/files/workbook_cbor.h"

#include <QCborStreamWriter>
#include <QCryptographicHash>
#include <QFile>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

namespace vellora {
namespace {

bool areEmptyRows(const Sheet& sheet, int first, int end) {
  for (int row = sheet.NextWrittenRow(first); row < end; row = sheet.NextWrittenRow(row + 1)) {
    if (!sheet.IsRowEmpty(row)) return false;
  }
  return true;
}

bool isSameCell(const Sheet& sheet, int row, const CellNumbers& numbers,
                const DecodedRow::Cell& cell) {
  if (sheet.GetCellText(cell.col, row) != cell.text) return false;
  if (numbers.tag != 0 || !cell.tag.isEmpty()) {
    if (sheet.CellTag(cell.col, row) != cell.tag) return false;
  }
  if (!cell.settings) return numbers.settings == 0;
  return sheet.SettingsAt(cell.col, row) == *cell.settings;
}

bool areSameCells(const Sheet& sheet, const DecodedRow& row) {
  auto cell = row.cells.begin();
  for (int col = 0; col < sheet.Cols(); ++col) {
    const CellNumbers numbers = sheet.NumbersAt(col, row.index);
    const bool isInFile = cell != row.cells.end() && cell->col == col;
    if (!isInFile && numbers != CellNumbers()) return false;
    if (isInFile && !isSameCell(sheet, row.index, numbers, *cell++)) return false;
  }
  return cell == row.cells.end();
}

bool isSameRow(const Sheet& sheet, const DecodedRow& row) {
  return sheet.RowHeight(row.index) == row.height && sheet.IsRowHidden(row.index) == row.isHidden &&
         areSameCells(sheet, row);
}

bool isSameColumn(const Sheet& one, const Sheet& other, int col) {
  return one.ColumnWidth(col) == other.ColumnWidth(col) &&
         one.GetCellText(col, kHeadingRow) == other.GetCellText(col, kHeadingRow) &&
         one.CellTag(col, kHeadingRow) == other.CellTag(col, kHeadingRow) &&
         one.SettingsAt(col, kHeadingRow) == other.SettingsAt(col, kHeadingRow) &&
         one.SettingsAt(col, kEveryRow) == other.SettingsAt(col, kEveryRow);
}

// All but the rows' content.
bool isSameFrame(const Sheet& one, const Sheet& other) {
  bool isSame = one.Rows() == other.Rows() && one.Cols() == other.Cols() &&
                one.DefaultRowHeight() == other.DefaultRowHeight() &&
                one.DefaultFont() == other.DefaultFont();
  for (int col = 0; isSame && col < one.Cols(); ++col) isSame = isSameColumn(one, other, col);
  return isSame;
}

// Compares a workbook with what a file holds, row by row while the file is read.
class WorkbookComparison {
 public:
  explicit WorkbookComparison(const Workbook& expected);

  // A row of the file; of each sheet from the top to the bottom.
  void take(int sheet, const DecodedRow& row);
  // Whether the rows were the expected ones, and none is missing, and the rest of the file, read
  // without its rows, is the same as well.
  bool isSame(const Workbook& read) const;

 private:
  bool isNextRow(std::size_t sheet, const DecodedRow& row) const;

  const Workbook& expected_;
  std::vector<int> nextRows_;  // by sheet
  bool isSame_ = true;         // so far
};

WorkbookComparison::WorkbookComparison(const Workbook& expected)
    : expected_(expected), nextRows_(static_cast<std::size_t>(expected.SheetCount())) {}

void WorkbookComparison::take(int sheet, const DecodedRow& row) {
  const auto place = static_cast<std::size_t>(sheet);
  isSame_ = isSame_ && place < nextRows_.size() && isNextRow(place, row);
  if (isSame_) nextRows_[place] = row.index + 1;
}

bool WorkbookComparison::isNextRow(std::size_t sheet, const DecodedRow& row) const {
  const Sheet& expected = expected_.sheetAt(static_cast<int>(sheet));
  return row.index < expected.Rows() && areEmptyRows(expected, nextRows_[sheet], row.index) &&
         isSameRow(expected, row);
}

bool WorkbookComparison::isSame(const Workbook& read) const {
  bool isSame = isSame_ && read.SheetCount() == expected_.SheetCount() &&
                read.CurrentSheet() == expected_.CurrentSheet() &&
                read.pageSetup == expected_.pageSetup;
  for (int sheet = 0; isSame && sheet < read.SheetCount(); ++sheet) {
    const Sheet& expected = expected_.sheetAt(sheet);
    isSame = read.SheetName(sheet) == expected_.SheetName(sheet) &&
             isSameFrame(read.sheetAt(sheet), expected) &&
             areEmptyRows(expected, nextRows_[static_cast<std::size_t>(sheet)], expected.Rows());
  }
  return isSame;
}

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
  QByteArray content;
  QCborStreamWriter writer(&content);
  encodeWorkbook(workbook, writer, SparePulse(pulse));
  QCryptographicHash hash(QCryptographicHash::Sha256);
  const auto put = [&](QByteArrayView piece) {
    hash.addData(piece);
    file.write(piece.data(), piece.size());
  };
  put(kMagic);
  put(kVersion);
  for (qsizetype place = 0; place < content.size(); place += kPieceSize) {
    if (pulse && place > 0) pulse();
    put(QByteArrayView(content).sliced(place, std::min(kPieceSize, content.size() - place)));
  }
  file.write(hash.result());
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
