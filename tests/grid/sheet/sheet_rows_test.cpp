#include "grid/sheet/sheet.h"
#include "support/text_output.h"

#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace vellora {
namespace {

struct PlainRow {
  QString text;
  QString tag;
  bool isWrapped = false;
  std::optional<int> height;
  bool isHidden = false;

  bool operator==(const PlainRow&) const = default;
};

// A sheet beside the simplest thing that behaves like one: a list of rows.
class SheetBesideList {
 public:
  SheetBesideList() { sheet_.SetCols(2); }

  void insert(int row, int count) {
    sheet_.InsertRows(row, count);
    list_.insert(list_.begin() + row, static_cast<std::size_t>(count), PlainRow());
  }
  void remove(int row, int count) {
    sheet_.DeleteRows(row, count);
    list_.erase(list_.begin() + row, list_.begin() + row + count);
  }
  void resize(int count) {
    sheet_.SetRows(count);
    list_.resize(static_cast<std::size_t>(count));
  }
  void write(int row, int mark) {
    PlainRow& plain = list_[static_cast<std::size_t>(row)];
    plain = {QString::number(mark % 50), QString::number(mark), mark % 2 == 0, mark % 90 + 1,
             plain.isHidden || mark % 9 == 0};
    const QString texts[]{QString(), plain.text, u"beyond the last column"_qs};
    if (mark % 3 == 0) {
      sheet_.SetRowTexts(row, texts);
    } else {
      sheet_.SetCellText(1, row, plain.text);
    }
    sheet_.SetCellTag(1, row, plain.tag);
    sheet_.SetCellWrap(1, row, plain.isWrapped);
    sheet_.SetRowHeight(row, *plain.height);
    if (plain.isHidden) sheet_.HideRow(row);
  }
  // What lies beyond the last column is forgotten.
  void dropColumn() {
    sheet_.SetCols(1);
    sheet_.SetCols(2);
    for (PlainRow& plain : list_) plain = {{}, {}, false, plain.height, plain.isHidden};
  }
  void unwrapColumn() {
    sheet_.SetCellWrap(1, kEveryRow, false);
    for (PlainRow& plain : list_) plain.isWrapped = false;
  }

  int rows() const { return static_cast<int>(list_.size()); }

  // Index of the first row that differs, or −1.
  int firstDifference() const {
    for (int row = 0; row < rows(); ++row) {
      if (rowOf(row) != list_[static_cast<std::size_t>(row)]) return row;
    }
    return sheet_.Rows() == rows() ? -1 : rows();
  }

  // Whether walking over what is empty finds every row that is not.
  bool isWalkedWhole() const {
    int written = sheet_.NextWrittenRow(0);
    int sized = sheet_.NextSizedRow(0);
    for (int row = 0; row < rows(); ++row) {
      const PlainRow& plain = list_[static_cast<std::size_t>(row)];
      if (row < written && plain != PlainRow()) return false;
      if ((row == sized) != (plain.height || plain.isHidden)) return false;
      if (row == written) written = sheet_.NextWrittenRow(row + 1);
      if (row == sized) sized = sheet_.NextSizedRow(row + 1);
    }
    return written == rows() && sized == rows();
  }

 private:
  PlainRow rowOf(int row) const {
    return {sheet_.GetCellText(1, row), sheet_.CellTag(1, row), sheet_.StyleAt(1, row).wrap,
            sheet_.RowHeight(row), sheet_.IsRowHidden(row)};
  }

  Sheet sheet_;
  std::vector<PlainRow> list_;
};

void change(SheetBesideList& both, std::mt19937& random) {
  const auto below = [&random](int limit) {
    return limit <= 0 ? 0 : static_cast<int>(random() % static_cast<unsigned>(limit));
  };
  const int kind = below(100);
  const int few = below(4) == 0 ? below(900) : 1 + below(3);
  if (kind < 25) {
    both.insert(below(both.rows() + 1), few);
  } else if (kind < 45 && both.rows() > 0) {
    const int row = below(both.rows());
    both.remove(row, std::min(few, both.rows() - row));
  } else if (kind < 48) {
    both.resize(below(3'000));
  } else if (kind < 49) {
    below(2) == 0 ? both.unwrapColumn() : both.dropColumn();
  } else if (both.rows() > 0) {
    const int row = below(both.rows());
    const int end = std::min(both.rows(), row + below(60));
    for (int r = row; r < end; ++r) both.write(r, below(1'000'000));
  }
}

}  // namespace

TEST(SheetRows, StayInStepWithAPlainListThroughRandomChanges) {
  for (unsigned seed = 1; seed <= 6; ++seed) {
    std::mt19937 random(seed);
    SheetBesideList both;
    std::vector<SheetBesideList> snapshots;
    for (int turn = 0; turn < 600; ++turn) {
      change(both, random);
      if (turn % 150 == 0) snapshots.push_back(both);
      if (turn % 10 != 0) continue;
      ASSERT_EQ(both.firstDifference(), -1) << "seed " << seed << ", turn " << turn;
      ASSERT_TRUE(both.isWalkedWhole()) << "seed " << seed << ", turn " << turn;
    }
    for (const auto& snapshot : snapshots) EXPECT_EQ(snapshot.firstDifference(), -1);
  }
}

}  // namespace vellora
