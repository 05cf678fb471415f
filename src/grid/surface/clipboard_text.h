#pragma once

#include <QStringList>

#include <vector>

namespace vellora {

// Cells as they travel between programs: rows of texts, lines of one text separated by line feeds.
using TextTable = std::vector<QStringList>;

// Tab-separated text as spreadsheets exchange it: a text that holds a tab, a line break or a
// leading quote stands in quotes, quotes inside doubled. Every row ends with a line feed.
QString tabSeparated(const TextTable& table);

// Reads any spreadsheet's tab-separated text, or plain lines; line ends of every system. A quote
// that never closes stands for itself. Rows may differ in length.
TextTable readTabSeparated(const QString& text);

// The same cells for word processors and mail.
QString htmlTable(const TextTable& table);

}  // namespace vellora
