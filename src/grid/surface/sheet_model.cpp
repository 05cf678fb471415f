#include "grid/surface/sheet_model.h"

#include "routine/calendar_text.h"

#include <QColor>
#include <QFont>

namespace vellora {
namespace {

QColor toColour(PackedColour colour) {
  return QColor(redOf(colour), greenOf(colour), blueOf(colour));
}

QString toLines(QString text) {
  return text.replace(kLineBreak, u'\n');
}

}  // namespace

SheetModel::SheetModel(Workbook& workbook, QObject* parent)
    : QAbstractTableModel(parent), workbook_(workbook) {}

void SheetModel::reconcile() {
  const Sheet& sheet = workbook_.sheet();
  if (rows_ != sheet.Rows() || cols_ != sheet.Cols()) {
    beginResetModel();
    rows_ = sheet.Rows();
    cols_ = sheet.Cols();
    endResetModel();
  } else if (rows_ > 0 && cols_ > 0) {
    emit dataChanged(index(0, 0), index(rows_ - 1, cols_ - 1));
  }
  if (cols_ > 0) emit headerDataChanged(Qt::Horizontal, 0, cols_ - 1);
}

int SheetModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : rows_;
}

int SheetModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : cols_;
}

QVariant SheetModel::data(const QModelIndex& index, int role) const {
  const Sheet& sheet = workbook_.sheet();
  const CellStyle& style = sheet.StyleAt(index.column(), index.row());
  switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
      return toLines(sheet.GetCellText(index.column(), index.row()));
    case Qt::ForegroundRole:
      return style.hasColours ? QVariant(toColour(style.textColour)) : QVariant();
    case Qt::BackgroundRole:
      return style.hasColours ? QVariant(toColour(style.backColour)) : QVariant();
    case Qt::TextAlignmentRole:
      return int(style.align & kAlignCentre ? Qt::AlignHCenter : Qt::AlignLeft) |
             int(Qt::AlignVCenter);
    case Qt::FontRole:
      return QFont(style.font.face, style.font.size,
                   style.font.style == kFontBold ? QFont::Bold : QFont::Normal);
    default:
      return {};
  }
}

bool SheetModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role != Qt::EditRole) return false;
  QString text = value.toString();
  workbook_.sheet().SetCellText(index.column(), index.row(), text.replace(u'\n', kLineBreak));
  emit dataChanged(index, index);
  return true;
}

QVariant SheetModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole) return {};
  if (orientation == Qt::Vertical) return section + 1;
  return toLines(workbook_.sheet().GetCellText(section, kHeadingRow));
}

Qt::ItemFlags SheetModel::flags(const QModelIndex& index) const {
  const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
  return editable_ ? flags | Qt::ItemIsEditable : flags;
}

}  // namespace vellora
