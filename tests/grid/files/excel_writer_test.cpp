#include "grid/files/excel_writer.h"

#include "file_messages.h"
#include "grid/files/excel_globals.h"
#include "support/file_size_limit.h"
#include "support/temporary_folder.h"
#include "support/text_output.h"

#include <QSet>

#include <gtest/gtest.h>

namespace vellora {
namespace {

class ExcelWriterTest : public testing::Test {
 protected:
  QString refusalOf(const Sheet& sheet) {
    return test::messageOf([&] { writeExcelFile(sheet, {}, u"表"_qs, path_); });
  }
  static Sheet sheetOf(int cols, int rows) {
    Sheet sheet;
    sheet.SetCols(cols);
    sheet.SetRows(rows);
    return sheet;
  }

  test::TemporaryFolder folder_;
  const QString path_ = folder_.path(u"表.xls"_qs);
};

}  // namespace

TEST_F(ExcelWriterTest, RefusesWhatTheFormatCannotHoldAndKeepsTheOldFile) {
  test::writeBytes(path_, "old");
  Sheet longText = sheetOf(2, 5);
  longText.SetCellText(1, 4, QString(32'768, u'x'));
  Sheet manyFaces = sheetOf(1, 501);
  for (int row = 0; row < 501; ++row) manyFaces.SetCellFont(0, row, 9, 0, u"字体%1"_qs.arg(row));
  for (int row = 0; row < 501; ++row) manyFaces.SetCellText(0, row, u"字"_qs);
  const struct {
    Sheet sheet;
    QString message;
  } cases[]{
      {sheetOf(257, 1), u"表格有 257 列，Excel 文件最多能放 256 列。"_qs},
      {longText, u"第 5 行第 2 列的文本有 32768 个字符，Excel 文件的一个单元格最多 32767 个。"_qs},
      {sheetOf(1, 16'384'001), u"表格有 16384001 行，Excel 文件最多能放 16384000 行。"_qs},
      {manyFaces, u"表格的单元格样式太多，Excel 文件放不下。"_qs}};
  for (const auto& c : cases) {
    EXPECT_EQ(refusalOf(c.sheet), c.message);
    EXPECT_EQ(test::bytesOf(path_), "old");
    EXPECT_EQ(folder_.names().size(), 1);
  }
}

TEST_F(ExcelWriterTest, AFullDiskLeavesTheOldFile) {
  test::writeBytes(path_, "old");
  QString message;
  {
    const test::FileSizeLimit full(5'000);
    message = refusalOf(sheetOf(3, 3));
  }
  EXPECT_EQ(message, u"无法写入文件“%1”：文件超过了系统允许的大小。"_qs.arg(path_));
  EXPECT_EQ(test::bytesOf(path_), "old");
}

TEST_F(ExcelWriterTest, AFileGivenUpAtAnyStepLeavesTheOldOne) {
  test::writeBytes(path_, "old");
  Sheet sheet = sheetOf(1, 600);
  for (int row = 0; row < 600; ++row) sheet.SetCellText(0, row, u"第%1条"_qs.arg(row));
  QStringList steps;
  writeExcelFile(sheet, {}, u"表"_qs, folder_.path(u"步.xls"_qs), [&](const WorkStep& step) {
    steps << step.what;
    return true;
  });
  EXPECT_EQ(QSet<QString>(steps.begin(), steps.end()).size(), 3);
  for (qsizetype last = 0; last < steps.size(); ++last) {
    qsizetype left = last;
    const auto progress = [&](const WorkStep&) { return left-- > 0; };
    EXPECT_THROW(writeExcelFile(sheet, {}, u"表"_qs, path_, progress), WorkGivenUp) << last;
    EXPECT_EQ(test::bytesOf(path_), "old");
  }
  EXPECT_EQ(folder_.names().size(), 2);
}

TEST_F(ExcelWriterTest, WritesTheSameBytesForTheSameSheet) {
  Sheet sheet = sheetOf(2, 2);
  sheet.SetCellText(0, 0, u"读书"_qs);
  ASSERT_EQ(refusalOf(sheet), QString());
  const QByteArray first = test::bytesOf(path_);
  ASSERT_EQ(refusalOf(sheet), QString());
  EXPECT_EQ(test::bytesOf(path_), first);
}

TEST(ExcelSheetNames, HoldWhatASheetsNameCanAndDiffer) {
  EXPECT_EQ(excelSheetNames(u"读/写:[a]*\r"_qs, 1), QStringList{u"读_写__a___"_qs});
  EXPECT_EQ(excelSheetNames({}, 2), (QStringList{u"Sheet1"_qs, u"Sheet1 (2)"_qs}));
  EXPECT_EQ(excelSheetNames(QString(40, u'长'), 2),
            (QStringList{QString(31, u'长'), QString(27, u'长') + u" (2)"}));
  EXPECT_EQ(excelSheetNames(QString(30, u'a') + u"😀", 1), QStringList{QString(30, u'a')});
}

TEST(ExcelPalette, KeepsKnownColoursGivesOthersTheirPlaceAndThenTheNearest) {
  ExcelPalette palette;
  EXPECT_EQ(palette.indexOf(kBlack), 8U);
  EXPECT_EQ(palette.indexOf(kRed), 10U);
  const PackedColour own = packColour(1, 2, 3);
  const unsigned place = palette.indexOf(own);
  EXPECT_EQ(palette.colours()[place - 8], own);
  EXPECT_EQ(palette.indexOf(own), place);
  for (int green = 10; green < 200; ++green) palette.indexOf(packColour(3, green, 3));
  EXPECT_EQ(palette.indexOf(packColour(2, 3, 4)), place);
  EXPECT_EQ(palette.indexOf(packColour(255, 0, 1)), 10U);
  EXPECT_EQ(palette.indexOf(kWhite), 9U);
}

}  // namespace vellora
