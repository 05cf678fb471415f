// Exported files as an office opens and keeps them. Takes its time: every file starts the office.

#include "grid/files/excel_writer.h"
#include "grid/files/html_writer.h"
#include "outside_reader.h"
#include "sample_list.h"
#include "support/temporary_folder.h"
#include "support/text_output.h"

namespace vellora {
namespace {

class OfficeReaders : public testing::Test {
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
    test::linesOf(u"soffice"_qs, options + arguments + QStringList{path});
    return folder_.path(u"kept/表."_qs + kind);
  }

  const Sheet sheet_ = test::sampleList();
  test::TemporaryFolder folder_;
};

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

TEST_F(OfficeReaders, KeepEveryValueAndThePageOfAnExcelFile) {
  const QString path = folder_.path(u"表.xls"_qs);
  writeExcelFile(sheet_, {true, true, 10, 20, 30, 40}, u"表"_qs, path);
  EXPECT_EQ(valuesIn(test::readXls({kept(path, u"xls"_qs)})), valuesIn(test::readXls({path})));
  const QByteArray document = test::bytesOf(kept(path, u"fods"_qs));
  for (const char* part :
       {"style:print-orientation=\"landscape\"", "<table:table-header-rows>",
        "style:scale-to-X=\"1\"", "fo:margin-left=\"0.3937in\"", "fo:margin-right=\"1.1811in\""}) {
    EXPECT_TRUE(document.contains(part)) << part;
  }
}

TEST_F(OfficeReaders, KeepEveryValueOfAnHtmlFile) {
  const QString path = folder_.path(u"表.HTM"_qs);
  writeHtmlFile(sheet_, {}, u"表"_qs, path);
  const QString xls = kept(path, u"xls"_qs, {u"--infilter=calc_HTML_WebQuery"_qs});
  EXPECT_EQ(valuesIn(test::readXls({xls})), valuesIn(test::readHtml(path)));
}

}  // namespace vellora
