#include "grid/files/html_writer.h"

#include "grid/files/export_file.h"
#include "grid/files/exported_sheet.h"
#include "routine/category.h"

#include <QStringEncoder>

#include <algorithm>
#include <vector>

namespace vellora {
namespace {

QByteArray cssColour(PackedColour colour) {
  const QByteArray digits =
      QByteArray::number(redOf(colour) << 16 | greenOf(colour) << 8 | blueOf(colour), 16);
  return '#' + digits.rightJustified(6, '0');
}

// In a quoted CSS string; nothing in it can end the string, the rule or the style element.
QByteArray cssString(const QString& text) {
  QByteArray escaped;
  for (const char32_t character : text.toUcs4()) {
    const bool isPlain = QChar::isLetterOrNumber(character) || character == U' ' ||
                         character == U'_' || character == U'-';
    escaped += isPlain ? QString::fromUcs4(&character, 1).toUtf8()
                       : '\\' + QByteArray::number(static_cast<uint>(character), 16) + ' ';
  }
  return '"' + escaped + '"';
}

QByteArray fallbackFace(const QString& face) {
  if (face.contains(u"黑体")) return "sans-serif";
  return face.contains(u"楷体") ? R"("楷体",serif)" : "serif";
}

QByteArray across(int align) {
  if ((align & kAlignRight) != 0) return "right";
  return (align & kAlignCentre) != 0 ? "center" : "left";
}

QByteArray down(int align) {
  if ((align & kAlignBottom) != 0) return "bottom";
  return (align & kAlignTop) != 0 ? "top" : "middle";
}

bool isRefused(QChar unit) {
  return (unit < u' ' && unit != u'\t') || (unit >= u'\x7F' && unit <= u'\x9F') ||
         unit.isNonCharacter();
}

constexpr qsizetype kMostBytes = 6;  // that a UTF-16 unit becomes

// What stands for the character after another one; null for the character itself.
QByteArrayView substitute(QChar unit, QChar previous) {
  switch (unit.unicode()) {
    case u'&':
      return "&amp;";
    case u'<':
      return "&lt;";
    case u'>':
      return "&gt;";
    case u'"':
      return "&quot;";
    case u'\r':
      return "&#10;";
    case u'\n':
      return previous == u'\r' ? "" : "&#10;";
    case u' ':
      return previous == u' ' ? "&#32;" : QByteArrayView();
    default:
      return isRefused(unit) ? "\xEF\xBF\xBD" : QByteArrayView();
  }
}

// Puts the text, which has no halves of characters, where there is room for it; gives the end.
char* putHtml(char* out, QStringView text) {
  QStringEncoder encoder(QStringEncoder::Utf8);
  qsizetype begin = 0;
  for (qsizetype place = 0; place < text.size(); ++place) {
    const auto instead = substitute(text[place], place > 0 ? text[place - 1] : QChar());
    if (instead.isNull()) continue;
    out = encoder.appendToBuffer(out, text.sliced(begin, place - begin));
    out = std::copy(instead.begin(), instead.end(), out);
    begin = place + 1;
  }
  return encoder.appendToBuffer(out, text.sliced(begin));
}

QByteArray cssOf(const CellStyle& style) {
  QByteArray css = "font:" + QByteArray(isBold(style.font) ? "bold " : "normal ") +
                   QByteArray::number(style.font.size) + "pt " + cssString(style.font.face) + ',' +
                   fallbackFace(style.font.face) + ";text-align:" + across(style.align) +
                   ";vertical-align:" + down(style.align);
  if (style.hasColours) {
    css += ";color:" + cssColour(style.textColour) + ";background:" + cssColour(style.backColour);
  }
  if (const auto shade = edgeFor(style.textColour, style.backColour, kEdgeContrast);
      shade && style.hasColours) {
    css += ";text-shadow:";
    for (const char* side : {"-1px 0 ", "1px 0 ", "0 -1px ", "0 1px "}) {
      css += side + cssColour(*shade) + ',';
    }
    css.chop(1);
  }
  if (style.category > 0) {
    const PackedColour colour = categories().at(style.category - 1U).colour;
    css += ";box-shadow:inset 5px 0 " + cssColour(colour) + ";padding-left:8px";
  }
  if (style.border && style.borderWidth > 0) {
    css += ";border:" + QByteArray::number(style.borderWidth) + "px solid " +
           cssColour(style.borderColour);
  }
  return css;
}

QByteArray cssOf(const PageSetup& setup) {
  const auto millimetres = [](double length) -> QByteArray {
    return QByteArray::number(length) + "mm ";
  };
  return QByteArray("@page{size:A4 ") + (setup.landscape ? "landscape" : "portrait") +
         ";margin:" + millimetres(setup.marginTop) + millimetres(setup.marginRight) +
         millimetres(setup.marginBottom) + millimetres(setup.marginLeft).trimmed() + '}';
}

// Appends a text as the content of an element of an HTML document in which white space counts:
// escaped, what the format cannot hold (control characters, halves of characters) replaced by
// U+FFFD. Line ends and repeated blanks are character references, because some spreadsheets make a
// row of its own of every line element and take plain blanks together.
void appendHtml(QByteArray& html, const QString& text) {
  if (text.isEmpty()) return;
  const QString whole = text.isValidUtf16() ? text : exportedText(text);
  const qsizetype old = html.size();
  html.resize(old + kMostBytes * whole.size());
  const char* end = putHtml(html.data() + old, whole);
  html.resize(end - html.constData());
}

// The grid's own lines are dotted, so that they give way to a cell's border of the same width.
constexpr const char* kGridCss =
    "body{margin:1em;color:#000;background:#fff;print-color-adjust:exact}"
    "table{border-collapse:collapse;table-layout:fixed}"
    "th,td{border:1px dotted #999;padding:0 4px;white-space:pre-wrap;overflow-wrap:anywhere}"
    "th{background:#eee}";

// Spreadsheets read formats from rules with a prefix that browsers pass over. Some look for the
// whole of a class attribute only: they find the text format with ".s1" and none with "s1 n".
constexpr const char* kTextFormat = ";mso-number-format:\"\\@\"}\n";
constexpr const char* kNumberRule = ".n{mso-number-format:General}\n";

class HtmlWriter {
 public:
  HtmlWriter(const Sheet& sheet, QIODevice& device, const WorkProgress& progress)
      : sheet_(sheet), device_(device), progress_(progress) {}

  void write(const PageSetup& setup, const QString& title);

 private:
  void collectColumns();
  void collectStyles();
  void addStyle(int col, int row);
  void writeHead(const PageSetup& setup, const QString& title);
  void writeColumns();
  void writeHeadings();
  void writeRow(int row);
  void appendCell(const char* start, int col, int row);

  const Sheet& sheet_;
  QIODevice& device_;
  const WorkProgress& progress_;
  std::vector<int> columns_;  // those in view
  // By style number, empty where not in use: what follows "class=" in a cell.
  std::vector<QByteArray> text_classes_;
  std::vector<QByteArray> number_classes_;
  QByteArray rules_;  // of the classes
  QByteArray line_;
};

void HtmlWriter::write(const PageSetup& setup, const QString& title) {
  collectColumns();
  collectStyles();
  writeHead(setup, title);
  device_.write("<body>\n");
  writeColumns();
  if (hasHeadings(sheet_)) writeHeadings();
  device_.write("<tbody>\n");
  for (int row = 0; row < sheet_.Rows(); ++row) {
    reportRow(progress_, u"正在写入网页文件……"_qs, row, sheet_.Rows());
    if (!isOutOfView(sheet_, row)) writeRow(row);
  }
  device_.write("</tbody>\n</table>\n</body>\n</html>\n");
}

void HtmlWriter::collectColumns() {
  for (int col = 0; col < sheet_.Cols(); ++col) {
    if (exportedWidth(sheet_, col) > 0) columns_.push_back(col);
  }
}

void HtmlWriter::collectStyles() {
  for (int row = kHeadingRow; row < sheet_.Rows(); ++row) {
    reportRow(progress_, u"正在准备网页文件……"_qs, row, sheet_.Rows());
    for (const int col : columns_) addStyle(col, row);
  }
}

// One class for each look in use, named after its number.
void HtmlWriter::addStyle(int col, int row) {
  const int number = sheet_.StyleNumberAt(col, row);
  const auto place = static_cast<std::size_t>(number);
  if (place >= text_classes_.size()) {
    text_classes_.resize(place + 1);
    number_classes_.resize(place + 1);
  }
  if (!text_classes_[place].isEmpty()) return;
  const QByteArray name = 's' + QByteArray::number(number);
  const int category = sheet_.StyleAt(col, row).category;
  const QByteArray title =
      category > 0 ? " title=\"" + categoryHint(category - 1).toUtf8() + '"' : QByteArray();
  text_classes_[place] = name + title + '>';
  number_classes_[place] = '"' + name + " n\"" + title + '>';
  rules_ += '.' + name + '{' + cssOf(sheet_.StyleAt(col, row)) + kTextFormat;
}

void HtmlWriter::writeHead(const PageSetup& setup, const QString& title) {
  QByteArray head =
      "<!DOCTYPE html>\n<html lang=\"zh-CN\">\n<head>\n<meta charset=\"utf-8\">\n<title>";
  appendHtml(head, title.trimmed().isEmpty() ? u"Vellora"_qs : title);
  head += "</title>\n<style>\n";
  head += kGridCss;
  head += "tr{height:" + QByteArray::number(sheet_.DefaultRowHeight()) + "px}\n";
  device_.write(head + cssOf(setup) + '\n' + rules_ + kNumberRule + "</style>\n</head>\n");
}

// A table of the columns' width, which a narrow window scrolls and does not squeeze.
void HtmlWriter::writeColumns() {
  QByteArray columns;
  int total = 0;
  for (const int col : columns_) {
    const int width = exportedWidth(sheet_, col);
    columns += "<col style=\"width:" + QByteArray::number(width) + "px\">";
    total += width;
  }
  device_.write("<table style=\"width:" + QByteArray::number(total) + "px\">\n");
  if (!columns.isEmpty()) device_.write("<colgroup>" + columns + "</colgroup>\n");
}

void HtmlWriter::writeHeadings() {
  line_ = "<thead>\n<tr>";
  for (const int col : columns_) appendCell("<th scope=col class=", col, kHeadingRow);
  device_.write(line_ += "</tr>\n</thead>\n");
}

void HtmlWriter::writeRow(int row) {
  line_.resize(0);  // keeps its room
  line_ += "<tr";
  if (const std::optional<int> height = sheet_.RowHeight(row)) {
    line_ += " style=\"height:" + QByteArray::number(*height) + "px\"";
  }
  line_ += '>';
  for (const int col : columns_) appendCell("<td class=", col, row);
  device_.write(line_ += "</tr>\n");
}

// A cell ends, as the format allows, where the next one begins.
void HtmlWriter::appendCell(const char* start, int col, int row) {
  const bool isNumber = sheet_.CellNumber(col, row).has_value();
  const auto style = static_cast<std::size_t>(sheet_.StyleNumberAt(col, row));
  line_ += start;
  line_ += isNumber ? number_classes_[style] : text_classes_[style];
  appendHtml(line_, sheet_.GetCellText(col, row));
}

}  // namespace

void writeHtmlFile(const Sheet& sheet, const PageSetup& setup, const QString& title,
                   const QString& path, const WorkProgress& progress) {
  exportFile(path, [&](SafeFile& file) { HtmlWriter(sheet, file, progress).write(setup, title); });
}

}  // namespace vellora
