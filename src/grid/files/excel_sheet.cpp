#include "grid/files/excel_sheet.h"

#include "grid/files/exported_sheet.h"
#include "grid/files/file_error.h"

#include <algorithm>

namespace vellora {
namespace {

constexpr quint16 kRow = 0x0208;
constexpr quint16 kBlank = 0x0201;
constexpr quint16 kNumber = 0x0203;
constexpr quint16 kLabelSst = 0x00FD;
constexpr quint16 kDimensions = 0x0200;
constexpr quint16 kDefaultRowHeight = 0x0225;
constexpr quint16 kDefaultColumnWidth = 0x0055;
constexpr quint16 kColumnInfo = 0x007D;
constexpr quint16 kHeader = 0x0014;
constexpr quint16 kFooter = 0x0015;
constexpr quint16 kSetup = 0x00A1;
constexpr quint16 kPane = 0x0041;
constexpr quint16 kWindow2 = 0x023E;
constexpr quint16 kSelection = 0x001D;

// Rows and their cells follow each other in groups of this size.
constexpr int kRowsPerGroup = 32;
constexpr quint8 kUpperPane = 3;
constexpr quint8 kLowerPane = 2;

constexpr double inches(double millimetres) {
  return millimetres / 25.4;
}

}  // namespace

QByteArray ExcelSheet::write(const ExcelPage& page) {
  page_ = page;
  stream_ = BiffStream();
  stream_.beginPart(16);
  writeSettings();
  writePageSetup();
  writeColumns();
  writeRows();
  writeView();
  stream_.endPart();
  return stream_.bytes();
}

// How the sheet is calculated and outlined: as in any new one.
void ExcelSheet::writeSettings() {
  stream_.record16(0x000D, 1);        // CALCMODE: automatic
  stream_.record16(0x000C, 100);      // CALCCOUNT
  stream_.record16(0x000F, 1);        // REFMODE: A1
  stream_.record16(0x0011, 0);        // ITERATION
  stream_.recordReal(0x0010, 0.001);  // DELTA
  stream_.record16(0x005F, 1);        // SAVERECALC
  stream_.record16(0x002A, 0);        // PRINTHEADERS
  stream_.record16(0x002B, 1);        // PRINTGRIDLINES
  stream_.record16(0x0082, 1);        // GRIDSET
  stream_.begin(0x0080);              // GUTS
  stream_.putZeros(8);
  stream_.end();
  stream_.begin(kDefaultRowHeight);
  stream_.put16(1);
  stream_.put16(excelRowHeight(sheet_.DefaultRowHeight()));
  stream_.end();
  stream_.record16(0x0081, setup_.fitToOnePageWidth ? 0x05C1 : 0x04C1);  // WSBOOL
}

void ExcelSheet::writePageSetup() {
  stream_.begin(kHeader);
  stream_.end();
  stream_.begin(kFooter);
  stream_.putText(u"&C第 &P 页 共 &N 页");
  stream_.end();
  stream_.record16(0x0083, 0);  // HCENTER
  stream_.record16(0x0084, 0);  // VCENTER
  stream_.recordReal(0x0026, inches(setup_.marginLeft));
  stream_.recordReal(0x0027, inches(setup_.marginRight));
  stream_.recordReal(0x0028, inches(setup_.marginTop));
  stream_.recordReal(0x0029, inches(setup_.marginBottom));
  stream_.begin(kSetup);
  // A4, 100 %, from page 1, one page wide and as many as needed high, portrait or not, 300 dpi.
  for (const int field : {9, 100, 1, 1, 0, setup_.landscape ? 0 : 2, 300, 300}) {
    stream_.put16(static_cast<quint16>(field));
  }
  stream_.putReal(inches(setup_.marginTop / 2));
  stream_.putReal(inches(setup_.marginBottom / 2));
  stream_.put16(1);
  stream_.end();
}

void ExcelSheet::writeColumns() {
  stream_.record16(kDefaultColumnWidth, 8);
  for (int col = 0; col < sheet_.Cols(); ++col) {
    const int width = exportedWidth(sheet_, col);
    stream_.begin(kColumnInfo);
    stream_.put16(static_cast<quint16>(col));
    stream_.put16(static_cast<quint16>(col));
    stream_.put16(excelColumnWidth(width));
    stream_.put16(ExcelStyles::kPlainFormat);
    stream_.put16(width == 0 ? 1 : 0);
    stream_.put16(0);
    stream_.end();
  }
}

int ExcelSheet::placeOf(int row) const {
  if (row == kHeadingRow) return 0;
  return row - page_.firstRow + (page_.hasHeadings ? 1 : 0);
}

bool ExcelSheet::isVisibleColumnDefault() const {
  for (int col = 0; col < sheet_.Cols(); ++col) {
    if (styles_.showsWhenEmpty(col, kEveryRow)) return true;
  }
  return false;
}

void ExcelSheet::writeRows() {
  const int endRow = page_.firstRow + page_.rows;
  stream_.begin(kDimensions);
  stream_.put32(0);
  stream_.put32(static_cast<quint32>(placeOf(endRow)));
  stream_.put16(0);
  stream_.put16(static_cast<quint16>(sheet_.Cols()));
  stream_.put16(0);
  stream_.end();
  std::vector<int> group;
  if (page_.hasHeadings) group.push_back(kHeadingRow);
  const auto flush = [&] {
    for (const int row : group) writeRow(row);
    for (const int row : group) {
      for (int col = 0; col < sheet_.Cols(); ++col) writeCell(col, row);
    }
    group.clear();
  };
  const bool skipsNothing = isVisibleColumnDefault();
  const auto next = [&](int row) { return skipsNothing ? row : sheet_.NextWrittenRow(row); };
  for (int row = next(page_.firstRow); row < endRow; row = next(row + 1)) {
    reportRow(progress_, u"正在写入 Excel 文件……"_qs, row, sheet_.Rows());
    if (!group.empty() && placeOf(group.front()) / kRowsPerGroup != placeOf(row) / kRowsPerGroup) {
      flush();
    }
    group.push_back(row);
  }
  flush();
}

void ExcelSheet::writeRow(int row) {
  constexpr quint32 kAlways = 0x0F'0100;
  constexpr quint32 kHidden = 0x20;
  constexpr quint32 kOwnHeight = 0x40;
  stream_.begin(kRow);
  stream_.put16(static_cast<quint16>(placeOf(row)));
  stream_.put16(0);
  stream_.put16(static_cast<quint16>(sheet_.Cols()));
  stream_.put16(excelRowHeight(exportedHeight(sheet_, row)));
  stream_.put32(0);
  stream_.put32(kAlways | kOwnHeight | (isOutOfView(sheet_, row) ? kHidden : 0));
  stream_.end();
}

void ExcelSheet::beginCell(quint16 record, int col, int row) {
  stream_.begin(record);
  stream_.put16(static_cast<quint16>(placeOf(row)));
  stream_.put16(static_cast<quint16>(col));
  stream_.put16(styles_.formatOf(col, row));
}

void ExcelSheet::writeCell(int col, int row) {
  const QString text = sheet_.GetCellText(col, row);
  if (!text.isEmpty()) {
    const std::optional<double> number = sheet_.CellNumber(col, row);
    if (number) return writeNumber(col, row, *number);
    return writeText(col, row, text);
  }
  if (row != kHeadingRow && !styles_.showsWhenEmpty(col, row)) return;
  beginCell(kBlank, col, row);
  stream_.end();
}

void ExcelSheet::writeNumber(int col, int row, double number) {
  beginCell(kNumber, col, row);
  stream_.putReal(number);
  stream_.end();
}

void ExcelSheet::writeText(int col, int row, const QString& text) {
  if (text.size() > kExcelMaxText) {
    throw FileError(
        u"第 %1 行第 %2 列的文本有 %3 个字符，Excel 文件的一个单元格最多 %4 个。"_qs.arg(row + 1)
            .arg(col + 1)
            .arg(text.size())
            .arg(kExcelMaxText));
  }
  beginCell(kLabelSst, col, row);
  stream_.put32(strings_.numberOf(sheet_.NumbersAt(col, row).text, text));
  stream_.end();
}

// The headings stay in view while the rest scrolls.
void ExcelSheet::writeView() {
  const int top = page_.hasHeadings ? 1 : 0;
  stream_.begin(kWindow2);
  stream_.put16(static_cast<quint16>(0x00B6 | (page_.isFirst ? 0x0600 : 0) |
                                     (page_.hasHeadings ? 0x0108 : 0)));
  stream_.put32(0);
  stream_.put32(0x40);
  for (int field = 0; field < 4; ++field) stream_.put16(0);
  stream_.end();
  if (page_.hasHeadings) {
    stream_.begin(kPane);
    for (const int field : {0, top, top, 0, int{kLowerPane}}) {
      stream_.put16(static_cast<quint16>(field));
    }
    stream_.end();
    writeSelection(kUpperPane, 0);
    writeSelection(kLowerPane, top);
  } else {
    writeSelection(kUpperPane, 0);
  }
}

void ExcelSheet::writeSelection(quint8 pane, int row) {
  stream_.begin(kSelection);
  stream_.put8(pane);
  for (const int field : {row, 0, 0, 1, row, row}) stream_.put16(static_cast<quint16>(field));
  stream_.put16(0);
  stream_.end();
}

}  // namespace vellora
