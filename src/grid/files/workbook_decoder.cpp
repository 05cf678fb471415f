#include "grid/files/workbook_cbor.h"
#include "routine/category.h"

#include <deque>
#include <limits>

namespace vellora {
namespace {

constexpr int kMaxPixels = 32'767;
constexpr int kMaxPoints = 1'000;
constexpr double kMaxMargin = 1'000;  // millimetres
constexpr double kLeastPaper = 10;
constexpr double kMostPaper = 5'000;
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
  switch (small(input, 7)) {
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
    case 6:
      settings.wrap = input.boolean();
      break;
    default:
      settings.category = small(input, kCategoryCount);
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
  SheetDecoder(CborInput& input, int index, const RowTaker& takeRow)
      : input_(input), index_(index), takeRow_(takeRow) {}

  QString name;
  Sheet sheet;
  void decode();

 private:
  void columns();
  void row();
  // The next column stands free.
  DecodedRow::Cell plainCell(int next);
  DecodedRow::Cell cell(int next);
  const CellSettings* look();
  void columnLook(int col, int row);
  QString text();

  CborInput& input_;
  int index_;
  const RowTaker& takeRow_;
  DecodedRow row_;
  int nextRow_ = 0;
  std::deque<CellSettings> looks_;  // rows point to them
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
    row();
    takeRow_(index_, sheet, row_);
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
    columnLook(col, kHeadingRow);
    columnLook(col, kEveryRow);
    input_.leave();
  }
  input_.leave();
}

void SheetDecoder::row() {
  input_.enterArray();
  row_.index = nextRow_ + small(input_, sheet.Rows() - nextRow_ - 1);
  row_.height = optionalSize(input_);
  row_.isHidden = input_.boolean();
  row_.cells.clear();
  for (int next = 0; input_.hasNext(); next = row_.cells.back().col + 1) {
    if (next == sheet.Cols()) throw MalformedContent();
    row_.cells.push_back(input_.isArray() ? cell(next) : plainCell(next));
  }
  input_.leave();
  nextRow_ = row_.index + 1;
}

DecodedRow::Cell SheetDecoder::plainCell(int next) {
  return {next, text(), QString(), nullptr};
}

DecodedRow::Cell SheetDecoder::cell(int next) {
  input_.enterArray();
  DecodedRow::Cell cell;
  cell.col = next + small(input_, sheet.Cols() - next - 1);
  cell.settings = look();
  cell.text = text();
  cell.tag = text();
  input_.leave();
  return cell;
}

const CellSettings* SheetDecoder::look() {
  if (!input_.isInteger()) return &looks_.emplace_back(readSettings(input_));
  const int number = small(input_, static_cast<int>(looks_.size()));
  return number > 0 ? &looks_[static_cast<std::size_t>(number) - 1] : nullptr;
}

void SheetDecoder::columnLook(int col, int row) {
  if (const CellSettings* settings = look()) sheet.SetCellSettings(col, row, *settings);
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
  if (input.hasNext()) {  // files of the first version end here
    setup.paperWidth = input.real(kLeastPaper, kMostPaper);
    setup.paperHeight = input.real(kLeastPaper, kMostPaper);
  }
  input.leave();
  return setup;
}

void readSheets(CborInput& input, Workbook& workbook, const RowTaker& takeRow) {
  input.enterArray();
  for (int index = 0; index == 0 || input.hasNext(); ++index) {
    if (index == kMaxSheets) throw MalformedContent();
    SheetDecoder decoder(input, index, takeRow);
    decoder.decode();
    if (index > 0) workbook.AddSheet(QString());
    workbook.SetSheetName(decoder.name, index);
    workbook.sheetAt(index) = std::move(decoder.sheet);
  }
  input.leave();
}

}  // namespace

void putRow(Sheet& sheet, const DecodedRow& row) {
  if (row.height) sheet.SetRowHeight(row.index, *row.height);
  if (row.isHidden) sheet.HideRow(row.index);
  for (const DecodedRow::Cell& cell : row.cells) {
    if (cell.settings) sheet.SetCellSettings(cell.col, row.index, *cell.settings);
    sheet.SetCellText(cell.col, row.index, cell.text);
    sheet.SetCellTag(cell.col, row.index, cell.tag);
  }
}

Workbook decodeWorkbook(CborInput& input, const RowTaker& takeRow) {
  Workbook workbook;
  input.enterArray();
  workbook.pageSetup = readPageSetup(input);
  const int current = small(input, kMaxSheets - 1);
  readSheets(input, workbook, takeRow);
  input.leave();
  if (current >= workbook.SheetCount()) throw MalformedContent();
  workbook.SetCurrentSheet(current);
  return workbook;
}

}  // namespace vellora
