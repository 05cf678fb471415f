#include "grid/surface/copied_cells.h"

#include <QClipboard>
#include <QGuiApplication>

#include <algorithm>

namespace vellora {
namespace {

const QString kText = u"text/plain"_qs;
const QString kHtml = u"text/html"_qs;

bool haveOneShape(const TextTable& a, const TextTable& b) {
  return std::equal(
      a.begin(), a.end(), b.begin(), b.end(),
      [](const QStringList& x, const QStringList& y) { return x.size() == y.size(); });
}

}  // namespace

QStringList CopiedCells::formats() const {
  constexpr qint64 kMostHtmlCells = 300'000;  // beyond, one page of HTML is too much to exchange
  const qint64 cells = qint64{range_.row2 - range_.row1 + 1} * (range_.col2 - range_.col1 + 1);
  return cells <= kMostHtmlCells ? QStringList{kText, kHtml} : QStringList{kText};
}

bool CopiedCells::hasFormat(const QString& mimeType) const {
  return formats().contains(mimeType);
}

QVariant CopiedCells::retrieveData(const QString& mimeType, QMetaType type) const {
  if (!hasFormat(mimeType)) return QMimeData::retrieveData(mimeType, type);
  return mimeType == kHtml ? htmlTable(sheet_, range_) : tabSeparated(sheet_, range_);
}

const QMimeData* clipboardData() {
  return QGuiApplication::clipboard()->mimeData();
}

TextTable textsOf(const QMimeData& data, const WorkProgress& progress) {
  TextTable table = readHtmlTable(data.html());
  TextTable texts = readTabSeparated(data.text(), progress);
  if (table.empty()) return texts;
  if (!haveOneShape(texts, table)) return table;
  for (std::size_t row = 0; row < table.size(); ++row) {
    for (qsizetype col = 0; col < table[row].size(); ++col) {
      if (table[row][col].contains(u'\n')) texts[row][col] = table[row][col];
    }
  }
  return texts;
}

}  // namespace vellora
