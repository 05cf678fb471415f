#include "grid/print/sheet_printer.h"

#include "grid/files/file_messages.h"
#include "grid/print/pdf_text.h"
#include "grid/print/print_preview.h"
#include "support/temporary_folder.h"
#include "support/text_output.h"

#include <QImage>
#include <QPageLayout>
#include <QPrinter>
#include <QProcess>

#include <gtest/gtest.h>

namespace vellora {
namespace {

QByteArray outputOf(const QString& program, const QStringList& arguments) {
  QProcess process;
  process.start(program, arguments);
  EXPECT_TRUE(process.waitForFinished(60'000)) << program.toStdString();
  EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
  return process.readAllStandardOutput();
}

// A sheet printed to a PDF file and read back with other programs.
class PrintedSheet : public testing::Test {
 protected:
  void print(PrintHeadings headings) {
    savePdf(sheet, setup, headings, paperOf(setup), u"列表"_qs, path);
    const QString text = QString::fromUtf8(outputOf(u"pdftotext"_qs, {u"-raw"_qs, path, u"-"_qs}));
    pages = text.split(u'\f', Qt::SkipEmptyParts);
    for (QString& page : pages) page.remove(u'\n').remove(u' ');
  }
  QImage picture(int page) const {
    const QString number = QString::number(page);
    QImage image;
    image.loadFromData(
        outputOf(u"pdftoppm"_qs, {u"-r"_qs, u"96"_qs, u"-f"_qs, number, u"-l"_qs, number, path}));
    return image;
  }

  test::TemporaryFolder folder;
  const QString path = folder.path(u"列表.pdf"_qs);
  Sheet sheet;
  PageSetup setup;
  QStringList pages;  // without blanks and line ends
};

}  // namespace

TEST_F(PrintedSheet, ShowsEveryRowOnceWithHeadingsAndNumbersOnEachPage) {
  sheet.SetCols(2);
  sheet.SetRows(300);
  sheet.SetCellText(0, kHeadingRow, u"编号"_qs);
  sheet.SetCellText(1, kHeadingRow, u"名称"_qs);
  for (int row = 0; row < 250; ++row) sheet.SetCellText(1, row, u"<活动%1>"_qs.arg(row));
  sheet.HideRow(7);
  print(PrintHeadings::HeadingStrip);
  ASSERT_GE(pages.size(), 4);
  for (int page = 0; page < pages.size(); ++page) {
    EXPECT_TRUE(pages[page].startsWith(u"编号名称<活动"_qs)) << page;
    EXPECT_TRUE(pages[page].endsWith(u"第%1页共%2页"_qs.arg(page + 1).arg(pages.size()))) << page;
  }
  const QString all = pages.join(QString());
  for (int row = 0; row < 250; ++row) {
    EXPECT_EQ(all.count(u"<活动%1>"_qs.arg(row)), row == 7 ? 0 : 1) << row;
  }
}

TEST_F(PrintedSheet, WrapsTextsOfAnyLengthAndCutsNothing) {
  sheet.SetCols(3);
  sheet.SetRows(4);
  for (int col = 0; col < 3; ++col) sheet.SetColumnWidth(col, 90);
  QString chinese;
  for (int i = 0; i < 2'000; ++i) chinese += QChar(0x4E00 + i);
  const QString word(300, u'w');
  sheet.SetCellText(0, 1, u"之前"_qs);
  sheet.SetCellText(1, 1, chinese);
  sheet.SetCellText(2, 1, u"第一行\r第二行"_qs);
  sheet.SetCellText(1, 2, word);
  sheet.SetCellText(0, 3, u"之后"_qs);
  sheet.SetRowHeight(1, 10);
  print(PrintHeadings::HeadingStrip);
  const QString all = pages.join(QString());
  for (const QChar character : chinese)
    ASSERT_TRUE(all.contains(character)) << static_cast<int>(character.unicode());
  EXPECT_EQ(all.count(u'w'), 300);
  for (const char16_t* text : {u"之前", u"第一行", u"第二行", u"之后"}) {
    EXPECT_TRUE(all.contains(QString::fromUtf16(text)));
  }
}

TEST_F(PrintedSheet, PutsTheBoardOnOnePagesWidthWithItsFirstRowRepeated) {
  setup.landscape = true;
  setup.fitToOnePageWidth = true;
  sheet.SetCols(8);
  sheet.SetRows(51);
  sheet.SetDefaultRowHeight(60);
  for (int col = 0; col < 8; ++col) {
    sheet.SetColumnWidth(col, 300);
    for (int row = 0; row < 51; ++row) sheet.SetCellText(col, row, u"[%1,%2]"_qs.arg(col).arg(row));
  }
  print(PrintHeadings::FirstRow);
  ASSERT_GE(pages.size(), 2);
  for (const QString& page : pages) {
    EXPECT_TRUE(page.startsWith(u"[0,0][1,0][2,0][3,0][4,0][5,0][6,0][7,0]"_qs));
  }
  EXPECT_EQ(pages.join(QString()).count(u"[7,"_qs), 50 + pages.size());
  const QImage image = picture(1);
  EXPECT_GT(image.width(), image.height());
}

TEST_F(PrintedSheet, PutsColumnsThatAreTooWideToReadOnFurtherPages) {
  sheet.SetCols(12);
  sheet.SetRows(1);
  for (int col = 0; col < 12; ++col) {
    sheet.SetColumnWidth(col, 200);
    sheet.SetCellText(col, 0, u"[%1]"_qs.arg(col));
  }
  print(PrintHeadings::HeadingStrip);
  EXPECT_GE(pages.size(), 2);
  for (int col = 0; col < 12; ++col) {
    EXPECT_EQ(pages.join(QString()).count(u"[%1]"_qs.arg(col)), 1);
  }
}

TEST_F(PrintedSheet, PrintsCellColoursOnWhitePaper) {
  sheet.SetCols(2);
  sheet.SetRows(1);
  for (int col = 0; col < 2; ++col) sheet.SetColumnWidth(col, 100);
  sheet.SetRowHeight(0, 100);
  sheet.SetCellText(0, 0, u"."_qs);
  sheet.SetCellColors(1, 0, kRed, packColour(230, 220, 255));
  sheet.SetRangeBorder(1, 0, 1, 0, 0, 4, kBlue);
  print(PrintHeadings::HeadingStrip);
  const QImage image = picture(1);
  const int margin = qRound(15 / 25.4 * 96);
  const auto colourAt = [&](int x, int y) { return image.pixelColor(margin + x, margin + y); };
  EXPECT_EQ(colourAt(150, 50), QColor(230, 220, 255));
  EXPECT_EQ(colourAt(50, 80), QColor(Qt::white));
  EXPECT_EQ(colourAt(150, 99), QColor(Qt::blue));
  EXPECT_EQ(colourAt(300, 300), QColor(Qt::white));
}

TEST_F(PrintedSheet, IsSearchedAndCopiedWithTheCharactersThatWereTyped) {
  QString typed;
  for (char16_t radical = 0x2E80; radical <= 0x2FD5; ++radical) {
    if (meantCharacter(radical) != radical) typed += QChar(meantCharacter(radical));
  }
  sheet.SetCols(1);
  sheet.SetRows(2);
  sheet.SetCellFont(0, kEveryRow, 8, kFontRegular, u"Noto Serif CJK SC"_qs);
  sheet.SetCellText(0, 0, u"人儿入工作日程 长 见"_qs);
  sheet.SetCellText(0, 1, typed);
  print(PrintHeadings::HeadingStrip);
  ASSERT_EQ(pages.size(), 1);
  EXPECT_TRUE(pages[0].startsWith(u"人儿入工作日程长见"_qs)) << pages[0].toStdString();
  for (const QChar character : pages[0]) {
    EXPECT_EQ(meantCharacter(character.unicode()), character.unicode());
  }
  EXPECT_TRUE(outputOf(u"pdfinfo"_qs, {path}).contains("Title:           列表"));
}

TEST_F(PrintedSheet, SaysThatAPrinterDoesNotTakeThePages) {
  QPrinter printer;
  printer.setOutputFormat(QPrinter::PdfFormat);
  printer.setOutputFileName(folder.path(u"没有/x.pdf"_qs));
  EXPECT_EQ(
      test::messageOf([&] { printSheet(sheet, setup, PrintHeadings::HeadingStrip, printer); }),
      u"无法打印：打印机不可用，或目标文件无法写入。"_qs);
}

}  // namespace vellora
