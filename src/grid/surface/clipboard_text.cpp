#include "grid/surface/clipboard_text.h"

#include "grid/files/exported_sheet.h"
#include "routine/calendar_text.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QRegularExpression>
#include <QTextDocument>
#include <QTextTable>

#include <algorithm>

namespace vellora {
namespace {

constexpr QChar kQuote{u'"'};

QString linesAt(const Sheet& sheet, int col, int row) {
  return sheet.GetCellText(col, row).replace(kLineBreak, u'\n');
}

QString quoted(QString field) {
  const bool isPlain =
      !field.contains(u'\t') && !field.contains(u'\n') && !field.startsWith(kQuote);
  if (isPlain) return field;
  return kQuote + field.replace(kQuote, u"\"\""_qs) + kQuote;
}

class Reader {
 public:
  Reader(QString text, const WorkProgress& progress) : text_(std::move(text)), progress_(progress) {
    text_.replace(u"\r\n"_qs, u"\n"_qs).replace(u'\r', u'\n');
  }

  TextTable read() {
    TextTable table;
    while (at_ < text_.size()) {
      if (table.size() % 256 == 0) {
        report(progress_, {u"正在读取剪贴板……"_qs, at_, text_.size()});
      }
      table.push_back(readRow());
    }
    return table;
  }

 private:
  QStringList readRow() {
    QStringList row{readField()};
    while (take(u'\t')) row << readField();
    take(u'\n');
    return row;
  }

  bool take(QChar mark) {
    if (at_ >= text_.size() || text_[at_] != mark) return false;
    ++at_;
    return true;
  }

  bool isFieldEnd(qsizetype position) const {
    return position >= text_.size() || text_[position] == u'\t' || text_[position] == u'\n';
  }

  QString readField() {
    const qsizetype end = closingQuote();
    return end > 0 ? readQuoted(end) : readPlain();
  }

  // Position of the quote that ends a quoted field here, −1 when there is none.
  qsizetype closingQuote() const {
    if (at_ >= text_.size() || text_[at_] != kQuote) return -1;
    qsizetype quote = text_.indexOf(kQuote, at_ + 1);
    while (quote >= 0 && quote + 1 < text_.size() && text_[quote + 1] == kQuote) {
      quote = text_.indexOf(kQuote, quote + 2);
    }
    return quote >= 0 && isFieldEnd(quote + 1) ? quote : -1;
  }

  QString readQuoted(qsizetype end) {
    QString field = text_.mid(at_ + 1, end - at_ - 1);
    at_ = end + 1;
    return field.replace(u"\"\""_qs, u"\""_qs);
  }

  QString readPlain() {
    const qsizetype start = at_;
    while (!isFieldEnd(at_)) ++at_;
    return text_.mid(start, at_ - start);
  }

  QString text_;
  const WorkProgress& progress_;
  qsizetype at_ = 0;
};

// Spreadsheets would make numbers, dates and formulas of texts that look like them.
QString htmlCell(const Sheet& sheet, int col, int row) {
  const QString text = linesAt(sheet, col, row);
  const bool isText = !text.isEmpty() && !sheet.CellNumber(col, row);
  const QString start =
      isText ? uR"(<td sdnum="1033;0;@" style="mso-number-format:'\@'">)"_qs : u"<td>"_qs;
  return start + text.toHtmlEscaped().replace(u'\n', u"<br>"_qs) + u"</td>"_qs;
}

// A page that reads no files and no addresses.
class ClosedDocument : public QTextDocument {
 protected:
  QVariant loadResource(int, const QUrl&) override { return {}; }
};

// The table that is all of the document; null for any other document.
const QTextTable* onlyTable(const QTextDocument& document) {
  const QTextFrame* root = document.rootFrame();
  const QTextTable* table = nullptr;
  for (auto part = root->begin(); !part.atEnd(); ++part) {
    if (!part.currentFrame()) {
      if (!part.currentBlock().text().trimmed().isEmpty()) return nullptr;
    } else if (table || !(table = qobject_cast<QTextTable*>(part.currentFrame()))) {
      return nullptr;
    }
  }
  return table;
}

QString textOf(const QTextTableCell& cell) {
  QStringList lines;
  for (auto part = cell.begin(); !part.atEnd(); ++part) lines << part.currentBlock().text();
  QString text = lines.join(u'\n');
  return text.replace(QChar::LineSeparator, u'\n').replace(QChar::Nbsp, u' ');
}

const QString kText = u"text/plain"_qs;
const QString kHtml = u"text/html"_qs;

bool haveOneShape(const TextTable& a, const TextTable& b) {
  return std::equal(
      a.begin(), a.end(), b.begin(), b.end(),
      [](const QStringList& x, const QStringList& y) { return x.size() == y.size(); });
}

}  // namespace

QString tabSeparated(const Sheet& sheet, const CellRange& range) {
  QString text;
  for (int row = range.row1; (row = sheet.NextShownRow(row)) <= range.row2; ++row) {
    for (int col = range.col1; col <= range.col2; ++col) {
      if (col > range.col1) text += u'\t';
      text += quoted(linesAt(sheet, col, row));
    }
    text += u'\n';
  }
  return text;
}

TextTable readTabSeparated(const QString& text, const WorkProgress& progress) {
  return Reader(text, progress).read();
}

QString htmlTable(const Sheet& sheet, const CellRange& range) {
  QString html =
      u"<html><head><meta charset=\"utf-8\"><style>br{mso-data-placement:same-cell}</style></head>"
      u"<body><table>"_qs;
  for (int row = range.row1; (row = sheet.NextShownRow(row)) <= range.row2; ++row) {
    html += u"<tr>"_qs;
    for (int col = range.col1; col <= range.col2; ++col) html += htmlCell(sheet, col, row);
    html += u"</tr>\n"_qs;
  }
  return html + u"</table></body></html>"_qs;
}

// A few words can claim more cells than there is room for.
TextTable readHtmlTable(const QString& html) {
  constexpr qsizetype kMostRead = 1'000'000;
  static const QRegularExpression kWideSpan(u"span\\s*=\\W*\\d{4}"_qs,
                                            QRegularExpression::CaseInsensitiveOption);
  if (html.size() > kMostRead || !html.contains(u"<table", Qt::CaseInsensitive)) return {};
  if (html.contains(kWideSpan)) return {};
  ClosedDocument document;
  document.setUndoRedoEnabled(false);
  document.setHtml(html);
  const QTextTable* table = onlyTable(document);
  if (!table || qint64{table->rows()} * table->columns() > html.size()) return {};
  TextTable texts(static_cast<std::size_t>(table->rows()));
  for (int row = 0; row < table->rows(); ++row) {
    for (int col = 0; col < table->columns(); ++col) {
      const QTextTableCell cell = table->cellAt(row, col);
      const bool begins = cell.row() == row && cell.column() == col;
      texts[static_cast<std::size_t>(row)] << (begins ? textOf(cell) : QString());
    }
  }
  return texts;
}

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
