// A long list as an Excel and as an HTML file beside what others take for the same cells. The
// others measure themselves: neither their start nor reading the cells is counted, nor is theirs
// to bring the file onto the disk, as ours is.

#include "grid/files/excel_writer.h"
#include "grid/files/html_writer.h"
#include "support/side_by_side.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <cstdio>
#include <stdexcept>
#include <vector>

namespace vellora::bench {
namespace {

constexpr int kRows = 65'000;
constexpr int kCols = 5;
constexpr int kRepetitions = 3;
const QString kRivals = QStringLiteral(RIVALS_DIR);

// Rows as a plan's: every date and level often, every requirement once.
Sheet longPlan() {
  Sheet sheet;
  sheet.SetCols(kCols);
  sheet.SetRows(kRows);
  sheet.SetDefaultRowHeight(38);
  for (int col = 0; col < kCols; ++col) sheet.SetCellAlign(col, kEveryRow, kAlignCentred);
  for (int col = 0; col < kCols; ++col) sheet.SetCellWrap(col, kEveryRow, true);
  for (int row = 0; row < kRows; ++row) {
    sheet.SetCellText(0, row, u"20%1-03-05\r星期一"_qs.arg(row / 700, 2, 10, QChar(u'0')));
    sheet.SetCellText(1, row, u"08:00-09:30\r第%1节"_qs.arg(row % 48));
    sheet.SetCellText(2, row, u"活动项目%1"_qs.arg(row % 200));
    sheet.SetCellText(3, row, u"要求：第%1条，<b>&"_qs.arg(row));
    sheet.SetCellValue(4, row, row % 10);
  }
  return sheet;
}

// Texts in quotes, numbers without.
void writeCsv(const Sheet& sheet, const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly)) throw std::runtime_error("no file for the cells");
  for (int row = 0; row < sheet.Rows(); ++row) {
    QByteArray line;
    for (int col = 0; col < sheet.Cols(); ++col) {
      const QByteArray text = sheet.GetCellText(col, row).replace(u'\r', u'\n').toUtf8();
      line += (col > 0 ? "," : "") + (sheet.CellNumber(col, row) ? text : '"' + text + '"');
    }
    file.write(line + '\n');
  }
}

class ExportBench {
 public:
  ExportBench() { writeCsv(sheet_, csv_); }

  void run() {
    for (int i = 0; i < kRepetitions; ++i) measure();
    SideBySide table;
    const auto record = [&](const std::string& what, std::vector<double> ours,
                            std::vector<double> theirs, double target) {
      table.record(what, "ms", 1'000 * medianOf(std::move(ours)),
                   1'000 * medianOf(std::move(theirs)), target);
    };
    record("Excel, 65,000 rows, beside python3-xlwt", excel_, xlwt_, 0.1);
    record("Excel, 65,000 rows, beside LibreOffice", excel_, officeExcel_, 0.05);
    record("HTML, 65,000 rows, beside LibreOffice", html_, officeHtml_, 0.05);
    table.print();
  }

 private:
  void measure() {
    excel_.push_back(
        seconds([&] { writeExcelFile(sheet_, {}, u"列表"_qs, path(u"ours.xls"_qs)); }));
    html_.push_back(seconds([&] { writeHtmlFile(sheet_, {}, u"列表"_qs, path(u"ours.HTM"_qs)); }));
    xlwt_.push_back(rival(u"xlwt_export.py"_qs, path(u"xlwt.xls"_qs)).at(0));
    const std::vector<double> office = rival(u"office_export.py"_qs, folder_.path());
    officeExcel_.push_back(office.at(0));
    officeHtml_.push_back(office.at(1));
  }

  template <typename Work>
  static double seconds(Work work) {
    QElapsedTimer timer;
    timer.start();
    work();
    return static_cast<double>(timer.nsecsElapsed()) / 1e9;
  }

  // The seconds that a rival prints, one line each.
  std::vector<double> rival(const QString& script, const QString& target) const {
    QProcess process;
    process.start(QStringLiteral(PYTHON), {kRivals + u'/' + script, csv_, target});
    if (!process.waitForFinished(-1) || process.exitCode() != 0) {
      throw std::runtime_error(process.readAllStandardError().toStdString());
    }
    std::vector<double> seconds;
    for (const QByteArray& line : process.readAllStandardOutput().trimmed().split('\n')) {
      seconds.push_back(line.toDouble());
    }
    return seconds;
  }
  QString path(const QString& name) const { return folder_.filePath(name); }

  const QTemporaryDir folder_;
  const QString csv_ = folder_.filePath(u"cells.csv"_qs);
  const Sheet sheet_ = longPlan();
  std::vector<double> excel_, html_, xlwt_, officeExcel_, officeHtml_;
};

}  // namespace
}  // namespace vellora::bench

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);  // exports ask for its folder
  try {
    vellora::bench::ExportBench().run();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
