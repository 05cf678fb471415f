#include "grid_hands.h"

#include <QAbstractButton>
#include <QAccessible>

namespace vellora {
namespace {

using test::GridHands;

class GridAccessibility : public testing::Test, protected GridHands {
 protected:
  GridAccessibility() : GridHands(3, 4) {}
  QAccessibleTableInterface* table() const {
    return QAccessible::queryAccessibleInterface(const_cast<GridSurface*>(&grid))->tableInterface();
  }
  QString nameAt(int col, int row) const {
    return table()->cellAt(row, col)->text(QAccessible::Name);
  }
};

TEST_F(GridAccessibility, CellsAreReadWithTheirLines) {
  grid.SetCellText(1, 2, u"高等数学\r第七章"_qs);
  EXPECT_EQ(nameAt(1, 2), u"高等数学\n第七章");
  EXPECT_EQ(table()->rowCount(), 4);
  EXPECT_EQ(table()->columnCount(), 3);
}

TEST_F(GridAccessibility, TheStripsAreTheHeadings) {
  grid.SetCellText(1, kHeadingRow, u"时间"_qs);
  EXPECT_EQ(table()->columnDescription(1), u"时间");
  EXPECT_EQ(table()->rowDescription(2), u"3");
}

TEST_F(GridAccessibility, FrozenCellsAreHeadingsAndStillCells) {
  grid.setHeadingStripVisible(false);
  grid.setFrozen(1, 1);
  grid.SetCellText(2, 0, u"03月05日\r星期一"_qs);
  grid.SetCellText(0, 3, u"08:00-09:30\r早读"_qs);
  EXPECT_EQ(table()->columnDescription(2), u"03月05日\n星期一");
  EXPECT_EQ(table()->rowDescription(3), u"08:00-09:30\n早读");
  EXPECT_EQ(nameAt(2, 0), u"03月05日\n星期一");
}

TEST_F(GridAccessibility, ASelectedCellSaysSo) {
  select(1, 1, 2, 2);
  EXPECT_TRUE(table()->cellAt(2, 2)->state().selected);
  EXPECT_FALSE(table()->cellAt(3, 2)->state().selected);
  EXPECT_EQ(table()->cellAt(1, 1)->rect().size(), rect(1, 1).size());
}

TEST_F(GridAccessibility, AMarkedRowSaysWhatItsMarkStandsFor) {
  grid.markRows({{1, u"没有时间块"_qs}, {3, u"未保存"_qs}});
  const auto description = [&](int row) {
    return table()->cellAt(row, 0)->text(QAccessible::Description);
  };
  EXPECT_EQ(description(1), u"没有时间块");
  EXPECT_EQ(description(3), u"未保存");
  EXPECT_EQ(description(2), QString());
}

TEST_F(GridAccessibility, NothingInTheGridIsWithoutAName) {
  grid.setRowNumbersVisible(true);
  const auto* corner = grid.findChild<QAbstractButton*>(QString(), Qt::FindDirectChildrenOnly);
  ASSERT_NE(corner, nullptr);
  EXPECT_FALSE(corner->accessibleName().isEmpty());
  EXPECT_FALSE(grid.horizontalHeader()->accessibleName().isEmpty());
}

}  // namespace
}  // namespace vellora
