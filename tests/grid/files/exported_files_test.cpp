// Written Excel files as python3-xlrd and perl's Spreadsheet::ParseExcel read them.

#include "described_sheet.h"
#include "grid/files/excel_writer.h"
#include "outside_reader.h"
#include "support/temporary_folder.h"
#include "support/text_output.h"

namespace vellora {
namespace {

const QString kPython = QStringLiteral(PYTHON);
const QString kPerl = QStringLiteral(PERL);
const QString kXlrdScript = QStringLiteral(READER_DIR "/read_xls.py");
const QString kParseExcelScript = QStringLiteral(READER_DIR "/read_xls.pl");

class ExcelReaders : public testing::Test {
 protected:
  QString write(const Sheet& sheet, const QString& name = u"列表.xls"_qs) {
    QString path = folder_.path(name);
    writeExcelFile(sheet, setup_, u"活动/计划"_qs, path);
    return path;
  }
  QStringList xlrd(const QStringList& paths) {
    return test::linesOf(kPython, QStringList{kXlrdScript} + paths);
  }
  QStringList parseExcel(const QStringList& paths) {
    return test::linesOf(kPerl, QStringList{kParseExcelScript} + paths);
  }

  test::TemporaryFolder folder_;
  PageSetup setup_;
};

void expectSameLines(const QStringList& read, const QStringList& expected) {
  for (qsizetype line = 0; line < qMin(read.size(), expected.size()); ++line) {
    ASSERT_EQ(read[line], expected[line]);
  }
  EXPECT_EQ(read.size(), expected.size());
}

// A list of one column without headings.
Sheet listOf(const QStringList& texts) {
  Sheet sheet;
  sheet.SetCols(1);
  sheet.SetRows(static_cast<int>(texts.size()));
  for (int row = 0; row < sheet.Rows(); ++row) sheet.SetCellText(0, row, texts[row]);
  return sheet;
}

QStringList textsIn(const QStringList& lines) {
  QStringList texts;
  for (const QString& line : test::linesAbout(u"cell"_qs, lines)) texts << line.split(u'\t')[4];
  return texts;
}

}  // namespace

TEST_F(ExcelReaders, FindEveryCellWithItsValueAndLook) {
  const Sheet sheet = test::sampleList();
  const QString path = write(sheet);
  const QStringList expected = test::describedCells(sheet);
  ASSERT_GT(expected.size(), 30);
  expectSameLines(test::linesAbout(u"cell"_qs, xlrd({path})), expected);
  expectSameLines(test::linesAbout(u"cell"_qs, parseExcel({path})), expected);
}

TEST_F(ExcelReaders, FindSizesAndHiddenRows) {
  const Sheet sheet = test::sampleList();
  const QStringList lines = xlrd({write(sheet)});
  expectSameLines(test::linesAbout(u"column"_qs, lines) + test::linesAbout(u"row"_qs, lines),
                  test::describedSizes(sheet));
}

TEST_F(ExcelReaders, FindPageSetUpAndRepeatedHeadings) {
  setup_ = {true, true, 10, 25.4, 12.7, 20};
  const QStringList lines = parseExcel({write(test::sampleList())});
  EXPECT_EQ(lines.value(0), u"sheet\t活动_计划"_qs);
  EXPECT_EQ(lines.value(1),
            u"page\tlandscape\t9\tfit\t0.394\t1.000\t0.500\t0.787\t&C第 &P 页 共 &N 页\t0-0"_qs);
  setup_ = {};
  const QStringList plain = parseExcel({write(listOf({u"无标题"_qs}))});
  EXPECT_TRUE(plain.value(1).startsWith(u"page\tportrait\t9\tfree\t"))
      << plain.value(1).toStdString();
  EXPECT_TRUE(plain.value(1).endsWith(u"\tnone")) << plain.value(1).toStdString();
}

TEST_F(ExcelReaders, FindTextsThatARecordsEndCutsAtAnyOffset) {
  constexpr int kRecordBody = 8'224;
  constexpr int kFillerOverhead = 8 + 3 + 3;  // counts, the filler's and the next text's header
  const QStringList cut{u"中文😀𠮷x与y"_qs, u"plain latin"_qs, u"末"_qs};
  QStringList paths;
  QStringList expected;
  for (int offset = 0; offset <= 48; ++offset) {
    const QStringList texts = QStringList{QString(kRecordBody - kFillerOverhead - offset + 4, u'x')}
                              << cut;
    paths << write(listOf(texts), u"%1.xls"_qs.arg(offset));
    expected << texts;
  }
  expectSameLines(textsIn(xlrd(paths)), expected);
  expectSameLines(textsIn(parseExcel(paths)), expected);
}

TEST_F(ExcelReaders, FindTheLongestTextAndManyDifferentOnes) {
  QStringList texts{QString(32'767, u'长'), QString(32'767, u'a'), u"😀"_qs.repeated(16'383)};
  for (int number = 0; number < 20'000; ++number) texts << u"第%1条"_qs.arg(number);
  const QString path = write(listOf(texts));
  expectSameLines(textsIn(xlrd({path})), texts);
  expectSameLines(textsIn(parseExcel({path})), texts);
}

TEST_F(ExcelReaders, FindRowsBeyondASheetsLastOnFurtherSheetsWithTheHeadings) {
  const struct {
    int rows;
    QList<int> cellsPerSheet;  // the heading among them
  } cases[]{{65'535, {65'536}}, {65'536, {65'536, 2}}, {131'071, {65'536, 65'536, 2}}};
  for (const auto& c : cases) {
    Sheet sheet;
    sheet.SetCols(1);
    sheet.SetRows(c.rows);
    sheet.SetCellText(0, kHeadingRow, u"序号"_qs);
    for (int row = 0; row < c.rows; ++row) sheet.SetCellValue(0, row, row);
    QList<int> counts;
    QStringList values;
    for (const QString& line : xlrd({write(sheet)})) {
      if (line.startsWith(u"sheet")) counts << 0;
      if (!line.startsWith(u"cell")) continue;
      const QString value = line.split(u'\t')[4];
      if (counts.back()++ == 0)
        EXPECT_EQ(value, u"序号"_qs);
      else
        values << value;
    }
    EXPECT_EQ(counts, c.cellsPerSheet);
    ASSERT_EQ(values.size(), c.rows);
    for (int row = 0; row < c.rows; ++row) ASSERT_EQ(values[row].toDouble(), row);
  }
}

TEST_F(ExcelReaders, FillASheetWithoutHeadingsToItsLastRow) {
  for (const int rows : {65'536, 65'537}) {
    Sheet sheet;
    sheet.SetCols(1);
    sheet.SetRows(rows);
    sheet.SetCellText(0, rows - 1, u"末"_qs);
    const QStringList lines = xlrd({write(sheet)});
    const int place = (rows - 1) % 65'536;
    EXPECT_EQ(test::linesAbout(u"sheet"_qs, lines).size(), rows == 65'536 ? 1 : 2);
    const QString cell = test::linesAbout(u"cell"_qs, lines).value(0);
    EXPECT_TRUE(cell.startsWith(u"cell\t%1\t0\ttext\t末\t"_qs.arg(place))) << cell.toStdString();
  }
}

TEST_F(ExcelReaders, OpenAnEmptySheetAndOneOfAllColumns) {
  Sheet wide;
  wide.SetCols(256);
  wide.SetRows(1);
  for (int col = 0; col < 256; ++col) wide.SetCellValue(col, 0, col);
  const QStringList paths{write(Sheet(), u"0.xls"_qs), write(wide, u"256.xls"_qs)};
  const QStringList lines = xlrd(paths);
  EXPECT_EQ(test::linesAbout(u"sheet"_qs, lines).size(), 2);
  EXPECT_EQ(textsIn(lines).size(), 256);
  EXPECT_EQ(textsIn(parseExcel(paths)), textsIn(lines));
}

TEST_F(ExcelReaders, FindTheNearestColourWhereThereAreTooMany) {
  Sheet sheet = listOf(QStringList(200, u"色"_qs));
  for (int row = 0; row < 200; ++row) sheet.SetCellColors(0, row, kBlack, packColour(row, row, 0));
  const QStringList lines = test::linesAbout(u"cell"_qs, xlrd({write(sheet)}));
  ASSERT_EQ(lines.size(), 200);
  for (int row = 0; row < 200; ++row) {
    const uint back = lines[row].section(u'/', 4, 4).toUInt(nullptr, 16);
    EXPECT_NEAR(back >> 16U, row, row < 50 ? 0 : 160) << row;
    EXPECT_EQ(lines[row].section(u'/', 3, 3), u"000000"_qs);
  }
}

}  // namespace vellora
