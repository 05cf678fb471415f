#pragma once

#include "grid/sheet/sheet.h"
#include "grid/surface/cell_range.h"
#include "grid/surface/clipboard_text.h"
#include "routine/work_step.h"

#include <QString>

#include <functional>
#include <optional>

namespace vellora {

// What a cell holds after the user put a text into it; lines are separated by character 13.
struct CellEntry {
  QString text;
  QString tag;
};

// How a window understands a text that the user types, or pastes from another program, into a cell:
// what the cell is to hold, or nothing where the text means nothing there. Asked for texts that are
// not empty, while the grid still holds what was there before.
using EntryRule = std::function<std::optional<CellEntry>(int col, int row, const QString& text)>;

struct GridAppearance;

// One action of the user on the cells of a sheet. Hidden rows and cells that the look keeps from
// the user stay as they are. A cell's tag belongs to its text: it comes from the rule, or with a
// pasted cell, and is empty otherwise; looks change only where a cell is pasted.
class RangeEdit {
 public:
  struct Settings {
    const GridAppearance& appearance;
    const EntryRule& rule;
    bool addsRows = false;  // where a paste finds too few
  };

  RangeEdit(Sheet& sheet, const Settings& settings, WorkProgress progress = {})
      : sheet_(sheet), settings_(settings), progress_(std::move(progress)) {}

  void enter(CellPlace cell, const QString& text);
  // These throw WorkCancelled, the sheet half done. One text or cell fills the whole range; more go
  // in from its top left, beyond the range where they must.
  void empty(const CellRange& range);
  void pasteTexts(const CellRange& range, const TextTable& table);
  void pasteCells(const CellRange& range, const Sheet& from, const CellRange& cells);

  // What the paste had no room for.
  int lostRows() const { return lost_rows_; }
  int lostCols() const { return lost_cols_; }
  // Texts that the rule did not understand, and the first of them.
  int refused() const { return refused_; }
  const QString& firstRefused() const { return first_refused_; }

 private:
  // What is pasted: rows of cells, and how one of them gets to its place.
  struct Source {
    int rows;
    std::function<int(int row)> cols;
    std::function<void(int col, int row, CellPlace to)> put;
  };

  void paste(const CellRange& range, const Source& source);
  void fill(const CellRange& range, const std::function<void(CellPlace)>& put);
  void pasteCell(const Sheet& from, CellPlace cell, CellPlace to);
  bool keepsTag(const Sheet& from, CellPlace cell, CellPlace to) const;
  bool isOpen(CellPlace cell) const;
  void reportProgress(int row, int rows) const;

  Sheet& sheet_;
  Settings settings_;
  WorkProgress progress_;
  int lost_rows_ = 0;
  int lost_cols_ = 0;
  int refused_ = 0;
  QString first_refused_;
};

}  // namespace vellora
