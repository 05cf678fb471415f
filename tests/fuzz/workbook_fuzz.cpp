#include "fuzz/fuzz_target.h"
#include "grid/files/sample_workbook.h"
#include "grid/files/sheet_comparison.h"
#include "grid/files/workbook_cbor.h"
#include "grid/files/workbook_file.h"

#include <QCborStreamWriter>
#include <QCryptographicHash>
#include <QTemporaryDir>

#include <optional>

namespace vellora::test {
namespace {

constexpr qsizetype kMagicSize = 8;
constexpr qsizetype kHeadSize = 10;

QByteArray contentOf(const Workbook& workbook) {
  QByteArray content;
  QCborStreamWriter writer(&content);
  encodeWorkbook(workbook, writer, [] { return false; });
  return content;
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

class WorkbookFolder {
 public:
  // A whole file that holds the content between head and hash.
  QByteArray fileWith(const QByteArray& content) const {
    const QByteArray whole = head_ + content;
    return whole + QCryptographicHash::hash(whole, QCryptographicHash::Sha256);
  }
  bool startsLikeAFile(const QByteArray& bytes) const {
    return bytes.startsWith(head_.first(kMagicSize));
  }

  // None when the file is refused with a sentence for the user.
  std::optional<Workbook> read(const QByteArray& bytes) const {
    writeFile(path_, bytes);
    try {
      Workbook workbook = readWorkbookFile(path_);
      require(!isSmall(workbook) || holdsWorkbook(path_, workbook), "a file holds what it says");
      return workbook;
    } catch (const FileError& error) {
      require(error.description().contains(path_), "a refusal names the file");
      return {};
    }
  }

 private:
  QByteArray writtenHead() const {
    writeWorkbookFile(Workbook(), path_);
    QFile file(path_);
    require(file.open(QIODevice::ReadOnly), "a written file can be opened");
    return file.read(kHeadSize);
  }

  QTemporaryDir folder_;
  const QString path_ = folder_.filePath(u"JH.ZRT"_qs);
  const QByteArray head_ = writtenHead();
};

// A whole file, or what stands between the head and the hash of one: a change there would hardly
// ever come past the hash.
void fuzzWorkbook(const QByteArray& input) {
  static const WorkbookFolder folder;
  const auto read = folder.read(folder.startsLikeAFile(input) ? input : folder.fileWith(input));
  if (!read) return;
  const QByteArray written = contentOf(*read);
  const auto again = folder.read(folder.fileWith(written));
  require(again.has_value(), "what was written can be read");
  require(contentOf(*again) == written, "a workbook read and written again is the same");
  require(!isSmall(*read) || difference(*read, *again).isEmpty(), "nothing of a workbook is lost");
}

QByteArrayList workbookSeeds() {
  const WorkbookFolder folder;
  Workbook texts;
  texts.sheet().SetCols(2);
  texts.sheet().SetRows(kMaxRows);
  texts.sheet().SetCellText(1, 0, QChar(0xD800) + u"半"_qs);
  texts.sheet().SetCellText(0, kMaxRows - 1, QString(300, u'x'));
  const QByteArray sample = contentOf(sampleWorkbook());
  return {sample, contentOf(texts), contentOf(Workbook()), folder.fileWith(sample)};
}

}  // namespace

QList<FuzzTarget> workbookTargets() {
  return {{"workbook", fuzzWorkbook, workbookSeeds()}};
}

}  // namespace vellora::test
