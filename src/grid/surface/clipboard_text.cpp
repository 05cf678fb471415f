#include "grid/surface/clipboard_text.h"

namespace vellora {
namespace {

constexpr QChar kQuote{u'"'};

QString quoted(QString field) {
  const bool isPlain =
      !field.contains(u'\t') && !field.contains(u'\n') && !field.startsWith(kQuote);
  if (isPlain) return field;
  return kQuote + field.replace(kQuote, u"\"\""_qs) + kQuote;
}

class Reader {
 public:
  explicit Reader(QString text) : text_(std::move(text)) {
    text_.replace(u"\r\n"_qs, u"\n"_qs).replace(u'\r', u'\n');
  }

  TextTable read() {
    TextTable table;
    while (at_ < text_.size()) table.push_back(readRow());
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
  qsizetype at_ = 0;
};

QString htmlCell(const QString& text) {
  return u"<td>"_qs + text.toHtmlEscaped().replace(u'\n', u"<br>"_qs) + u"</td>"_qs;
}

}  // namespace

QString tabSeparated(const TextTable& table) {
  QString text;
  for (const QStringList& row : table) {
    QStringList fields;
    for (const QString& field : row) fields << quoted(field);
    text += fields.join(u'\t') + u'\n';
  }
  return text;
}

TextTable readTabSeparated(const QString& text) {
  return Reader(text).read();
}

QString htmlTable(const TextTable& table) {
  QString html = u"<html><head><meta charset=\"utf-8\"></head><body><table>"_qs;
  for (const QStringList& row : table) {
    html += u"<tr>"_qs;
    for (const QString& cell : row) html += htmlCell(cell);
    html += u"</tr>\n"_qs;
  }
  return html + u"</table></body></html>"_qs;
}

}  // namespace vellora
