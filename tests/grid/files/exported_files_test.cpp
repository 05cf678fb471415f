// Exported files as programs read them that know nothing of the planner: a reader of Excel files, a
// parser of pages, an office.

#include "file_messages.h"
#include "grid/files/excel_writer.h"
#include "grid/files/exported_sheet.h"
#include "grid/files/html_writer.h"
#include "sample_workbook.h"
#include "support/temporary_folder.h"
#include "support/text_output.h"

#include <QColor>
#include <QProcess>

#include <gtest/gtest.h>

namespace vellora {
namespace {

// What another program prints about a file, in lines.
QStringList linesOf(const QString& program, const QStringList& arguments) {
  QProcess process;
  process.start(program, arguments);
  EXPECT_TRUE(process.waitForFinished(240'000)) << process.errorString().toStdString();
  EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
  return QString::fromUtf8(process.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
}

QStringList readXls(const QStringList& paths) {
  return linesOf(QStringLiteral(PYTHON),
                 QStringList(QStringLiteral(READER_DIR "/read_xls.py")) + paths);
}

QStringList readHtml(const QString& path) {
  return linesOf(QStringLiteral(PYTHON), {QStringLiteral(READER_DIR "/read_html.py"), path});
}

class ExportedFiles : public testing::Test {
 protected:
  QString excel(const Sheet& sheet, const QString& name = u"表.xls"_qs) const {
    QString path = folder_.path(name);
    writeExcelFile(sheet, {true, true, 10, 20, 30, 40}, u"活动/计划"_qs, path);
    return path;
  }
  QString html(const Sheet& sheet, const QString& title) const {
    QString path = folder_.path(u"表.HTM"_qs);
    writeHtmlFile(sheet, {true, true}, title, path);
    return path;
  }
  QStringList htmlLines(const Sheet& sheet, const QString& title) const {
    const QString path = html(sheet, title);
    EXPECT_EQ(linesOf(u"tidy"_qs,
                      {u"-quiet"_qs, u"-errors"_qs, u"--drop-empty-elements"_qs, u"no"_qs, path}),
              QStringList());
    return readHtml(path);
  }

  test::TemporaryFolder folder_;
};

// An office that opens and keeps the files. Takes its time: every file starts it.
class OfficeReaders : public ExportedFiles {
 protected:
  OfficeReaders() { qputenv("LC_ALL", "C"); }  // lengths in inches

  // The file that the office makes of one of ours.
  QString kept(const QString& path, const QString& kind, const QStringList& options = {}) const {
    const QStringList arguments{u"-env:UserInstallation=file://"_qs + folder_.path(u"profile"_qs),
                                u"--headless"_qs,
                                u"--convert-to"_qs,
                                kind,
                                u"--outdir"_qs,
                                folder_.path(u"kept"_qs)};
    linesOf(u"soffice"_qs, options + arguments + QStringList{path});
    return folder_.path(u"kept/表."_qs + kind);
  }
};

QString hex(PackedColour colour) {
  return QColor(redOf(colour), greenOf(colour), blueOf(colour)).name();
}

QString describedLook(const CellStyle& style) {
  const auto either = [&style](int flag, const QString& word, const QString& other) {
    return (style.align & flag) != 0 ? word : other;
  };
  const bool isBordered = style.border && style.borderWidth > 0;
  const QStringList parts{
      style.font.face,
      QString::number(style.font.size),
      isBold(style.font) ? u"bold"_qs : u"regular"_qs,
      style.hasColours ? hex(style.textColour) : u"auto"_qs,
      style.hasColours ? hex(style.backColour) : u"none"_qs,
      either(kAlignCentre, u"centre"_qs, either(kAlignRight, u"right"_qs, u"left"_qs)),
      either(kAlignTop, u"top"_qs, either(kAlignBottom, u"bottom"_qs, u"middle"_qs)),
      style.wrap ? u"wrap"_qs : u"line"_qs,
      style.option == 1 ? u"@"_qs : u"General"_qs,
      isBordered ? QString::number(style.borderWidth) + hex(style.borderColour) : u"none"_qs};
  return parts.join(u'/');
}

QString describedCell(const Sheet& sheet, int col, int row) {
  QString text = exportedText(sheet.GetCellText(col, row));
  const bool isNumber = sheet.CellNumber(col, row).has_value();
  const QString kind = text.isEmpty() ? u"blank"_qs : isNumber ? u"number"_qs : u"text"_qs;
  text.replace(u'\\', u"\\\\"_qs).replace(u'\n', u"\\n"_qs).replace(u'\t', u"\\t"_qs);
  return kind + u'\t' + text;
}

// What should be read of a sheet with headings: sizes and cells, numbers in their shortest form.
QStringList described(const Sheet& sheet) {
  QStringList lines{u"sheet\t活动_计划"_qs};
  for (int col = 0; col < sheet.Cols(); ++col) {
    const int width = exportedWidth(sheet, col);
    lines << u"column\t%1\t%2\t%3"_qs.arg(col).arg(width * 32).arg(width == 0 ? 1 : 0);
  }
  for (int row = kHeadingRow; row < sheet.Rows(); row = sheet.NextWrittenRow(row + 1)) {
    const int isHidden = isOutOfView(sheet, row) ? 1 : 0;
    lines << u"row\t%1\t%2\t%3"_qs.arg(row + 1).arg(exportedHeight(sheet, row) * 15).arg(isHidden);
  }
  for (int row = kHeadingRow; row < sheet.Rows(); ++row) {
    for (int col = 0; col < sheet.Cols(); ++col) {
      const CellStyle& style = sheet.StyleAt(col, row);
      const bool isEmpty = sheet.GetCellText(col, row).isEmpty();
      if (isEmpty && row != kHeadingRow && !style.hasColours && !style.border) continue;
      lines << u"cell\t%1\t%2\t"_qs.arg(row + 1).arg(col) + describedCell(sheet, col, row) + u'\t' +
                   describedLook(style);
    }
  }
  return lines;
}

// Columns of a list without headings.
Sheet listOf(const QStringList& texts, int cols = 1) {
  Sheet sheet;
  sheet.SetCols(cols);
  sheet.SetRows(static_cast<int>(texts.size()));
  for (int row = 0; row < sheet.Rows(); ++row) sheet.SetCellText(0, row, texts[row]);
  return sheet;
}

QStringList textsIn(const QStringList& lines) {
  QStringList texts;
  for (const QString& line : lines) {
    if (line.startsWith(u"cell")) texts << line.split(u'\t')[4];
  }
  return texts;
}

// Place, kind and value of every cell; the office keeps fifteen digits and trims texts of a page.
QStringList valuesIn(const QStringList& lines) {
  QStringList values;
  for (const QString& line : lines) {
    QStringList parts = line.split(u'\t').first(qMin(5, line.count(u'\t') + 1));
    if (parts[0] != u"cell" || parts[3] == u"blank" || parts[4].isEmpty()) continue;
    if (parts[3] == u"number") parts[4] = QString::number(parts[4].toDouble(), 'g', 14);
    parts[4] = parts[4].trimmed();
    values << parts.join(u'\t');
  }
  return values;
}

}  // namespace

TEST_F(ExportedFiles, ExcelHoldsEveryCellWithItsLookAndEverySize) {
  const Sheet sheet = test::sampleList();
  EXPECT_EQ(readXls({excel(sheet)}), described(sheet));
}

TEST_F(ExportedFiles, ExcelTextsAreReadWhereverARecordOrASheetEnds) {
  constexpr int kLastOffset = 8'224 - (8 + 3 + 3) + 4;  // a record less counts and two headers
  QStringList paths;
  QStringList expected;
  for (int size = kLastOffset; size >= kLastOffset - 48; --size) {
    const QStringList texts{QString(size, u'x'), u"中文😀𠮷x与y"_qs, u"plain latin"_qs, u"末"_qs};
    paths << excel(listOf(texts), u"%1.xls"_qs.arg(size));
    expected << texts;
  }
  QStringList many{QString(32'767, u'a'), u"😀"_qs.repeated(16'383)};
  // So much that the list of the FAT's sectors goes over the compound file's header and one sector.
  for (int size = 32'767; size > 32'517; --size) many << QString(size, u'长');
  for (int number = 0; number < 20'000; ++number) many << u"第%1条"_qs.arg(number % 15'000);
  paths << excel(listOf(many)) << excel(Sheet(), u"0.xls"_qs);
  expected << many;
  for (const int rows : {65'535, 65'536}) {
    Sheet sheet = listOf(QStringList(rows, u"行"_qs));
    sheet.SetCellText(0, kHeadingRow, u"序号"_qs);
    sheet.SetCellText(0, rows - 1, u"末行"_qs);
    paths << excel(sheet, u"%1.xls"_qs.arg(rows));
    expected << u"序号"_qs << QStringList(65'534, u"行"_qs);
    expected << (rows == 65'535 ? QStringList{u"末行"_qs}
                                : QStringList{u"行"_qs, u"序号"_qs, u"末行"_qs});
  }
  EXPECT_TRUE(textsIn(readXls(paths)) == expected);
}

TEST_F(ExportedFiles, ExcelShowsTheNearestColourWhereThereAreTooMany) {
  Sheet sheet = listOf(QStringList(200, u"色"_qs));
  for (int row = 0; row < 200; ++row) sheet.SetCellColors(0, row, kBlack, packColour(row, row, 0));
  const QStringList lines = readXls({excel(sheet)}).filter(u"cell"_qs);
  ASSERT_EQ(lines.size(), 200);
  for (int row = 0; row < 200; ++row) {
    const QColor back = QColor(lines[row].section(u'/', 4, 4));
    EXPECT_NEAR(back.red(), row, row < 50 ? 0 : 160) << row;
  }
}

TEST_F(ExportedFiles, ExcelRefusesWhatTheFormatCannotHold) {
  Sheet longText = listOf(QStringList(5), 2);
  longText.SetCellText(1, 4, QString(32'768, u'x'));
  Sheet manyFaces = listOf(QStringList(501, u"字"_qs));
  for (int row = 0; row < 501; ++row) manyFaces.SetCellFont(0, row, 9, 0, u"字体%1"_qs.arg(row));
  const std::pair<Sheet, QString> cases[]{
      {listOf({}, 257), u"表格有 257 列，Excel 文件最多能放 256 列。"_qs},
      {longText, u"第 5 行第 2 列的文本有 32768 个字符，Excel 文件的一个单元格最多 32767 个。"_qs},
      {manyFaces, u"表格的单元格样式太多，Excel 文件放不下。"_qs}};
  for (const auto& [sheet, message] : cases) {
    EXPECT_EQ(test::messageOf([&, &sheet = sheet] { excel(sheet); }), message);
  }
}

TEST_F(ExportedFiles, HtmlHoldsEveryTextInViewWhateverIsInIt) {
  Sheet sheet = test::sampleList();
  const QStringList nasty{u"</td></table><script>alert(1)</script>"_qs, u"&lt; &#0; &\r\n\r  x"_qs,
                          u"\"'`-->]]><!--\t"_qs};
  for (int row = 0; row < nasty.size(); ++row) sheet.SetCellText(2, 40 + row, nasty[row]);
  sheet.SetCellFont(1, 40, 9, kFontBold, u"x\"}</style><script>\\"_qs);
  QStringList expected{u"title\t</title>&x"_qs};
  int place = 0;
  for (int row = kHeadingRow; row < sheet.Rows(); ++row) {
    if (isOutOfView(sheet, row)) continue;
    for (int col = 0; col < 3; ++col) {
      QString cell = describedCell(sheet, col, row);
      cell.replace(u"blank"_qs, u"text"_qs);
      expected << u"cell\t%1\t%2\t"_qs.arg(place).arg(col) + cell;
    }
    ++place;
  }
  EXPECT_EQ(htmlLines(sheet, u"</title>&x"_qs), expected);
  const QString broken = QString(QChar(0xDC00)) + u"\x01\x7F\u0085\uFFFE";
  EXPECT_EQ(
      htmlLines(listOf({broken}), {}),
      (QStringList{u"title\tVellora"_qs, u"cell\t0\t0\ttext\t"_qs + QString(5, QChar(0xFFFD))}));
}

TEST_F(OfficeReaders, KeepEveryValueAndThePage) {
  const QString xls = excel(test::sampleList());
  EXPECT_EQ(valuesIn(readXls({kept(xls, u"xls"_qs)})), valuesIn(readXls({xls})));
  const QByteArray document = test::bytesOf(kept(xls, u"fods"_qs));
  for (const char* part :
       {"style:print-orientation=\"landscape\"", "<table:table-header-rows>",
        "style:scale-to-X=\"1\"", "fo:margin-left=\"0.3937in\"", "fo:margin-right=\"1.1811in\""}) {
    EXPECT_TRUE(document.contains(part)) << part;
  }
  const QString page = html(test::sampleList(), u"表"_qs);
  const QString made = kept(page, u"xls"_qs, {u"--infilter=calc_HTML_WebQuery"_qs});
  EXPECT_EQ(valuesIn(readXls({made})), valuesIn(readHtml(page)));
}

}  // namespace vellora
