#pragma once

#include "grid/sheet/sheet.h"

#include <QString>

#include <vector>

namespace vellora {

// How a sheet is printed. Margins in millimetres.
struct PageSetup {
  bool landscape = false;
  bool fitToOnePageWidth = false;
  double marginLeft = 15;
  double marginTop = 15;
  double marginRight = 15;
  double marginBottom = 15;
  double paperWidth = 210;  // upright; A4
  double paperHeight = 297;
  friend bool operator==(const PageSetup&, const PageSetup&) = default;
};

// Named sheets in order from 0, one of them current. There is always at least one sheet. A sheet
// that does not exist has no name and cannot be named or made current; sheetAt() must be given one
// that exists.
class Workbook {
 public:
  Workbook();

  int SheetCount() const { return static_cast<int>(pages_.size()); }
  void AddSheet(const QString& name);
  void SetSheetName(const QString& name, int sheet);
  QString SheetName(int sheet) const;
  void SetCurrentSheet(int sheet);
  int CurrentSheet() const { return current_; }

  Sheet& sheet() { return pages_[static_cast<std::size_t>(current_)].sheet; }
  const Sheet& sheet() const { return pages_[static_cast<std::size_t>(current_)].sheet; }
  Sheet& sheetAt(int sheet) { return pages_.at(static_cast<std::size_t>(sheet)).sheet; }
  const Sheet& sheetAt(int sheet) const { return pages_.at(static_cast<std::size_t>(sheet)).sheet; }

  PageSetup pageSetup;

 private:
  struct Page {
    QString name;
    Sheet sheet;
  };
  bool has(int sheet) const;

  std::vector<Page> pages_;
  int current_ = 0;
};

}  // namespace vellora
