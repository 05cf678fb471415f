#include "grid/files/workbook_cbor.h"

#include <limits>
#include <vector>

namespace vellora {
namespace {

constexpr int kMaxPixels = 32'767;
constexpr int kMaxPoints = 1'000;
constexpr double kMaxMargin = 1'000;  // millimetres
constexpr qint64 kMaxNameBytes = 4'096;
constexpr qint64 kMaxTextBytes = std::numeric_limits<int>::max();
constexpr qint64 kMaxColour = std::numeric_limits<PackedColour>::max();

int small(CborInput& input, int max) {
  return static_cast<int>(input.integer(0, max));
}

std::optional<int> optionalSize(CborInput& input) {
  if (!input.isNull()) return small(input, kMaxPixels);
  input.null();
  return std::nullopt;
}

PackedColour colour(CborInput& input) {
  return static_cast<PackedColour>(input.integer(0, kMaxColour));
}

CellFont readFont(CborInput& input) {
  input.enterArray();
  CellFont font;
  font.face = input.text(kMaxNameBytes);
  font.size = static_cast<int>(input.integer(1, kMaxPoints));
  font.style = small(input, 255);
  input.leave();
  return font;
}

CellColours readColours(CborInput& input) {
  input.enterArray();
  CellColours colours;
  colours.text = colour(input);
  colours.back = colour(input);
  input.leave();
  return colours;
}

CellBorder readBorder(CborInput& input) {
  input.enterArray();
  CellBorder border;
  border.width = small(input, kMaxPixels);
  border.colour = colour(input);
  input.leave();
  return border;
}

void readSetting(CborInput& input, CellSettings& settings) {
  switch (small(input, 6)) {
    case 0:
      settings.font = readFont(input);
      break;
    case 1:
      settings.colours = readColours(input);
      break;
    case 2:
      settings.border = readBorder(input);
      break;
    case 3:
      settings.align = input.integer32();
      break;
    case 4:
      settings.inputMode = input.integer32();
      break;
    case 5:
      settings.option = input.integer32();
      break;
    default:
      settings.wrap = input.boolean();
  }
}

CellSettings readSettings(CborInput& input) {
  CellSettings settings;
  input.enterMap();
  while (input.hasNext()) readSetting(input, settings);
  input.leave();
  return settings;
}

class SheetDecoder {
 public:
  SheetDecoder(CborInput& input, const std::function<void()>& pulse)
      : input_(input), pulse_(pulse) {}

  QString name;
  Sheet sheet;
  void decode();

 private:
  void columns();
  void row();
  // Each gives the column that it filled; the next one stands free.
  int plainCell(int next, int row);
  int cell(int next, int row);
  void look(int col, int row);
  QString text();

  CborInput& input_;
  const std::function<void()>& pulse_;
  int nextRow_ = 0;
  std::vector<CellSettings> looks_;
  std::vector<QString> texts_;
};

void SheetDecoder::decode() {
  input_.enterArray();
  name = input_.text(kMaxNameBytes);
  const int rows = small(input_, kMaxRows);
  sheet.SetDefaultRowHeight(static_cast<int>(input_.integer(1, kMaxPixels)));
  const CellFont font = readFont(input_);
  sheet.SetDefaultFont(font.size, font.style, font.face);
  columns();
  sheet.SetRows(rows);
  input_.enterArray();
  while (input_.hasNext()) {
    pulse_();
    row();
  }
  input_.leave();
  input_.leave();
}

void SheetDecoder::columns() {
  input_.enterArray();
  for (int col = 0; input_.hasNext(); ++col) {
    if (col == kMaxCols) throw MalformedContent();
    sheet.SetCols(col + 1);
    input_.enterArray();
    if (const auto width = optionalSize(input_)) sheet.SetColumnWidth(col, *width);
    sheet.SetCellText(col, kHeadingRow, text());
    sheet.SetCellTag(col, kHeadingRow, text());
    look(col, kHeadingRow);
    look(col, kEveryRow);
    input_.leave();
  }
  input_.leave();
}

void SheetDecoder::row() {
  input_.enterArray();
  const int row = nextRow_ + small(input_, sheet.Rows() - nextRow_ - 1);
  if (const auto height = optionalSize(input_)) sheet.SetRowHeight(row, *height);
  if (input_.boolean()) sheet.HideRow(row);
  for (int next = 0; input_.hasNext();) {
    if (next == sheet.Cols()) throw MalformedContent();
    next = 1 + (input_.isArray() ? cell(next, row) : plainCell(next, row));
  }
  input_.leave();
  nextRow_ = row + 1;
}

int SheetDecoder::plainCell(int next, int row) {
  sheet.SetCellText(next, row, text());
  return next;
}

int SheetDecoder::cell(int next, int row) {
  input_.enterArray();
  const int col = next + small(input_, sheet.Cols() - next - 1);
  look(col, row);
  sheet.SetCellText(col, row, text());
  sheet.SetCellTag(col, row, text());
  input_.leave();
  return col;
}

void SheetDecoder::look(int col, int row) {
  if (!input_.isInteger()) {
    looks_.push_back(readSettings(input_));
    sheet.SetCellSettings(col, row, looks_.back());
  } else if (const int number = small(input_, static_cast<int>(looks_.size())); number > 0) {
    sheet.SetCellSettings(col, row, looks_[static_cast<std::size_t>(number) - 1]);
  }
}

QString SheetDecoder::text() {
  if (input_.isInteger()) {
    const qint64 last = static_cast<qint64>(texts_.size()) - 1;
    return texts_[static_cast<std::size_t>(input_.integer(0, last))];
  }
  QString text = input_.text(kMaxTextBytes);
  if (!text.isEmpty() && texts_.size() < kMaxNumberedTexts) texts_.push_back(text);
  return text;
}

PageSetup readPageSetup(CborInput& input) {
  PageSetup setup;
  input.enterArray();
  setup.landscape = input.boolean();
  setup.fitToOnePageWidth = input.boolean();
  for (double* margin :
       {&setup.marginLeft, &setup.marginTop, &setup.marginRight, &setup.marginBottom}) {
    *margin = input.real(0, kMaxMargin);
  }
  input.leave();
  return setup;
}

void readSheets(CborInput& input, Workbook& workbook, const std::function<void()>& pulse) {
  input.enterArray();
  for (int index = 0; index == 0 || input.hasNext(); ++index) {
    if (index == kMaxSheets) throw MalformedContent();
    SheetDecoder decoder(input, pulse);
    decoder.decode();
    if (index > 0) workbook.AddSheet(QString());
    workbook.SetSheetName(decoder.name, index);
    workbook.sheetAt(index) = std::move(decoder.sheet);
  }
  input.leave();
}

}  // namespace

Workbook decodeWorkbook(CborInput& input, const std::function<void()>& pulse) {
  Workbook workbook;
  input.enterArray();
  workbook.pageSetup = readPageSetup(input);
  const int current = small(input, kMaxSheets - 1);
  readSheets(input, workbook, pulse);
  input.leave();
  if (current >= workbook.SheetCount()) throw MalformedContent();
  workbook.SetCurrentSheet(current);
  return workbook;
}

}  // namespace vellora
