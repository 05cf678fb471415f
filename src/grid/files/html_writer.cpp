#include "grid/files/html_writer.h"

#include "grid/files/html_style.h"
#include "grid/files/safe_file.h"

#include <set>

namespace vellora {
namespace {

// The grid's own lines are dotted, so that they give way to a cell's border of the same width.
constexpr const char* kGridCss =
    "body{margin:1em;color:#000;background:#fff;print-color-adjust:exact}"
    "table{border-collapse:collapse}"
    "th,td{border:1px dotted #999;padding:0 4px}"
    "th{background:#eee}";

class HtmlWriter {
 public:
  HtmlWriter(const Sheet& sheet, QIODevice& device) : sheet_(sheet), device_(device) {}

  void write(const PageSetup& setup, const QString& title);

 private:
  void writeHead(const PageSetup& setup, const QString& title);
  void writeColumns();
  void writeHeadings();
  void writeRow(int row);
  QByteArray cell(const char* element, int col, int row) const;
  QByteArray styles() const;
  bool hasHeadings() const;

  const Sheet& sheet_;
  QIODevice& device_;
};

void HtmlWriter::write(const PageSetup& setup, const QString& title) {
  writeHead(setup, title);
  device_.write("<body>\n<table>\n");
  writeColumns();
  if (hasHeadings()) writeHeadings();
  device_.write("<tbody>\n");
  for (int row = 0; row < sheet_.Rows(); ++row) {
    if (!sheet_.IsRowHidden(row)) writeRow(row);
  }
  device_.write("</tbody>\n</table>\n</body>\n</html>\n");
}

void HtmlWriter::writeHead(const PageSetup& setup, const QString& title) {
  device_.write(
      "<!DOCTYPE html>\n<html lang=\"zh-CN\">\n<head>\n<meta charset=\"utf-8\">\n<title>");
  device_.write(title.trimmed().isEmpty() ? QByteArray("Vellora") : htmlText(title));
  device_.write("</title>\n<style>\n");
  device_.write(kGridCss);
  device_.write("tr{height:" + QByteArray::number(sheet_.DefaultRowHeight()) + "px}\n");
  device_.write(cssOf(setup) + '\n' + styles() + "</style>\n</head>\n");
}

// One class for each look in use, named after its number.
QByteArray HtmlWriter::styles() const {
  std::set<int> seen;
  QByteArray css;
  for (int row = kHeadingRow; row < sheet_.Rows(); ++row) {
    for (int col = 0; col < sheet_.Cols(); ++col) {
      const int number = sheet_.StyleNumberAt(col, row);
      if (!seen.insert(number).second) continue;
      css += ".s" + QByteArray::number(number) + '{' + cssOf(sheet_.StyleAt(col, row)) + "}\n";
    }
  }
  return css;
}

void HtmlWriter::writeColumns() {
  if (sheet_.Cols() == 0) return;
  device_.write("<colgroup>");
  for (int col = 0; col < sheet_.Cols(); ++col) {
    const std::optional<int> width = sheet_.ColumnWidth(col);
    device_.write(width ? "<col style=\"width:" + QByteArray::number(*width) + "px\">"
                        : QByteArray("<col>"));
  }
  device_.write("</colgroup>\n");
}

bool HtmlWriter::hasHeadings() const {
  for (int col = 0; col < sheet_.Cols(); ++col) {
    if (!sheet_.GetCellText(col, kHeadingRow).isEmpty()) return true;
  }
  return false;
}

void HtmlWriter::writeHeadings() {
  device_.write("<thead>\n<tr>");
  for (int col = 0; col < sheet_.Cols(); ++col) {
    device_.write(cell("th scope=\"col\"", col, kHeadingRow) + "</th>");
  }
  device_.write("</tr>\n</thead>\n");
}

void HtmlWriter::writeRow(int row) {
  const std::optional<int> height = sheet_.RowHeight(row);
  QByteArray line =
      height ? "<tr style=\"height:" + QByteArray::number(*height) + "px\">" : QByteArray("<tr>");
  for (int col = 0; col < sheet_.Cols(); ++col) line += cell("td", col, row) + "</td>";
  device_.write(line + "</tr>\n");
}

QByteArray HtmlWriter::cell(const char* element, int col, int row) const {
  return QByteArray("<") + element + " class=s" +
         QByteArray::number(sheet_.StyleNumberAt(col, row)) + '>' +
         htmlText(sheet_.GetCellText(col, row));
}

}  // namespace

void writeHtml(const Sheet& sheet, const PageSetup& setup, const QString& title,
               QIODevice& device) {
  HtmlWriter(sheet, device).write(setup, title);
}

void writeHtmlFile(const Sheet& sheet, const PageSetup& setup, const QString& title,
                   const QString& path) {
  SafeFile file(path);
  writeHtml(sheet, setup, title, file);
  file.commit();
}

}  // namespace vellora
