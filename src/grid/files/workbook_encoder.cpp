#include "grid/files/workbook_cbor.h"

#include <QCborStreamWriter>
#include <QHash>

#include <vector>

namespace vellora {
namespace {

void appendText(QCborStreamWriter& writer, const QString& text) {
  if (text.isValidUtf16()) {
    writer.append(QStringView(text));
  } else {
    writer.appendByteString(reinterpret_cast<const char*>(text.utf16()), text.size() * 2);
  }
}

void appendSize(QCborStreamWriter& writer, const std::optional<int>& size) {
  if (size) {
    writer.append(*size);
  } else {
    writer.appendNull();
  }
}

void appendFont(QCborStreamWriter& writer, const CellFont& font) {
  writer.startArray(3);
  appendText(writer, font.face);
  writer.append(font.size);
  writer.append(font.style);
  writer.endArray();
}

void appendSettings(QCborStreamWriter& writer, const CellSettings& settings) {
  const auto pair = [&writer](int key, quint64 first, quint64 second) {
    writer.append(key);
    writer.startArray(2);
    writer.append(first);
    writer.append(second);
    writer.endArray();
  };
  const auto plain = [&writer](int key, auto value) {
    if (!value) return;
    writer.append(key);
    writer.append(*value);
  };
  writer.startMap();
  if (settings.font) {
    writer.append(0);
    appendFont(writer, *settings.font);
  }
  if (settings.colours) pair(1, settings.colours->text, settings.colours->back);
  if (settings.border) {
    pair(2, static_cast<quint64>(settings.border->width), settings.border->colour);
  }
  plain(3, settings.align);
  plain(4, settings.inputMode);
  plain(5, settings.option);
  plain(6, settings.wrap);
  plain(7, settings.category);
  writer.endMap();
}

class SheetEncoder {
 public:
  SheetEncoder(const Sheet& sheet, QCborStreamWriter& writer) : sheet_(sheet), writer_(writer) {}

  void encode(const QString& name, const std::function<void()>& pulse);

 private:
  void column(int col);
  void row(int row, int skipped);
  void cell(int col, int row, const CellNumbers& numbers, int skipped);
  void look(int col, int row, int settingsNumber);
  void text(const QString& text);
  void cellText(int col, int row, quint32 number);
  void cellTag(int col, int row, quint32 number);
  // Writes the number of a text that the sheet knows by this one, if it has got one.
  bool appendKnown(quint32 sheetNumber);
  void newText(quint32 sheetNumber, const QString& content);

  const Sheet& sheet_;
  QCborStreamWriter& writer_;
  QHash<int, int> looks_;       // by the number of what was set
  std::vector<quint32> texts_;  // by the number in the sheet: that in the file plus 1, or 0
  quint32 textCount_ = 0;       // numbers given out
};

void SheetEncoder::encode(const QString& name, const std::function<void()>& pulse) {
  writer_.startArray(6);
  appendText(writer_, name);
  writer_.append(sheet_.Rows());
  writer_.append(sheet_.DefaultRowHeight());
  appendFont(writer_, sheet_.DefaultFont());
  writer_.startArray(static_cast<quint64>(sheet_.Cols()));
  for (int col = 0; col < sheet_.Cols(); ++col) column(col);
  writer_.endArray();
  writer_.startArray();
  int next = 0;
  for (int r = sheet_.NextWrittenRow(0); r < sheet_.Rows(); r = sheet_.NextWrittenRow(r + 1)) {
    pulse();
    if (sheet_.IsRowEmpty(r)) continue;
    row(r, r - next);
    next = r + 1;
  }
  writer_.endArray();
  writer_.endArray();
}

void SheetEncoder::column(int col) {
  writer_.startArray(5);
  appendSize(writer_, sheet_.ColumnWidth(col));
  text(sheet_.GetCellText(col, kHeadingRow));
  text(sheet_.CellTag(col, kHeadingRow));
  look(col, kHeadingRow, sheet_.SettingsNumberAt(col, kHeadingRow));
  look(col, kEveryRow, sheet_.SettingsNumberAt(col, kEveryRow));
  writer_.endArray();
}

void SheetEncoder::row(int row, int skipped) {
  writer_.startArray();
  writer_.append(skipped);
  appendSize(writer_, sheet_.RowHeight(row));
  writer_.append(sheet_.IsRowHidden(row));
  int next = 0;
  for (int col = 0; col < sheet_.Cols(); ++col) {
    const CellNumbers numbers = sheet_.NumbersAt(col, row);
    if (numbers == CellNumbers()) continue;
    if (col == next && numbers.settings == 0 && numbers.tag == 0) {
      cellText(col, row, numbers.text);
    } else {
      cell(col, row, numbers, col - next);
    }
    next = col + 1;
  }
  writer_.endArray();
}

void SheetEncoder::cell(int col, int row, const CellNumbers& numbers, int skipped) {
  writer_.startArray(4);
  writer_.append(skipped);
  look(col, row, static_cast<int>(numbers.settings));
  cellText(col, row, numbers.text);
  cellTag(col, row, numbers.tag);
  writer_.endArray();
}

void SheetEncoder::look(int col, int row, int settingsNumber) {
  const auto known = looks_.constFind(settingsNumber);
  if (settingsNumber == 0) {
    writer_.append(0);
  } else if (known != looks_.constEnd()) {
    writer_.append(*known);
  } else {
    looks_.insert(settingsNumber, static_cast<int>(looks_.size()) + 1);
    appendSettings(writer_, sheet_.SettingsAt(col, row));
  }
}

// Numbers are given in the order in which the reader meets the texts.
void SheetEncoder::text(const QString& text) {
  appendText(writer_, text);
  if (!text.isEmpty() && textCount_ < kMaxNumberedTexts) ++textCount_;
}

void SheetEncoder::cellText(int col, int row, quint32 number) {
  if (!appendKnown(number)) newText(number, sheet_.GetCellText(col, row));
}

void SheetEncoder::cellTag(int col, int row, quint32 number) {
  if (!appendKnown(number)) newText(number, sheet_.CellTag(col, row));
}

bool SheetEncoder::appendKnown(quint32 sheetNumber) {
  if (sheetNumber >= texts_.size() || texts_[sheetNumber] == 0) return false;
  writer_.append(texts_[sheetNumber] - 1);
  return true;
}

void SheetEncoder::newText(quint32 sheetNumber, const QString& content) {
  const quint32 before = textCount_;
  text(content);
  if (textCount_ == before) return;
  if (sheetNumber >= texts_.size()) texts_.resize(sheetNumber + std::size_t{1});
  texts_[sheetNumber] = textCount_;
}

void appendPageSetup(QCborStreamWriter& writer, const PageSetup& setup) {
  writer.startArray(8);
  writer.append(setup.landscape);
  writer.append(setup.fitToOnePageWidth);
  for (const double length : {setup.marginLeft, setup.marginTop, setup.marginRight,
                              setup.marginBottom, setup.paperWidth, setup.paperHeight}) {
    writer.append(length);
  }
  writer.endArray();
}

}  // namespace

void encodeWorkbook(const Workbook& workbook, QCborStreamWriter& writer,
                    const std::function<void()>& pulse) {
  writer.startArray(3);
  appendPageSetup(writer, workbook.pageSetup);
  writer.append(workbook.CurrentSheet());
  writer.startArray(static_cast<quint64>(workbook.SheetCount()));
  for (int i = 0; i < workbook.SheetCount(); ++i) {
    SheetEncoder(workbook.sheetAt(i), writer).encode(workbook.SheetName(i), pulse);
  }
  writer.endArray();
  writer.endArray();
}

}  // namespace vellora
