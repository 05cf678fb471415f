// Written files as LibreOffice reads them. Takes its time: every file is a start of the office.

#include "described_sheet.h"
#include "grid/files/excel_writer.h"
#include "grid/files/exported_sheet.h"
#include "grid/files/html_writer.h"
#include "outside_reader.h"
#include "support/temporary_folder.h"
#include "support/text_output.h"

#include <QHash>

namespace vellora {
namespace {

class OfficeReads : public testing::Test {
 protected:
  static QStringList office(const QStringList& arguments) {
    return test::linesOf(QStringLiteral(PYTHON),
                         QStringList{QStringLiteral(READER_DIR "/read_office.py")} + arguments);
  }
  // The office keeps fifteen digits.
  static QStringList cells(const QStringList& lines) {
    QStringList found;
    for (const QString& line : test::linesAbout(u"cell"_qs, lines)) {
      QStringList parts = line.split(u'\t');
      if (parts[3] == u"number") parts[4] = QString::number(parts[4].toDouble(), 'g', 14);
      if (parts[3] != u"blank" || !parts[5].endsWith(u"/0/none")) found << parts.join(u'\t');
    }
    return found;
  }

  const Sheet sheet_ = test::sampleList();
  test::TemporaryFolder folder_;
};

// The cells in view of a sheet with headings, without their looks; the office takes away blanks
// around a text.
QStringList cellsInView(const Sheet& sheet, const QStringList& cells) {
  QHash<int, int> places;
  for (int row = kHeadingRow; row < sheet.Rows(); ++row) {
    if (!isOutOfView(sheet, row)) places.insert(row, static_cast<int>(places.size()));
  }
  QStringList found;
  for (const QString& line : cells) {
    QStringList parts = line.split(u'\t').first(5);
    const int row = parts[1].toInt() - 1;
    if (parts[3] == u"blank" || !places.contains(row)) continue;
    parts[1] = QString::number(places[row]);
    parts[4] = parts[4].trimmed();
    found << parts.join(u'\t');
  }
  return found;
}

}  // namespace

TEST_F(OfficeReads, EveryCellOfAnExcelFileWithItsValueAndLook) {
  const QString path = folder_.path(u"列表.xls"_qs);
  writeExcelFile(sheet_, {}, u"活动/计划"_qs, path);
  const QStringList lines = office({path});
  EXPECT_EQ(lines.value(0), u"sheet\t活动_计划"_qs);
  EXPECT_EQ(cells(lines), cells(test::describedCells(sheet_)));
}

TEST_F(OfficeReads, SizesAndHiddenRowsOfAnExcelFile) {
  const QString path = folder_.path(u"列表.xls"_qs);
  writeExcelFile(sheet_, {}, u"表"_qs, path);
  const QStringList lines = office({path});
  for (const QString& line : test::describedSizes(sheet_)) {
    QStringList parts = line.split(u'\t');
    const bool isRow = parts[0] == u"row";
    const bool isHidden = parts[3] == u"1";
    const QString found = lines.filter(parts[0] + u'\t' + parts[1] + u'\t').value(0);
    EXPECT_EQ(found.section(u'\t', 3), parts[3]) << line.toStdString();
    // Its columns are as many digits wide, in the digits of the font that it finds.
    const double size = parts[2].toDouble() / (isRow ? 15 : 32 / 1.27);
    if (isHidden) continue;
    EXPECT_NEAR(found.section(u'\t', 2, 2).toDouble(), size, isRow ? 0 : 3);
  }
}

TEST_F(OfficeReads, EveryCellOfAnHtmlFileAsItWas) {
  const QString path = folder_.path(u"列表.HTM"_qs);
  writeHtmlFile(sheet_, {}, u"列表"_qs, path);
  QStringList read;
  for (const QString& line : cells(office({path, u"calc_HTML_WebQuery"_qs}))) {
    read << line.section(u'\t', 0, 4);
  }
  EXPECT_EQ(read, cellsInView(sheet_, cells(test::describedCells(sheet_))));
}

}  // namespace vellora
