#include "grid/files/workbook_file.h"

#include "file_messages.h"
#include "sample_workbook.h"
#include "sheet_comparison.h"
#include "support/temporary_folder.h"
#include "support/text_output.h"

#include <QCryptographicHash>

#include <functional>
#include <gtest/gtest.h>

namespace vellora {
namespace {

constexpr qsizetype kHeadSize = 10;
constexpr qsizetype kHashSize = 32;

class WorkbookFile : public testing::Test {
 protected:
  Workbook roundTrip(const Workbook& workbook) const {
    writeWorkbookFile(workbook, path);
    return readWorkbookFile(path);
  }
  QByteArray sampleBytes() const {
    writeWorkbookFile(test::sampleWorkbook(), path);
    return test::bytesOf(path);
  }
  // What reading a file of these bytes says; "" when it is read.
  QString messageFor(const QByteArray& bytes) const {
    test::writeBytes(path, bytes);
    return test::messageOf([this] { readWorkbookFile(path); });
  }
  QString damaged() const { return u"文件“%1”已损坏或不完整，无法读取。"_qs.arg(path); }
  QString foreign() const { return u"文件“%1”不是日程表的数据文件，无法读取。"_qs.arg(path); }
  QString malformed() const { return u"文件“%1”的内容有误，无法读取。"_qs.arg(path); }

  test::TemporaryFolder folder;
  const QString path = folder.path(u"JH.ZRT"_qs);
};

// The content between head and hash replaced, and the hash made right again.
QByteArray withContent(const QByteArray& file, const QByteArray& content) {
  const QByteArray whole = file.first(kHeadSize) + content;
  return whole + QCryptographicHash::hash(whole, QCryptographicHash::Sha256);
}

QByteArray contentOf(const QByteArray& file) {
  return file.sliced(kHeadSize, file.size() - kHeadSize - kHashSize);
}

}  // namespace

TEST_F(WorkbookFile, KeepsTextsOfEveryKindAndNumber) {
  Workbook workbook;
  Sheet& sheet = workbook.sheet();
  sheet.SetCols(1);
  const QString texts[]{QString(1, QChar(0)), QString(QChar(0xD800)),
                        u"\U0001F600"_qs,     QString(QChar(0xDC00)) + u"a",
                        u"'\"#[%\t\n\r"_qs,   QString(300'000, u'长'),
                        QString(70'000, u'x')};
  for (const QString& text : texts) {
    sheet.SetRows(sheet.Rows() + 1);
    sheet.SetCellText(0, sheet.Rows() - 1, text);
  }
  // More than the file numbers, and each again.
  for (int row = sheet.Rows(); row < 70'000; ++row) {
    sheet.SetRows(row + 1);
    sheet.SetCellText(0, row, QString::number(row));
    sheet.SetCellTag(0, row, QString::number(70'000 - row));
  }
  EXPECT_EQ(test::difference(workbook, roundTrip(workbook)), QString());
}

TEST_F(WorkbookFile, EveryKindOfChangeMakesAnotherRevisionAndAnotherFile) {
  const Workbook sample = test::sampleWorkbook();
  writeWorkbookFile(sample, path);
  EXPECT_TRUE(holdsWorkbook(path, sample));
  const auto expectOther = [&](const Workbook& changed) {
    writeWorkbookFile(sample, path);
    EXPECT_FALSE(holdsWorkbook(path, changed));
    writeWorkbookFile(changed, path);
    EXPECT_FALSE(holdsWorkbook(path, sample));
    EXPECT_EQ(test::difference(changed, readWorkbookFile(path)), QString());
  };
  const std::function<void(Workbook&)> bookChanges[]{
      [](Workbook& book) { book.AddSheet(QString()); },
      [](Workbook& book) { book.SetSheetName(u"HD"_qs, 0); },
      [](Workbook& book) { book.SetCurrentSheet(0); },
      [](Workbook& book) { book.pageSetup.marginTop = 11.5; },
      [](Workbook& book) { book.sheetAt(0).SetRows(1); }};
  for (const auto& change : bookChanges) {
    SCOPED_TRACE(&change - bookChanges);
    Workbook changed = sample;
    change(changed);
    expectOther(changed);
  }
  const QString texts[]{u"中间"_qs, u"12"_qs};
  const std::function<void(Sheet&)> changes[]{
      [](Sheet& s) { s.SetCols(5); },
      [](Sheet& s) { s.SetRows(69); },
      [](Sheet& s) { s.SetDefaultRowHeight(39); },
      [](Sheet& s) { s.SetDefaultFont(10, kFontRegular, u"楷体_GB2312"_qs); },
      [](Sheet& s) { s.SetColumnWidth(1, 261); },
      [](Sheet& s) { s.SetRowHeight(3, 52); },
      [](Sheet& s) { s.HideRow(39); },
      [](Sheet& s) { s.InsertRows(40, 1); },
      [](Sheet& s) { s.DeleteRows(40, 1); },
      [](Sheet& s) { s.SetCellText(1, kHeadingRow, u"类别"_qs); },
      [](Sheet& s) { s.SetCellTag(1, kHeadingRow, QString()); },
      [](Sheet& s) { s.SetCellAlign(1, kHeadingRow, kAlignRight); },
      [](Sheet& s) { s.SetCellAlign(0, kEveryRow, kAlignRight); },
      [](Sheet& s) { s.SetCellText(1, 0, u"中间"_qs); },
      [&](Sheet& s) { s.SetRowTexts(0, texts); },
      [](Sheet& s) { s.SetCellValue(2, 39, 7); },
      [](Sheet& s) { s.SetCellTag(0, 0, u"A02"_qs); },
      [](Sheet& s) { s.SetCellOption(2, 0, 1); },
      [](Sheet& s) { s.SetCellInput(1, 39, 7); },
      [](Sheet& s) { s.SetCellWrap(1, 39, true); },
      [](Sheet& s) { s.SetCellFont(2, 0, 13, kFontBold, u"黑体"_qs); },
      [](Sheet& s) { s.SetCellColors(1, 39, kRed, kBlue); },
      [](Sheet& s) { s.SetRangeBorder(0, 39, 0, 39, 0, 1, kRed); },
      [](Sheet& s) { s.SetCellSettings(2, 1, {}); }};
  for (const auto& change : changes) {
    SCOPED_TRACE(&change - changes);
    Workbook changed = sample;
    change(changed.sheet());
    EXPECT_GT(changed.sheet().revision(), sample.sheetAt(1).revision());
    expectOther(changed);
  }
}

TEST_F(WorkbookFile, RefusesEveryTruncation) {
  const QByteArray whole = sampleBytes();
  ASSERT_EQ(messageFor(whole), QString());
  for (qsizetype size = 0; size < whole.size(); ++size) {
    ASSERT_EQ(messageFor(whole.first(size)), size < 8 ? foreign() : damaged()) << size;
  }
  EXPECT_EQ(messageFor(whole + '\0'), damaged());
}

TEST_F(WorkbookFile, RefusesEveryFlippedBit) {
  const QByteArray whole = sampleBytes();
  for (qsizetype bit = 0; bit < whole.size() * 8; ++bit) {
    QByteArray flipped = whole;
    flipped[bit / 8] = static_cast<char>(flipped[bit / 8] ^ 1 << bit % 8);
    ASSERT_EQ(messageFor(flipped), bit < 64 ? foreign() : damaged()) << bit;
  }
}

TEST_F(WorkbookFile, SaysThatAFileIsMissingNoFileOrNewer) {
  const QString missing = folder.path(u"没有"_qs);
  EXPECT_EQ(test::messageOf([&] { readWorkbookFile(missing); }),
            u"无法读取文件“%1”：文件或文件夹不存在。"_qs.arg(missing));
  const QString directory = folder.path(u"."_qs);
  EXPECT_EQ(test::messageOf([&] { readWorkbookFile(directory); }),
            u"无法读取文件“%1”：路径有误，该处不是普通文件。"_qs.arg(directory));
  QByteArray newer = sampleBytes();
  newer[9] = 2;
  EXPECT_EQ(messageFor(withContent(newer, contentOf(newer))),
            u"文件“%1”由更新版本的程序写成，无法读取。"_qs.arg(path));
}

TEST_F(WorkbookFile, RefusesContentThatNestsDeeplyOrClaimsMoreThanThereIs) {
  const QByteArray sample = sampleBytes();
  const QByteArray text = QByteArray::fromHex("7b7fffffffffffffff");   // 2^63 − 1 bytes of text
  const QByteArray array = QByteArray::fromHex("9b00ffffffffffffff");  // as many items
  const QByteArray pieces = QByteArray::fromHex("7f7a7fffffff61");     // in pieces
  const QByteArray bytes = QByteArray::fromHex("5b00000000ffffffff61");
  const QByteArray start = contentOf(sample).first(contentOf(sample).indexOf("SJ") - 1);
  const QByteArray contents[]{QByteArray(),   QByteArray(1'000'000, '\x81'),
                              text,           QByteArray(1'000'000, '\x9F'),
                              array,          start + text,
                              start + pieces, start + bytes,
                              start + array,  contentOf(sample) + contentOf(sample)};
  for (const QByteArray& content : contents) {
    EXPECT_EQ(messageFor(withContent(sample, content)), malformed())
        << content.left(80).toHex().toStdString();
  }
}

TEST_F(WorkbookFile, RefusesToWriteMoreSheetsThanItReads) {
  Workbook workbook;
  for (int i = 1; i < 1'000; ++i) workbook.AddSheet(QString::number(i));
  EXPECT_EQ(roundTrip(workbook).SheetCount(), 1'000);
  workbook.AddSheet(u"1000"_qs);
  EXPECT_EQ(test::messageOf([&] { writeWorkbookFile(workbook, path); }),
            u"无法写入文件“%1”：工作表超过 1000 张。"_qs.arg(path));
}

}  // namespace vellora
