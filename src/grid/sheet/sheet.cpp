#include "grid/sheet/sheet.h"

#include "grid/sheet/sheet_content.h"
#include "routine/category.h"

#include <algorithm>
#include <atomic>

namespace vellora {
namespace {

constexpr int kMaxPixels = 32'767;

// Two copies that changed apart must not be taken for one.
quint64 nextRevision() {
  static std::atomic<quint64> last = 0;
  return last.fetch_add(1, std::memory_order_relaxed) + 1;
}

std::shared_ptr<SheetContent> emptyContent() {
  static const auto kEmpty = std::make_shared<SheetContent>();
  return kEmpty;
}

}  // namespace

Sheet::Sheet() : content_(emptyContent()) {}
Sheet::Sheet(const Sheet&) = default;
Sheet::Sheet(Sheet&& other) noexcept : content_(std::exchange(other.content_, emptyContent())) {}
Sheet& Sheet::operator=(const Sheet&) = default;
Sheet::~Sheet() = default;

Sheet& Sheet::operator=(Sheet&& other) noexcept {
  content_.swap(other.content_);
  return *this;
}

bool Sheet::has(int col, int row) const {
  return col >= 0 && col < Cols() && row >= kEveryRow && row < Rows();
}

// Every change begins here: takes a copy for itself when the content is shared.
SheetContent& Sheet::change() {
  if (content_.use_count() > 1) content_ = std::make_shared<SheetContent>(*content_);
  content_->revision = nextRevision();
  return *content_;
}

void Sheet::set(int col, int row, CellProperty property, quint64 word) {
  if (has(col, row)) change().set(col, row, property, word);
}

int Sheet::Cols() const {
  return content_->cols();
}

int Sheet::Rows() const {
  return content_->rows();
}

void Sheet::SetCols(int count) {
  count = std::clamp(count, 0, kMaxCols);
  if (count != Cols()) change().setCols(count);
}

void Sheet::SetRows(int count) {
  count = std::clamp(count, 0, kMaxRows);
  if (count != Rows()) change().setRows(count);
}

void Sheet::InsertRows(int row, int count) {
  count = std::min(count, kMaxRows - Rows());
  if (row < 0 || row > Rows() || count <= 0) return;
  change().blocks().insert(row, count);
}

void Sheet::DeleteRows(int row, int count) {
  if (!hasRow(row) || count <= 0) return;
  change().blocks().remove(row, std::min(count, Rows() - row));
}

QString Sheet::GetCellText(int col, int row) const {
  return has(col, row) ? content_->text(col, row) : QString();
}

void Sheet::SetCellText(int col, int row, const QString& text) {
  if (!has(col, row)) return;
  if (row == kEveryRow || content_->text(col, row) != text) change().setText(col, row, text);
}

void Sheet::SetRowTexts(int row, std::span<const QString> texts) {
  const auto count = std::min(texts.size(), static_cast<std::size_t>(Cols()));
  if (hasRow(row)) change().setTexts(row, texts.first(count));
}

QString Sheet::CellTag(int col, int row) const {
  return has(col, row) ? content_->tag(col, row) : QString();
}

void Sheet::SetCellTag(int col, int row, const QString& tag) {
  if (!has(col, row)) return;
  if (row == kEveryRow || content_->tag(col, row) != tag) change().setTag(col, row, tag);
}

CellNumbers Sheet::NumbersAt(int col, int row) const {
  return row >= 0 && has(col, row) ? content_->blocks().cell(col, row) : CellNumbers();
}

void Sheet::SetCellOption(int col, int row, int option) {
  set(col, row, CellProperty::Option, StyleTable::plainWord(option));
}

int Sheet::CellOption(int col, int row) const {
  return StyleAt(col, row).option;
}

void Sheet::SetCellAlign(int col, int row, int flags) {
  set(col, row, CellProperty::Align, StyleTable::plainWord(flags));
}

void Sheet::SetCellInput(int col, int row, int mode) {
  set(col, row, CellProperty::Input, StyleTable::plainWord(mode));
}

void Sheet::SetCellWrap(int col, int row, bool on) {
  set(col, row, CellProperty::Wrap, on ? 1 : 0);
}

void Sheet::SetCellCategory(int col, int row, int category) {
  set(col, row, CellProperty::Category,
      StyleTable::plainWord(std::clamp(category, 0, kCategoryCount)));
}

void Sheet::SetCellColors(int col, int row, PackedColour text, PackedColour back) {
  set(col, row, CellProperty::Colours, StyleTable::coloursWord({text, back}));
}

void Sheet::SetCellFont(int col, int row, int size, int style, const QString& face) {
  if (!has(col, row)) return;
  SheetContent& content = change();
  content.set(col, row, CellProperty::Font, content.styles().fontWord({face, size, style}));
}

void Sheet::SetDefaultFont(int size, int style, const QString& face) {
  if (const CellFont font{face, size, style}; font != DefaultFont()) change().setDefaultFont(font);
}

CellFont Sheet::DefaultFont() const {
  return content_->defaultFont();
}

void Sheet::SetRangeBorder(int col1, int row1, int col2, int row2, int kind, int width,
                           PackedColour colour) {
  const int firstRow = std::max(row1, 0);
  const int lastRow = std::min(row2, Rows() - 1);
  if (kind != 0 || firstRow > lastRow) return;
  const quint64 word = StyleTable::borderWord({width, colour});
  for (int col = std::max(col1, 0); col <= std::min(col2, Cols() - 1); ++col) {
    change().setBorder(col, firstRow, lastRow, word);
  }
}

const CellStyle& Sheet::StyleAt(int col, int row) const {
  return content_->styles().style(static_cast<StyleTable::Number>(StyleNumberAt(col, row)));
}

int Sheet::StyleNumberAt(int col, int row) const {
  return static_cast<int>(has(col, row) ? content_->shown(col, row) : content_->shownOutside());
}

CellSettings Sheet::SettingsAt(int col, int row) const {
  return content_->styles().settings(static_cast<StyleTable::Number>(SettingsNumberAt(col, row)));
}

int Sheet::SettingsNumberAt(int col, int row) const {
  return static_cast<int>(has(col, row) ? content_->own(col, row) : StyleTable::kNothingSet);
}

void Sheet::SetCellSettings(int col, int row, const CellSettings& settings) {
  if (!has(col, row)) return;
  SheetContent& content = change();
  content.setOwn(col, row, content.styles().numberOf(settings));
}

void Sheet::SetColumnWidth(int col, int width) {
  if (has(col, kEveryRow)) change().setWidth(col, std::clamp(width, 0, kMaxPixels));
}

std::optional<int> Sheet::ColumnWidth(int col) const {
  return has(col, kEveryRow) ? content_->width(col) : std::nullopt;
}

void Sheet::SetRowHeight(int row, int height) {
  if (!hasRow(row)) return;
  change().blocks().writableLayout(row).height = std::clamp(height, 0, kMaxPixels);
}

std::optional<int> Sheet::RowHeight(int row) const {
  return hasRow(row) ? content_->blocks().layout(row).height : std::nullopt;
}

void Sheet::SetDefaultRowHeight(int height) {
  change().defaultRowHeight = std::clamp(height, 1, kMaxPixels);
}

int Sheet::DefaultRowHeight() const {
  return content_->defaultRowHeight;
}

void Sheet::HideRow(int row) {
  if (hasRow(row)) change().blocks().writableLayout(row).hidden = true;
}

bool Sheet::IsRowHidden(int row) const {
  return hasRow(row) && content_->blocks().layout(row).hidden;
}

int Sheet::NextShownRow(int row) const {
  while (IsRowHidden(row)) ++row;
  return row;
}

bool Sheet::IsRowEmpty(int row) const {
  if (RowHeight(row) || IsRowHidden(row)) return false;
  for (int col = 0; col < Cols(); ++col) {
    if (NumbersAt(col, row) != CellNumbers()) return false;
  }
  return true;
}

int Sheet::NextWrittenRow(int row) const {
  return content_->blocks().nextWritten(std::max(row, 0));
}

int Sheet::NextSizedRow(int row) const {
  return content_->blocks().nextSized(std::max(row, 0));
}

quint64 Sheet::revision() const {
  return content_->revision;
}

}  // namespace vellora
