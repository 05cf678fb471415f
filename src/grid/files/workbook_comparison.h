#pragma once

#include "grid/files/workbook_cbor.h"

namespace vellora {

// Compares a workbook with what a file holds, row by row while the file is read.
class WorkbookComparison {
 public:
  explicit WorkbookComparison(const Workbook& expected);

  // A row of the file; of each sheet from the top to the bottom.
  void take(int sheet, const DecodedRow& row);
  // Whether the rows were the expected ones, and none is missing, and the rest of the file, read
  // without its rows, is the same as well.
  bool isSame(const Workbook& read) const;

 private:
  bool isNextRow(std::size_t sheet, const DecodedRow& row) const;

  const Workbook& expected_;
  std::vector<int> nextRows_;  // by sheet
  bool isSame_ = true;         // so far
};

}  // namespace vellora
