#include "grid/files/excel_writer.h"

#include "grid/files/compound_file.h"
#include "grid/files/excel_globals.h"
#include "grid/files/excel_sheet.h"
#include "grid/files/exported_sheet.h"
#include "grid/files/safe_file.h"

#include <algorithm>

namespace vellora {
namespace {

constexpr int kMaxExcelSheets = 250;

std::vector<ExcelPage> pagesOf(const Sheet& sheet) {
  const bool withHeadings = hasHeadings(sheet);
  const int room = kExcelMaxRows - (withHeadings ? 1 : 0);
  if (sheet.Rows() > qint64{room} * kMaxExcelSheets) {
    throw FileError(u"表格有 %1 行，Excel 文件最多能放 %2 行。"_qs.arg(sheet.Rows())
                        .arg(room * kMaxExcelSheets));
  }
  std::vector<ExcelPage> pages{{0, std::min(room, sheet.Rows()), withHeadings, true}};
  for (int row = room; row < sheet.Rows(); row += room) {
    pages.push_back({row, std::min(room, sheet.Rows() - row), withHeadings, false});
  }
  return pages;
}

void refuseTooManyColumns(const Sheet& sheet) {
  if (sheet.Cols() <= kExcelMaxCols) return;
  throw FileError(
      u"表格有 %1 列，Excel 文件最多能放 %2 列。"_qs.arg(sheet.Cols()).arg(kExcelMaxCols));
}

// The globals and then the sheets, one after the other, are the file's one stream.
std::vector<QByteArray> workbookStream(const Sheet& sheet, const PageSetup& setup,
                                       const QString& sheetName, const WorkProgress& progress) {
  const std::vector<ExcelPage> pages = pagesOf(sheet);
  const QStringList names = excelSheetNames(sheetName, static_cast<int>(pages.size()));
  ExcelStyles styles(sheet);
  SharedStrings strings;
  ExcelSheet writer(sheet, setup, styles, strings, progress);
  std::vector<QByteArray> stream(1);
  std::vector<ExcelSheetEntry> entries;
  qint64 size = 0;
  for (const ExcelPage& page : pages) {
    stream.push_back(writer.write(page));
    size += stream.back().size();
    if (size > kMaxCompoundStream / 2) throw FileError(u"表格太大，Excel 文件放不下。"_qs);
    entries.push_back({names[static_cast<qsizetype>(entries.size())],
                       static_cast<quint32>(stream.back().size())});
  }
  stream[0] = excelGlobals(entries, pages.front().hasHeadings, styles, strings, progress);
  return stream;
}

}  // namespace

void writeExcelFile(const Sheet& sheet, const PageSetup& setup, const QString& sheetName,
                    const QString& path, const WorkProgress& progress) {
  refuseTooManyColumns(sheet);
  const std::vector<QByteArray> stream = workbookStream(sheet, setup, sheetName, progress);
  SafeFile file(path);
  writeCompoundFile(u"Workbook"_qs, stream, file, progress);
  file.commit();
}

}  // namespace vellora
