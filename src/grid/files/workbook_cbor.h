#pragma once

#include "grid/files/cbor_input.h"
#include "grid/sheet/workbook.h"

#include <functional>
#include <optional>
#include <vector>

class QCborStreamWriter;

namespace vellora {

// A workbook as one CBOR document, in the notation of RFC 8610:
//
//   workbook = [page-setup, current-sheet: uint, [+ sheet]]
//   page-setup = [landscape: bool, fits-width: bool, left: float, top: float, right: float,
//                 bottom: float, ? (width: float, height: float)]  ; millimetres; of upright paper
//   sheet = [name: tstr, rows: uint, default-row-height: uint, default-font: font, [* column],
//            [* row]]
//   font = [face: tstr, points: uint, style: uint]
//   column = [width: uint / null, heading-text: text, heading-tag: text, heading: look,
//             every-row: look]
//   row = [skipped-rows: uint, height: uint / null, hidden: bool, * cell]
//   cell = text / [skipped-columns: uint, look, text, tag: text]  ; text alone: the next column,
//                                                                 ; nothing set, no tag
//   look = uint / settings  ; 0: nothing set; settings get the sheet's next number, from 1
//   settings = {? 0: font, ? 1: [text-colour: uint, back-colour: uint],
//               ? 2: [border-width: uint, border-colour: uint], ? 3: align: int,
//               ? 4: input-mode: int, ? 5: option: int, ? 6: wrap: bool,
//               ? 7: category: 0..6}
//   text = uint / tstr / bstr ; a text that is not empty gets the sheet's next number, from 0, as
//                             ; long as there are fewer than 65,536; bstr: UTF-16, little endian,
//                             ; of a text that is no valid Unicode
//
// Calls pulse() at every row.
void encodeWorkbook(const Workbook& workbook, QCborStreamWriter& writer,
                    const std::function<void()>& pulse);

// One row as a file has it; what it leaves out is empty.
struct DecodedRow {
  struct Cell {
    int col = 0;
    QString text;
    QString tag;
    const CellSettings* settings = nullptr;  // null: nothing set
  };

  int index = 0;
  std::optional<int> height;
  bool isHidden = false;
  std::vector<Cell> cells;  // from the left to the right
};

// What becomes of the rows of sheet 0, then of those of sheet 1 and so on, each from the top to the
// bottom. The sheet has its columns and its number of rows.
using RowTaker = std::function<void(int index, Sheet& sheet, const DecodedRow& row)>;

void putRow(Sheet& sheet, const DecodedRow& row);

// Throws MalformedContent. The rows of the workbook hold what `takeRow` put there.
Workbook decodeWorkbook(CborInput& input, const RowTaker& takeRow);

inline constexpr std::size_t kMaxNumberedTexts = 65'536;
inline constexpr int kMaxSheets = 1'000;

}  // namespace vellora
