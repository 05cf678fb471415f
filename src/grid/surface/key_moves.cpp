#include "grid/surface/key_moves.h"

#include <algorithm>
#include <functional>

namespace vellora {
namespace {

// Where a walk along one row or column ends that goes to the edge of what is filled.
int filledEdge(int from, int last, int step, const std::function<bool(int)>& isFilled) {
  if (from == last) return from;
  const bool wasFilled = isFilled(from) && isFilled(from + step);
  int at = from + step;
  if (wasFilled) {
    while (at != last && isFilled(at + step)) at += step;
  } else {
    while (at != last && !isFilled(at)) at += step;
  }
  return at;
}

class Walk {
 public:
  Walk(const Sheet& sheet, CellPlace from) : sheet_(sheet), from_(from) {}

  CellPlace rowsAway(int count) const {
    const int step = count < 0 ? -1 : 1;
    int row = from_.row;
    for (int left = std::abs(count); left > 0; --left) row = nextShown(row, step);
    return {from_.col, row};
  }

  CellPlace colsAway(int count) const {
    return {std::clamp(from_.col + count, 0, sheet_.Cols() - 1), from_.row};
  }

  CellPlace rowEdge(int step) const {
    const int last = step < 0 ? firstRow() : lastRow();
    const auto isFilled = [this](int row) { return !sheet_.GetCellText(from_.col, row).isEmpty(); };
    const int row = filledEdge(from_.row, last, step, isFilled);
    return {from_.col, sheet_.IsRowHidden(row) ? nextShown(row, -step) : row};
  }

  CellPlace colEdge(int step) const {
    const int last = step < 0 ? 0 : sheet_.Cols() - 1;
    const auto isFilled = [this](int col) { return !sheet_.GetCellText(col, from_.row).isEmpty(); };
    return {filledEdge(from_.col, last, step, isFilled), from_.row};
  }

  // From a row's end to the next row's beginning and back.
  std::optional<CellPlace> tab(int step) const {
    const int col = from_.col + step;
    if (col >= 0 && col < sheet_.Cols()) return CellPlace{col, from_.row};
    const int row = nextShown(from_.row, step);
    if (row == from_.row) return std::nullopt;
    return CellPlace{step < 0 ? sheet_.Cols() - 1 : 0, row};
  }

  int firstRow() const { return sheet_.IsRowHidden(0) ? nextShown(0, 1) : 0; }
  int lastRow() const {
    const int last = sheet_.Rows() - 1;
    return sheet_.IsRowHidden(last) ? nextShown(last, -1) : last;
  }

 private:
  // The next row that is not hidden; the same row when there is none.
  int nextShown(int row, int step) const {
    for (int next = row + step; next >= 0 && next < sheet_.Rows(); next += step) {
      if (!sheet_.IsRowHidden(next)) return next;
    }
    return row;
  }

  const Sheet& sheet_;
  CellPlace from_;
};

}  // namespace

std::optional<CellPlace> targetOf(int key, Qt::KeyboardModifiers modifiers, CellPlace from,
                                  const Sheet& sheet, int pageRows) {
  if (sheet.Rows() == 0 || sheet.Cols() == 0) return std::nullopt;
  const Walk walk(sheet, from);
  const bool far = modifiers.testFlag(Qt::ControlModifier);
  const int turned = modifiers.testFlag(Qt::ShiftModifier) ? -1 : 1;
  switch (key) {
    case Qt::Key_Up:
      return far ? walk.rowEdge(-1) : walk.rowsAway(-1);
    case Qt::Key_Down:
      return far ? walk.rowEdge(1) : walk.rowsAway(1);
    case Qt::Key_Left:
      return far ? walk.colEdge(-1) : walk.colsAway(-1);
    case Qt::Key_Right:
      return far ? walk.colEdge(1) : walk.colsAway(1);
    case Qt::Key_Home:
      return CellPlace{0, far ? walk.firstRow() : from.row};
    case Qt::Key_End:
      return CellPlace{sheet.Cols() - 1, far ? walk.lastRow() : from.row};
    case Qt::Key_PageUp:
      return walk.rowsAway(-pageRows);
    case Qt::Key_PageDown:
      return walk.rowsAway(pageRows);
    case Qt::Key_Tab:
      return walk.tab(turned);
    case Qt::Key_Backtab:
      return walk.tab(-1);
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return walk.rowsAway(turned);
    default:
      return std::nullopt;
  }
}

bool selectsWithShift(int key) {
  return key != Qt::Key_Tab && key != Qt::Key_Backtab && key != Qt::Key_Return &&
         key != Qt::Key_Enter;
}

}  // namespace vellora
