#include "grid/surface/sheet_model.h"

#include "grid/print/drawn_style.h"
#include "routine/calendar_text.h"
#include "routine/category.h"

namespace vellora {
namespace {

// Pixel positions of views are plain ints, and they keep some bytes for each row.
constexpr int kMostShownRows = 10'000'000;

int shownRows(const Sheet& sheet) {
  return std::min(sheet.Rows(), kMostShownRows);
}

QString linesOf(QString text) {
  return text.replace(kLineBreak, u'\n');
}

}  // namespace

int SheetModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : rows_;
}

int SheetModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : cols_;
}

QString SheetModel::meaningOf(int row) const {
  const RowMark* mark = appearance_.markOf(row);
  return mark ? mark->meaning : QString();
}

TextColours SheetModel::coloursAt(int col, int row) const {
  return textColours(sheet().StyleAt(col, row), appearance_.colours,
                     appearance_.isHeading(col, row));
}

QVariant SheetModel::data(const QModelIndex& index, int role) const {
  const int col = index.column();
  const int row = index.row();
  const CellStyle& style = sheet().StyleAt(col, row);
  switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
      return linesOf(sheet().GetCellText(col, row));
    case Qt::ForegroundRole:
      return coloursAt(col, row).foreground;
    case Qt::BackgroundRole:
      return coloursAt(col, row).background;
    case Qt::FontRole:
      return fontOf(style.font);
    case Qt::TextAlignmentRole:
      return QVariant::fromValue(alignmentOf(style.align));
    case Qt::AccessibleDescriptionRole: {
      const QString note = appearance_.noteAt(col, row);
      if (!note.isEmpty()) return note;
      return style.category > 0 ? categoryHint(style.category - 1) : meaningOf(row);
    }
    default:
      return {};
  }
}

// Frozen rows and columns serve as headings where the strip itself is empty.
QString SheetModel::headingText(int section, Qt::Orientation orientation) const {
  if (orientation == Qt::Vertical) {
    return appearance_.frozenCols > 0 ? sheet().GetCellText(0, section)
                                      : QString::number(section + 1);
  }
  const QString strip = sheet().GetCellText(section, kHeadingRow);
  return strip.isEmpty() && appearance_.frozenRows > 0 ? sheet().GetCellText(section, 0) : strip;
}

QVariant SheetModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role == Qt::DisplayRole) return linesOf(headingText(section, orientation));
  if (orientation == Qt::Vertical) return role == Qt::ToolTipRole ? meaningOf(section) : QVariant();
  const CellStyle& style = sheet().StyleAt(section, kHeadingRow);
  if (role == Qt::FontRole) return fontOf(style.font);
  if (role == Qt::TextAlignmentRole) return QVariant::fromValue(alignmentOf(style.align));
  return {};
}

Qt::ItemFlags SheetModel::flags(const QModelIndex& index) const {
  const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
  const bool isOpen = index.isValid() && appearance_.isOpen(index.column(), index.row());
  return isOpen ? flags | Qt::ItemIsEditable : flags;
}

bool SheetModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role != Qt::EditRole || !flags(index).testFlag(Qt::ItemIsEditable)) return false;
  QString text = value.toString();
  text.replace(u"\r\n"_qs, u"\n"_qs).replace(u'\n', kLineBreak);
  emit typed(index.column(), index.row(), text);
  return true;
}

void SheetModel::sync() {
  syncCols(sheet().Cols());
  syncRows(shownRows(sheet()));
}

// Headers take in a whole sheet several times faster by a reset than row by row.
void SheetModel::syncRows(int rows) {
  if (rows_ == 0 && rows > 0) {
    beginResetModel();
    rows_ = rows;
    endResetModel();
  } else if (rows > rows_) {
    beginInsertRows({}, rows_, rows - 1);
    rows_ = rows;
    endInsertRows();
  } else if (rows < rows_) {
    beginRemoveRows({}, rows, rows_ - 1);
    rows_ = rows;
    endRemoveRows();
  }
}

void SheetModel::syncCols(int cols) {
  if (cols > cols_) {
    beginInsertColumns({}, cols_, cols - 1);
    cols_ = cols;
    endInsertColumns();
  } else if (cols < cols_) {
    beginRemoveColumns({}, cols, cols_ - 1);
    cols_ = cols;
    endRemoveColumns();
  }
}

void SheetModel::announceInserted(int row, int count) {
  if (row > rows_ || rows_ + count != shownRows(sheet())) return sync();
  beginInsertRows({}, row, row + count - 1);
  rows_ += count;
  endInsertRows();
}

void SheetModel::announceRemoved(int row, int count) {
  if (row + count > rows_ || rows_ - count != shownRows(sheet())) return sync();
  beginRemoveRows({}, row, row + count - 1);
  rows_ -= count;
  endRemoveRows();
}

SheetModel::Strip SheetModel::strip() const {
  Strip strip;
  for (int col = 0; col < cols_; ++col) {
    strip.emplace_back(sheet().GetCellText(col, kHeadingRow),
                       sheet().StyleNumberAt(col, kHeadingRow));
  }
  return strip;
}

// Views lay everything out anew after a change of headings, so that is told only where one changed.
void SheetModel::announceChanged() {
  if (rows_ > 0 && cols_ > 0) emit dataChanged(index(0, 0), index(rows_ - 1, cols_ - 1));
  Strip now = strip();
  if (now == announcedStrip_) return;
  announcedStrip_ = std::move(now);
  if (cols_ > 0) emit headerDataChanged(Qt::Horizontal, 0, cols_ - 1);
}

}  // namespace vellora
