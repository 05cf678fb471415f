#include "grid/sheet/workbook.h"

namespace vellora {

Workbook::Workbook() {
  AddSheet(u"表1"_qs);
}

void Workbook::AddSheet(const QString& name) {
  pages_.push_back({name, Sheet()});
}

bool Workbook::has(int sheet) const {
  return sheet >= 0 && sheet < SheetCount();
}

void Workbook::SetSheetName(const QString& name, int sheet) {
  if (has(sheet)) pages_[static_cast<std::size_t>(sheet)].name = name;
}

QString Workbook::SheetName(int sheet) const {
  return has(sheet) ? pages_[static_cast<std::size_t>(sheet)].name : QString();
}

void Workbook::SetCurrentSheet(int sheet) {
  if (has(sheet)) current_ = sheet;
}

}  // namespace vellora
