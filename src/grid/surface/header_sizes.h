#pragma once

#include "grid/sheet/sheet.h"

#include <QObject>

#include <map>

class QHeaderView;
class QTableView;

namespace vellora {

// Carries sizes between a sheet and the view's headers: the sheet's sizes to the headers, and what
// the user drags back to the sheet. Cost grows with the rows that have a height of their own, not
// with all rows.
class HeaderSizes : public QObject {
  Q_OBJECT

 public:
  explicit HeaderSizes(QTableView& view);

  void setSharesWidth(bool on) { sharesWidth_ = on; }
  // Rows from this one on without a height of their own share what is left of the view's height.
  void setSharesHeight(int firstRow) { firstSharer_ = firstRow; }
  // The sheet's sizes are shown this many times as large.
  void setScale(qreal scale);
  // Makes rows and columns as large as the sheet says, at least one line of text high; follows
  // applyDefaultHeight().
  void apply(const Sheet& sheet);
  void applyWidths(const Sheet& sheet);
  // Costs nothing before the view knows of its rows, and touches each of them afterwards.
  void applyDefaultHeight(const Sheet& sheet);

 signals:
  // The user made a row or column this large, in the sheet's pixels.
  void columnDragged(int col, int width);
  void rowDragged(int row, int height);

 private:
  struct RowLayout {
    int height;
    bool hidden;
    friend bool operator==(const RowLayout&, const RowLayout&) = default;
  };
  std::map<int, RowLayout> ownLayouts(const Sheet& sheet) const;
  void shareHeight(const Sheet& sheet, std::map<int, RowLayout>& layouts) const;
  void applyHeights(const Sheet& sheet);
  void show(int row, const RowLayout& appearance);
  int sharedWidth(const Sheet& sheet, int* remainder) const;
  void listen(QHeaderView* header, void (HeaderSizes::*dragged)(int, int));

  QTableView& view_;
  bool sharesWidth_ = false;
  bool isApplying_ = false;
  std::optional<int> firstSharer_;
  qreal scale_ = 1;
  int scaled(int size) const { return qRound(size * scale_); }
  int lowestRow_ = 1;
  std::map<int, RowLayout> shown_;  // rows that differ from the default
};

}  // namespace vellora
