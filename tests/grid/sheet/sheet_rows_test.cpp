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
    sheet_.SetCellText(1, row, plain.text);
    sheet_.SetCellTag(1, row, plain.tag);
    sheet_.SetCellWrap(1, row, plain.isWrapped);
    sheet_.SetRowHeight(row, *plain.height);
    if (plain.isHidden) sheet_.HideRow(row);
  }
  void unwrapColumn() {
    sheet_.SetCellWrap(1, kEveryRow, false);
    for (PlainRow& plain : list_) plain.isWrapped = false;
  }

  int rows() const { return static_cast<int>(list_.size()); }
  const Sheet& sheet() const { return sheet_; }

  // Index of the first row that differs, or −1.
  int firstDifference() const {
    for (int row = 0; row < rows(); ++row) {
      const PlainRow& plain = list_[static_cast<std::size_t>(row)];
      if (sheet_.GetCellText(1, row) != plain.text || sheet_.CellTag(1, row) != plain.tag ||
          sheet_.StyleAt(1, row).wrap != plain.isWrapped || sheet_.RowHeight(row) != plain.height ||
          sheet_.IsRowHidden(row) != plain.isHidden) {
        return row;
      }
    }
    return sheet_.Rows() == rows() ? -1 : rows();
  }

 private:
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
    both.unwrapColumn();
  } else if (both.rows() > 0) {
    const int row = below(both.rows());
    const int end = std::min(both.rows(), row + below(60));
    for (int r = row; r < end; ++r) both.write(r, below(1'000'000));
  }
}

}  // namespace

TEST(SheetRows, StayInStepWithAPlainListThroughRandomChanges) {
  for (unsigned seed = 1; seed <= 8; ++seed) {
    std::mt19937 random(seed);
    SheetBesideList both;
    std::vector<SheetBesideList> snapshots;
    for (int turn = 0; turn < 600; ++turn) {
      change(both, random);
      if (turn % 150 == 0) snapshots.push_back(both);
      if (turn % 10 != 0) continue;
      ASSERT_EQ(both.firstDifference(), -1) << "seed " << seed << ", turn " << turn;
    }
    for (const auto& snapshot : snapshots) EXPECT_EQ(snapshot.firstDifference(), -1);
  }
}

TEST(SheetRows, MoveDownOnInsertingAndUpOnDeleting) {
  Sheet sheet;
  sheet.SetCols(1);
  sheet.SetRows(3);
  sheet.SetCellText(0, 1, u"乙"_qs);
  sheet.SetRowHeight(1, 38);
  sheet.InsertRows(1, 2);
  EXPECT_EQ(sheet.GetCellText(0, 1), QString());
  EXPECT_EQ(sheet.RowHeight(1), std::nullopt);
  EXPECT_EQ(sheet.GetCellText(0, 3), u"乙"_qs);
  EXPECT_EQ(sheet.RowHeight(3), 38);
  sheet.DeleteRows(0, 3);
  EXPECT_EQ(sheet.GetCellText(0, 0), u"乙"_qs);
  EXPECT_EQ(sheet.Rows(), 2);
}

TEST(SheetRows, AreWalkedWithoutVisitingLongEmptyStretches) {
  Sheet sheet;
  sheet.SetCols(2);
  sheet.SetRows(kMaxRows);
  sheet.SetCellText(1, 900'000'123, u"x"_qs);
  sheet.HideRow(5);
  int visited = 0;
  bool isTextSeen = false;
  for (int row = sheet.NextWrittenRow(0); row < kMaxRows; row = sheet.NextWrittenRow(row + 1)) {
    ++visited;
    isTextSeen |= sheet.GetCellText(1, row) == u"x"_qs;
  }
  EXPECT_TRUE(isTextSeen);
  EXPECT_LT(visited, 2'000);
}

TEST(SheetRows, WithHeightsOrHiddenAreFoundAmongAllOthers) {
  Sheet sheet;
  sheet.SetCols(1);
  sheet.SetRows(2'000'000);
  for (int row = 0; row < 2'000; ++row) sheet.SetCellText(0, row, QString::number(row));
  EXPECT_EQ(sheet.NextSizedRow(0), sheet.Rows());
  for (const int row : {0, 255, 256, 1'700}) sheet.SetRowHeight(row, 40);
  sheet.HideRow(1'999'999);
  std::vector<int> found;
  for (int row = sheet.NextSizedRow(0); row < sheet.Rows(); row = sheet.NextSizedRow(row + 1)) {
    found.push_back(row);
  }
  EXPECT_EQ(found, (std::vector<int>{0, 255, 256, 1'700, 1'999'999}));
}

TEST(SheetRows, AreAppendedAndFilledOneByOneWithoutLosingAny) {
  Sheet sheet;
  sheet.SetCols(1);
  for (int row = 0; row < 2'000; ++row) {
    sheet.SetRows(row + 1);
    sheet.SetCellText(0, row, QString::number(row));
  }
  for (int row = 0; row < 2'000; ++row) ASSERT_EQ(sheet.GetCellText(0, row), QString::number(row));
}

}  // namespace vellora
