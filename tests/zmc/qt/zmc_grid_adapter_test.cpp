// SPDX-License-Identifier: MIT
#include "zmc/qt/zmc_grid_adapter.h"

#include "support/widget_probe.h"

#include <gtest/gtest.h>

namespace pnl::test {
namespace {

class ZmcGridAdapterTest : public testing::Test {
 protected:
  ZmcGridAdapterTest() {
    control->resize(400, 300);
    control->Cells().SetColumns(4);
    control->Cells().SetRows(4);
    Activate(window);
    control->setFocus();
    control->Select(1, 1);
  }
  QWidget window;
  ZCGridXWrap* control = new ZCGridXWrap(1, &window);
  ZmcGridAdapter grid{*control};
};

TEST_F(ZmcGridAdapterTest, EachKindOfCellIsTheControls) {
  grid.SetCellKind(1, 1, ZmcCellKind::kNumber, {});
  grid.SetCellKind(1, 2, ZmcCellKind::kCheck, {});
  grid.SetCellKind(1, 3, ZmcCellKind::kList, {u"a", u"b"});
  EXPECT_EQ(control->Cells().Kind(1, 1), GridCellKind::kNumber);
  EXPECT_EQ(control->Cells().Kind(1, 2), GridCellKind::kCheck);
  EXPECT_EQ(control->Cells().Kind(1, 3), GridCellKind::kList);
  EXPECT_EQ(control->Cells().Items(1, 3), (QStringList{"a", "b"}));
  grid.SetCellKind(1, 1, ZmcCellKind::kText, {});
  EXPECT_EQ(control->Cells().Kind(1, 1), GridCellKind::kText);
}

TEST_F(ZmcGridAdapterTest, ACellWithANumberFormatIsANumberOfThatFormat) {
  grid.SetNumberFormat(2, 1, {3, 2, 0.0, 100.0});
  EXPECT_EQ(control->Cells().FormatOf(2, 1), (NumberFormat{3, 2, 0, 100}));
  grid.SetNumberFormat(2, 1, {5, 4, {}, {}});
  NumberFormat free;
  free.integerDigits = 5;
  free.decimals = 4;
  EXPECT_EQ(control->Cells().FormatOf(2, 1), free) << "without limits of its own";
}

TEST_F(ZmcGridAdapterTest, EachRowStateIsTheControls) {
  for (const auto& [state, own] : {std::pair(zmc_row_state::kFactory, GridRowState::kFactory),
                                   std::pair(zmc_row_state::kNormal, GridRowState::kNormal),
                                   std::pair(zmc_row_state::kRefused, GridRowState::kFailed)}) {
    grid.SetRowState(1, state);
    EXPECT_EQ(control->Cells().RowState(1), own);
  }
}

TEST_F(ZmcGridAdapterTest, ACellOfAFactoryRowIsReadOnlyUnlessItIsACheck) {
  grid.SetCellKind(1, 2, ZmcCellKind::kCheck, {});
  grid.SetRowState(1, zmc_row_state::kFactory);
  EXPECT_TRUE(grid.IsReadOnly(1, 1));
  EXPECT_FALSE(grid.IsReadOnly(1, 2));
  EXPECT_FALSE(grid.IsReadOnly(2, 1));
  grid.SetReadOnly(2, 1, true);
  EXPECT_TRUE(grid.IsReadOnly(2, 1));
  EXPECT_TRUE(grid.IsReadOnly(0, 1)) << "the header";
}

TEST_F(ZmcGridAdapterTest, AnEditBeginsInTheCellThatIsNamed) {
  grid.BeginEdit({3, 2});
  EXPECT_TRUE(grid.IsEditing());
  EXPECT_EQ(grid.Current(), (ZmcCell{3, 2}));
}

TEST_F(ZmcGridAdapterTest, TheMarkerOfColumnZeroIsNone) {
  grid.ShowSortMarker(2, true);
  EXPECT_EQ(control->SortColumn(), 2);
  grid.ShowSortMarker(0, true);
  EXPECT_EQ(control->SortColumn(), -1);
}

TEST_F(ZmcGridAdapterTest, WithoutItsRowsTheHeaderStays) {
  grid.SetCellText(0, 1, u"header");
  EXPECT_EQ(grid.AddRow(), 4);
  grid.RemoveRow(4);
  grid.RemoveAllRows();
  EXPECT_EQ(grid.Rows(), 1);
  EXPECT_EQ(grid.CellText(0, 1), u"header");
  EXPECT_EQ(grid.SelectedRows(), std::pair(0, 0));
}

}  // namespace
}  // namespace pnl::test
