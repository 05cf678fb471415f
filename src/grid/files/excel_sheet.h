#pragma once

#include "grid/files/excel_styles.h"
#include "grid/sheet/workbook.h"
#include "routine/work_step.h"

namespace vellora {

inline constexpr int kExcelMaxRows = 65'536;
inline constexpr int kExcelMaxCols = 256;
inline constexpr int kExcelMaxText = 32'767;  // UTF-16 units in one cell

// Rows of a sheet that go onto one sheet of a binary Excel file, below the headings if they are
// wanted.
struct ExcelPage {
  int firstRow;
  int rows;
  bool hasHeadings;
  bool isFirst;
};

// Writes one sheet of a binary Excel file from its BOF to its EOF. Throws FileError, which names
// the cell, for a text that is too long, and WorkCancelled.
class ExcelSheet {
 public:
  ExcelSheet(const Sheet& sheet, const PageSetup& setup, ExcelStyles& styles,
             SharedStrings& strings, const WorkProgress& progress)
      : sheet_(sheet), setup_(setup), styles_(styles), strings_(strings), progress_(progress) {}

  QByteArray write(const ExcelPage& page);

 private:
  void writeSettings();
  void writePageSetup();
  void writeColumns();
  void writeRows();
  void writeRow(int row);
  void writeCell(int col, int row);
  void writeNumber(int col, int row, double number);
  void writeText(int col, int row, const QString& text);
  void beginCell(quint16 record, int col, int row);
  void writeView();
  void writeSelection(quint8 pane, int row);

  bool isVisibleColumnDefault() const;
  int placeOf(int row) const;

  const Sheet& sheet_;
  const PageSetup& setup_;
  ExcelStyles& styles_;
  SharedStrings& strings_;
  const WorkProgress& progress_;
  ExcelPage page_{};
  BiffStream stream_;
};

}  // namespace vellora
