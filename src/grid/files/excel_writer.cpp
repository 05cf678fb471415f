#include "grid/files/excel_writer.h"

#include "grid/files/compound_file.h"
#include "grid/files/excel_sheet.h"
#include "grid/files/excel_styles.h"
#include "grid/files/export_file.h"
#include "grid/files/exported_sheet.h"

#include <QStringList>

#include <algorithm>
#include <vector>

namespace vellora {
namespace {

// One sheet of a binary Excel file as its globals know it.
struct ExcelSheetEntry {
  QString name;
  quint32 size;  // of its records, in bytes
};

constexpr quint16 kWriteAccess = 0x005C;
constexpr quint16 kTabId = 0x013D;
constexpr quint16 kWindow1 = 0x003D;
constexpr quint16 kBoundSheet = 0x0085;
constexpr quint16 kCountry = 0x008C;
constexpr quint16 kSupBook = 0x01AE;
constexpr quint16 kExternSheet = 0x0017;
constexpr quint16 kName = 0x0018;
constexpr quint16 kCodePage = 0x04B0;  // UTF-16
constexpr quint16 kChina = 86;
constexpr quint8 kPrintTitles = 7;
constexpr quint8 kArea3d = 0x3B;
constexpr int kMaxNameSize = 31;

void writeBeginning(BiffStream& stream, quint16 sheets) {
  stream.beginPart(5);
  stream.record16(0x00E1, kCodePage);  // INTERFACEHDR
  stream.record16(0x00C1, 0);          // MMS
  stream.begin(0x00E2);                // INTERFACEEND
  stream.end();
  stream.begin(kWriteAccess);  // who has the file open: nobody
  stream.put16(0);
  stream.put8(0);
  for (int blank = 3; blank < 112; ++blank) stream.put8(' ');
  stream.end();
  stream.record16(0x0042, kCodePage);
  stream.record16(0x0161, 0);  // DSF
  stream.begin(kTabId);
  for (quint16 sheet = 1; sheet <= sheets; ++sheet) stream.put16(sheet);
  stream.end();
  stream.record16(0x009C, 0x000E);  // FNGROUPCOUNT
}

// Not protected; shown whole; calculated as in any new workbook.
void writeWorkbookSettings(BiffStream& stream) {
  for (const int protection : {0x0019, 0x0012, 0x0013, 0x01AF, 0x01BC}) {
    stream.record16(static_cast<quint16>(protection), 0);
  }
  stream.record16(0x0040, 0);  // BACKUP
  stream.record16(0x008D, 0);  // HIDEOBJ
  stream.begin(kWindow1);
  for (const int field : {0, 0, 0x3FFF, 0x2000, 0x0038, 0, 0, 1, 600}) {
    stream.put16(static_cast<quint16>(field));
  }
  stream.end();
  stream.record16(0x0022, 0);  // DATEMODE: since 1900
  stream.record16(0x000E, 1);  // PRECISION: full
  stream.record16(0x01B7, 0);  // REFRESHALL
  stream.record16(0x00DA, 0);  // BOOKBOOL
}

// Gives the positions at which the sheets' places in the stream are to be put.
std::vector<quint32> writeSheetList(BiffStream& stream,
                                    const std::vector<ExcelSheetEntry>& sheets) {
  std::vector<quint32> places;
  for (const ExcelSheetEntry& sheet : sheets) {
    stream.begin(kBoundSheet);
    places.push_back(stream.position());
    stream.put32(0);
    stream.put16(0);  // a visible worksheet
    stream.putShortText(sheet.name);
    stream.end();
  }
  return places;
}

// A name refers to the workbook's own sheets through this list.
void writeOwnReferences(BiffStream& stream, quint16 sheets) {
  stream.begin(kSupBook);
  stream.put16(sheets);
  stream.put16(0x0401);
  stream.end();
  stream.begin(kExternSheet);
  stream.put16(sheets);
  for (quint16 sheet = 0; sheet < sheets; ++sheet) {
    stream.put16(0);
    stream.put16(sheet);
    stream.put16(sheet);
  }
  stream.end();
}

void writePrintTitles(BiffStream& stream, quint16 sheet) {
  constexpr quint16 kFormulaSize = 11;
  stream.begin(kName);
  stream.put16(0x0020);  // built in
  stream.put8(0);
  stream.put8(1);
  stream.put16(kFormulaSize);
  stream.put16(0);
  stream.put16(static_cast<quint16>(sheet + 1));
  stream.put32(0);
  stream.put8(0);
  stream.put8(kPrintTitles);
  stream.put8(kArea3d);
  for (const int field : {int{sheet}, 0, 0, 0, 255}) stream.put16(static_cast<quint16>(field));
  stream.end();
}

QByteArray excelGlobals(const std::vector<ExcelSheetEntry>& sheets, bool hasHeadings,
                        const ExcelStyles& styles, const SharedStrings& strings,
                        const WorkProgress& progress) {
  const auto count = static_cast<quint16>(sheets.size());
  BiffStream stream;
  writeBeginning(stream, count);
  writeWorkbookSettings(stream);
  styles.writeFonts(stream);
  styles.writeFormats(stream);
  styles.writePalette(stream);
  stream.record16(0x0160, 0);  // USESELFS
  const std::vector<quint32> places = writeSheetList(stream, sheets);
  stream.begin(kCountry);
  stream.put16(kChina);
  stream.put16(kChina);
  stream.end();
  if (hasHeadings) {
    writeOwnReferences(stream, count);
    for (quint16 sheet = 0; sheet < count; ++sheet) writePrintTitles(stream, sheet);
  }
  strings.write(stream, progress);
  stream.endPart();
  quint32 place = stream.position();
  for (std::size_t sheet = 0; sheet < sheets.size(); ++sheet) {
    stream.patch32(places[sheet], place);
    place += sheets[sheet].size;
  }
  return stream.bytes();
}

QStringList excelSheetNames(const QString& wanted, int count) {
  QString base;
  for (const QChar unit : wanted) {
    const bool isRefused = unit < u' ' || QStringView(u"[]:*?/\\'").contains(unit);
    base += isRefused ? QChar(u'_') : unit;
  }
  if (base.isEmpty()) base = u"Sheet1"_qs;
  QStringList names;
  for (int sheet = 1; sheet <= count; ++sheet) {
    const QString suffix = sheet == 1 ? QString() : u" (%1)"_qs.arg(sheet);
    QString start = base.left(kMaxNameSize - suffix.size());
    if (start.back().isHighSurrogate()) start.chop(1);
    names << start + suffix;
  }
  return names;
}

std::vector<ExcelPage> pagesOf(const Sheet& sheet) {
  const bool withHeadings = hasHeadings(sheet);
  const int room = kExcelMaxRows - (withHeadings ? 1 : 0);
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
  exportFile(path,
             [&](SafeFile& file) { writeCompoundFile(u"Workbook"_qs, stream, file, progress); });
}

}  // namespace vellora
