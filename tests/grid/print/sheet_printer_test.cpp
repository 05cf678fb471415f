#include "grid/print/sheet_printer.h"

#include "grid/files/file_messages.h"
#include "grid/print/pdf_text.h"
#include "grid/print/print_preview.h"
#include "support/temporary_folder.h"
#include "support/text_output.h"

#include <QApplication>
#include <QFileDialog>
#include <QImage>
#include <QLineEdit>
#include <QMessageBox>
#include <QPageLayout>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QTimer>

#include <functional>
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
  // Every cell with a text that tells its place.
  void fill(int cols, int rows, int width) {
    sheet.SetCols(cols);
    sheet.SetRows(rows);
    for (int col = 0; col < cols; ++col) {
      sheet.SetColumnWidth(col, width);
      for (int row = 0; row < rows; ++row) {
        sheet.SetCellText(col, row, u"[%1,%2]"_qs.arg(col).arg(row));
      }
    }
  }
  void print(const PrintOptions& options = PrintHeadings::HeadingStrip) {
    savePdf(sheet, setup, options, paperOf(setup), u"列表"_qs, path);
    const QString text = QString::fromUtf8(outputOf(u"pdftotext"_qs, {u"-raw"_qs, path, u"-"_qs}));
    pages = text.split(u'\f', Qt::SkipEmptyParts);
    for (QString& page : pages) page.remove(u'\n').remove(u' ');
  }
  // Of the first page.
  QImage picture() const {
    return QImage::fromData(
        outputOf(u"pdftoppm"_qs, {u"-r"_qs, u"96"_qs, u"-l"_qs, u"1"_qs, path}));
  }

  test::TemporaryFolder folder;
  const QString path = folder.path(u"列表.pdf"_qs);
  Sheet sheet;
  PageSetup setup;
  QStringList pages;  // without blanks and line ends
};

// Does something with the next modal window as soon as the event loop shows it.
template <typename Dialog>
void withNextWindow(std::function<void(Dialog&)> act) {
  QTimer::singleShot(0, qApp, [act] {
    auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
    if (!dialog) return withNextWindow(act);
    act(*dialog);
  });
}

void saveAs(const QString& path, QPrintPreviewDialog& dialog) {
  withNextWindow<QFileDialog>([path](QDialog& chooser) {
    chooser.findChild<QLineEdit*>()->setText(path);
    chooser.accept();
  });
  dialog.findChild<QPushButton*>(u"cmdPdf"_qs)->click();
}

}  // namespace

TEST_F(PrintedSheet, ShowsEveryCellOnceWithHeadingsAndNumbersOnEachPage) {
  fill(12, 150, 200);
  sheet.SetCellText(0, kHeadingRow, u"编号"_qs);
  sheet.SetCellText(11, kHeadingRow, u"名称"_qs);
  sheet.HideRow(7);
  print();
  ASSERT_GE(pages.size(), 6) << "columns that are too wide to read are on further pages";
  for (int page = 0; page < pages.size(); ++page) {
    EXPECT_TRUE(pages[page].endsWith(u"第%1页共%2页"_qs.arg(page + 1).arg(pages.size()))) << page;
    EXPECT_EQ(pages[page].contains(u"[0,"_qs), pages[page].startsWith(u"编号"_qs)) << page;
    EXPECT_EQ(pages[page].contains(u"[11,"_qs), pages[page].contains(u"名称["_qs)) << page;
  }
  const QString all = pages.join(QString());
  for (int i = 0; i < 12 * 150; ++i) {
    EXPECT_EQ(all.count(u"[%1,%2]"_qs.arg(i % 12).arg(i / 12)), i / 12 == 7 ? 0 : 1) << i;
  }
}

TEST_F(PrintedSheet, FillsOnePageForTheWallWithTheLargestLettersThatFit) {
  PrintOptions wall(PrintHeadings::FirstRow);
  wall.title = u"第九周"_qs;
  wall.isForTheWall = true;
  setup.fitToOnePageWidth = true;
  QList<double> letters;
  for (const int rows : {4, 40}) {
    fill(4, rows, 150);
    sheet.SetCellText(1, 1, u"午睡\r"_qs);
    print(wall);
    ASSERT_EQ(pages.size(), 1);
    EXPECT_TRUE(pages[0].startsWith(u"第九周"_qs) && pages[0].contains(u"6-休息"_qs));
    EXPECT_FALSE(pages[0].contains(u"共1页"_qs));
    const QString boxes =
        QString::fromUtf8(outputOf(u"pdftotext"_qs, {u"-bbox"_qs, path, u"-"_qs}));
    const QRegularExpression last(
        uR"x(yMin="([0-9.]+)"[^>]*yMax="([0-9.]+)">\[3,%1\])x"_qs.arg(rows - 1));
    const auto match = last.match(boxes);
    EXPECT_GT(match.captured(1).toDouble(), 640) << "points from the top: the rows fill the page";
    letters << match.captured(2).toDouble() - match.captured(1).toDouble();
  }
  EXPECT_NEAR(letters[0] / letters[1], 14 / 9.0, 0.35);
}

TEST_F(PrintedSheet, WrapsTextsOfAnyLengthAndCutsAndMistakesNothing) {
  fill(3, 3, 90);
  QString chinese;
  for (int i = 0; i < 2'000; ++i) chinese += QChar(0x4E00 + i);
  for (char16_t radical = 0x2E80; radical <= 0x2FD5; ++radical) {
    if (meantCharacter(radical) != radical) chinese += QChar(meantCharacter(radical));
  }
  sheet.SetCellFont(1, kEveryRow, 8, kFontRegular, u"Noto Serif CJK SC"_qs);
  sheet.SetCellText(1, 1, chinese);
  sheet.SetCellText(2, 1, u"[x]\r[y]"_qs);
  sheet.SetCellText(1, 2, QString(300, u'w'));
  sheet.SetRowHeight(1, 10);
  print();
  const QString all = pages.join(QString());
  for (const QChar character : chinese) ASSERT_TRUE(all.contains(character));
  for (const QChar character : all) {
    ASSERT_EQ(meantCharacter(character.unicode()), character.unicode());
  }
  EXPECT_EQ(all.count(u'w'), 300);
  for (const auto& text : {u"[0,1]"_qs, u"[x]"_qs, u"[y]"_qs, u"[2,2]"_qs}) {
    EXPECT_TRUE(all.contains(text)) << text.toStdString();
  }
  EXPECT_TRUE(outputOf(u"pdfinfo"_qs, {path}).contains("Title:           列表"));
}

TEST_F(PrintedSheet, PutsTheBoardOnOnePagesWidthWithItsFirstRowRepeated) {
  setup.landscape = true;
  setup.fitToOnePageWidth = true;
  sheet.SetDefaultRowHeight(60);
  fill(8, 51, 300);
  print(PrintHeadings::FirstRow);
  ASSERT_GE(pages.size(), 2);
  for (const QString& page : pages) {
    EXPECT_TRUE(page.startsWith(u"[0,0][1,0][2,0][3,0][4,0][5,0][6,0][7,0]"_qs));
  }
  EXPECT_EQ(pages.join(QString()).count(u"[7,"_qs), 50 + pages.size());
  const QImage image = picture();
  EXPECT_GT(image.width(), image.height());
}

TEST_F(PrintedSheet, PrintsCellColoursOnWhitePaper) {
  fill(2, 1, 100);
  sheet.SetRowHeight(0, 100);
  sheet.SetCellColors(1, 0, kRed, packColour(230, 220, 255));
  sheet.SetRangeBorder(1, 0, 1, 0, 0, 4, kBlue);
  print();
  const QImage image = picture();
  const int margin = qRound(15 / 25.4 * 96);
  const auto colourAt = [&](int x, int y) { return image.pixelColor(margin + x, margin + y); };
  EXPECT_EQ(colourAt(150, 50), QColor(230, 220, 255));
  EXPECT_EQ(colourAt(50, 80), QColor(Qt::white));
  EXPECT_EQ(colourAt(150, 99), QColor(Qt::blue));
  EXPECT_EQ(colourAt(300, 300), QColor(Qt::white));
}

TEST_F(PrintedSheet, SaysThatAPrinterDoesNotTakeThePages) {
  QPrinter printer;
  printer.setOutputFormat(QPrinter::PdfFormat);
  printer.setOutputFileName(folder.path(u"没有/x.pdf"_qs));
  const auto send = [&] { printSheet(sheet, setup, PrintHeadings::HeadingStrip, printer); };
  EXPECT_EQ(test::messageOf(send), u"无法打印：打印机不可用，或目标文件无法写入。"_qs);
}

TEST_F(PrintedSheet, IsPreviewedSavedAndSetUpThere) {
  fill(1, 1, 100);
  setup = {true, true, 12, 13, 14, 15};
  const auto preview = [this](const WorkRunner& run) {
    return previewSheet(sheet, setup, PrintHeadings::HeadingStrip, u"活动项目"_qs, nullptr, run);
  };
  QString message;
  withNextWindow<QPrintPreviewDialog>([&](QPrintPreviewDialog& dialog) {
    saveAs(path, dialog);
    withNextWindow<QMessageBox>([&](QMessageBox& box) {
      message = box.text();
      box.accept();
    });
    saveAs(u"/proc/x.pdf"_qs, dialog);
    EXPECT_TRUE(dialog.isVisible());
    dialog.printer()->setPageOrientation(QPageLayout::Portrait);
    dialog.reject();
  });
  const PageSetup turned{false, true, 12, 13, 14, 15};
  EXPECT_EQ(preview(runWithoutProgress), turned);
  EXPECT_TRUE(test::bytesOf(path).startsWith("%PDF"));
  EXPECT_TRUE(message.startsWith(u"无法写入文件“/proc/x.pdf”："_qs)) << message.toStdString();
  const auto giveUp = [](QWidget*, const std::function<void(const WorkProgress&)>& work) {
    work([](const WorkStep&) { return false; });
  };
  EXPECT_EQ(preview(giveUp), setup) << "closes when the layout is given up";
}

}  // namespace vellora
