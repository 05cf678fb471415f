// Workbooks that come from outside.

#include "fuzz/fuzz_target.h"
#include "grid/files/sample_workbook.h"
#include "grid/files/sheet_comparison.h"
#include "grid/files/workbook_file.h"

#include <QCryptographicHash>
#include <QTemporaryDir>

#include <optional>

namespace vellora::test {
namespace {

constexpr qsizetype kMagicSize = 8;
constexpr qsizetype kHeadSize = 10;
constexpr qsizetype kHashSize = 32;

QString scratchPath() {
  static const QTemporaryDir folder;
  return folder.filePath(u"x"_qs);
}

QByteArray bytesOfFile(const QString& path) {
  QFile file(path);
  require(file.open(QIODevice::ReadOnly), "a file can be opened");
  return file.readAll();
}

QByteArray fileOf(const Workbook& workbook) {
  writeWorkbookFile(workbook, scratchPath());
  return bytesOfFile(scratchPath());
}

QByteArray contentOf(const Workbook& workbook) {
  return fileOf(workbook).sliced(kHeadSize).chopped(kHashSize);
}

// None when the file is refused with a sentence for the user.
std::optional<Workbook> read(const QByteArray& bytes) {
  writeFile(scratchPath(), bytes);
  try {
    return readWorkbookFile(scratchPath());
  } catch (const FileError& error) {
    require(error.description().contains(scratchPath()), "a refusal names the file");
    return {};
  }
}

// A few bytes can make a sheet of a billion cells.
bool isSmall(const Workbook& workbook) {
  qint64 cells = 0;
  for (int i = 0; i < workbook.SheetCount(); ++i) {
    const Sheet& sheet = workbook.sheetAt(i);
    cells += qint64{sheet.Cols() + 1} * (sheet.Rows() + 1);
  }
  return cells < 2'000;
}

// A whole file, or what stands between the head and the hash of one: a change there would hardly
// ever come past the hash.
void fuzzWorkbook(const QByteArray& input) {
  static const QByteArray head = fileOf(Workbook()).first(kHeadSize);
  const QByteArray whole = head + input;
  const auto book = read(input.startsWith(head.first(kMagicSize))
                             ? input
                             : whole + QCryptographicHash::hash(whole, QCryptographicHash::Sha256));
  if (!book) return;
  require(!isSmall(*book) || holdsWorkbook(scratchPath(), *book), "a file holds what it says");
  const QByteArray written = fileOf(*book);
  const auto again = read(written);
  require(again.has_value(), "what was written can be read");
  require(fileOf(*again) == written, "a workbook read and written again is the same");
  require(!isSmall(*book) || difference(*book, *again).isEmpty(), "nothing of a workbook is lost");
}

QByteArrayList workbookSeeds() {
  Workbook texts;
  texts.sheet().SetCols(2);
  texts.sheet().SetRows(kMaxRows);
  texts.sheet().SetCellText(1, 0, QChar(0xD800) + u"半"_qs);
  texts.sheet().SetCellText(0, kMaxRows - 1, QString(300, u'x'));
  return {contentOf(sampleWorkbook()), contentOf(texts), contentOf(Workbook()),
          fileOf(sampleWorkbook())};
}

}  // namespace

QList<FuzzTarget> fileTargets() {
  return {{"workbook", fuzzWorkbook, workbookSeeds()}};
}

}  // namespace vellora::test
