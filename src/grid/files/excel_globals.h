#pragma once

#include "grid/files/excel_styles.h"
#include "grid/files/shared_strings.h"

#include <QStringList>

#include <vector>

namespace vellora {

// One sheet of a binary Excel file as its globals know it.
struct ExcelSheetEntry {
  QString name;
  quint32 size;  // of its records, in bytes
};

// The records before the sheets: fonts, formats, colours, texts, the sheets' names and places in
// the stream, and the first row of each repeated in print where they have headings. Throws
// WorkGivenUp.
QByteArray excelGlobals(const std::vector<ExcelSheetEntry>& sheets, bool hasHeadings,
                        const ExcelStyles& styles, const SharedStrings& strings,
                        const WorkProgress& progress);

// Names for so many sheets from one that the user knows: without the characters that a sheet's name
// cannot hold, at most 31 long, never empty, different.
QStringList excelSheetNames(const QString& wanted, int count);

}  // namespace vellora
