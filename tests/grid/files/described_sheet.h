#pragma once

#include "grid/sheet/workbook.h"

#include <QStringList>

namespace vellora::test {

// What a reader of the written Excel file should print about a sheet with headings that fits on one
// page of the file; see readers/read_xls.py.
QStringList describedSizes(const Sheet& sheet);
QStringList describedCells(const Sheet& sheet);

// Lines of one kind, numbers in their shortest form.
QStringList linesAbout(const QString& kind, const QStringList& lines);

// A list as the windows make them: headings, Chinese and rare texts, numbers, dates, looks, sizes.
Sheet sampleList();

}  // namespace vellora::test
