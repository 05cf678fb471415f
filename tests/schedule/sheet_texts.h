#pragma once

#include "grid/sheet/sheet.h"

#include <QStringList>

namespace vellora::test {

inline void typeRow(Sheet& sheet, int row, const QStringList& texts) {
  for (int col = 0; col < texts.size(); ++col) sheet.SetCellText(col, row, texts[col]);
}

// A row's texts with a stroke between them.
inline QString rowText(const Sheet& sheet, int row) {
  QStringList texts;
  for (int col = 0; col < sheet.Cols(); ++col) texts << sheet.GetCellText(col, row);
  return texts.join(u'|');
}

// The rows that hold any text, from the top.
inline QStringList filledRows(const Sheet& sheet) {
  QStringList rows;
  for (int row = 0; row < sheet.Rows(); ++row) {
    const QString text = rowText(sheet, row);
    if (text.size() >= sheet.Cols()) rows << text;
  }
  return rows;
}

}  // namespace vellora::test
