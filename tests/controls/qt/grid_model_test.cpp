// SPDX-License-Identifier: MIT
#include "controls/grid_model.h"

#include <gtest/gtest.h>

#include <array>
#include <utility>

#include "window/qt/control_properties.h"

namespace pnl::test {
namespace {

class GridModelTest : public testing::Test {
 protected:
  GridModelTest() {
    grid.SetColumns(4);
    grid.SetRows(4);
  }
  ~GridModelTest() override { EXPECT_TRUE(grid.IsConsistent()); }
  [[nodiscard]] QModelIndex At(int row, int column) const { return grid.index(row - 1, column); }
  GridModel grid;
};

TEST_F(GridModelTest, CountsTheFixedRowAndColumn) {
  EXPECT_EQ(GridModel().Rows(), 1);
  EXPECT_EQ(GridModel().Columns(), 1);
  EXPECT_EQ(grid.Rows(), 4);
  EXPECT_EQ(grid.Columns(), 4);
  EXPECT_EQ(grid.rowCount(), 3);
  EXPECT_EQ(grid.columnCount(), 4);
  EXPECT_EQ(grid.rowCount(grid.index(0, 0)), 0);
  EXPECT_EQ(grid.columnCount(grid.index(0, 0)), 0);
}

TEST_F(GridModelTest, KeepsEachTextAsItWasWritten) {
  grid.SetCellText(1, 1, "0.0000000");
  grid.SetKind(1, 1, GridCellKind::kNumber);
  grid.SetCellFormat(1, 1, {5, 4, 0, 1});
  grid.SetCellText(0, 2, "maximum");
  grid.SetCellText(3, 0, "side");
  EXPECT_EQ(grid.CellText(1, 1), "0.0000000");
  EXPECT_EQ(At(1, 1).data().toString(), "0.0000000");
  EXPECT_EQ(grid.headerData(2, Qt::Horizontal, Qt::DisplayRole).toString(), "maximum");
  EXPECT_EQ(grid.headerData(2, Qt::Vertical, Qt::DisplayRole).toString(), "side");
  EXPECT_FALSE(grid.headerData(4, Qt::Horizontal, Qt::DisplayRole).isValid());
  EXPECT_FALSE(grid.headerData(3, Qt::Vertical, Qt::DisplayRole).isValid());
}

TEST_F(GridModelTest, CellsThatAreNotThereReadAsEmptyAndAreNotWritten) {
  for (const auto& [row, column] : {std::pair{-1, 1}, {4, 1}, {1, -1}, {1, 4}}) {
    grid.SetCellText(row, column, "x");
    grid.SetKind(row, column, GridCellKind::kCheck);
    grid.SetList(row, column, {"a"});
    grid.SetChecked(row, column, true);
    grid.SetReadOnly(row, column, true);
    grid.SetCellFormat(row, column, {});
    EXPECT_EQ(grid.CellText(row, column), "");
    EXPECT_FALSE(grid.IsChecked(row, column));
    EXPECT_FALSE(grid.FormatOf(row, column).has_value());
    EXPECT_FALSE(grid.AcceptsEdit(row, column));
  }
  grid.SetRowFormat(9, {});
  grid.SetRowState(9, GridRowState::kFailed);
  EXPECT_EQ(grid.RowState(9), GridRowState::kFactory);
}

TEST_F(GridModelTest, AddsRowsAtTheEndAndDeletesAnyButTheHeader) {
  grid.SetCellText(1, 1, "a");
  grid.SetCellText(2, 1, "b");
  grid.SetCellText(3, 1, "c");
  EXPECT_EQ(grid.AddRow(), 4);
  EXPECT_EQ(grid.RowState(4), GridRowState::kNormal);
  EXPECT_TRUE(grid.DeleteRow(2));
  EXPECT_EQ(grid.CellText(2, 1), "c");
  EXPECT_EQ(grid.Rows(), 4);
  EXPECT_FALSE(grid.DeleteRow(0));
  EXPECT_FALSE(grid.DeleteRow(4));
  EXPECT_TRUE(grid.IsConsistent());
  grid.SetRows(0);
  EXPECT_EQ(grid.Rows(), 1) << "the header stays";
  grid.SetColumns(-3);
  EXPECT_EQ(grid.Columns(), 1);
}

TEST_F(GridModelTest, TheFormatOfACellComesBeforeThatOfItsRow) {
  grid.SetKind(1, 1, GridCellKind::kNumber);
  grid.SetKind(1, 2, GridCellKind::kNumber);
  EXPECT_EQ(grid.FormatOf(1, 1), NumberFormat());
  grid.SetRowFormat(1, {5, 4, 0, 9});
  grid.SetCellFormat(1, 2, {3, 2, 0, 100});
  EXPECT_EQ(grid.FormatOf(1, 1), (NumberFormat{5, 4, 0, 9}));
  EXPECT_EQ(grid.FormatOf(1, 2), (NumberFormat{3, 2, 0, 100}));
  EXPECT_FALSE(grid.FormatOf(1, 3).has_value()) << "a text cell has none";
}

TEST_F(GridModelTest, WhichCellsAcceptEdits) {
  struct Row {
    GridRowState state;
    GridCellKind kind;
    bool readOnly;
    bool accepts;
  };
  const Row rows[] = {
      {GridRowState::kNormal, GridCellKind::kText, false, true},
      {GridRowState::kNormal, GridCellKind::kNumber, false, true},
      {GridRowState::kNormal, GridCellKind::kList, false, true},
      {GridRowState::kNormal, GridCellKind::kCheck, false, true},
      {GridRowState::kNormal, GridCellKind::kText, true, false},
      {GridRowState::kNormal, GridCellKind::kCheck, true, false},
      {GridRowState::kFailed, GridCellKind::kText, false, true},
      {GridRowState::kFailed, GridCellKind::kCheck, false, true},
      {GridRowState::kFactory, GridCellKind::kText, false, false},
      {GridRowState::kFactory, GridCellKind::kNumber, false, false},
      {GridRowState::kFactory, GridCellKind::kList, false, false},
      {GridRowState::kFactory, GridCellKind::kCheck, false, true},
      {GridRowState::kFactory, GridCellKind::kCheck, true, false},
  };
  for (const Row& row : rows) {
    grid.SetRowState(1, row.state);
    grid.SetKind(1, 1, row.kind);
    grid.SetReadOnly(1, 1, row.readOnly);
    EXPECT_EQ(grid.AcceptsEdit(1, 1), row.accepts) << &row - rows;
    const auto flags = grid.flags(At(1, 1));
    const bool check = row.kind == GridCellKind::kCheck;
    EXPECT_EQ(flags.testFlag(Qt::ItemIsEditable), row.accepts && !check) << &row - rows;
    EXPECT_EQ(flags.testFlag(Qt::ItemIsUserCheckable), row.accepts && check) << &row - rows;
    EXPECT_TRUE(flags.testFlag(Qt::ItemIsEnabled));
  }
}

TEST_F(GridModelTest, FixedCellsAreTextsThatNobodyEdits) {
  grid.SetKind(0, 1, GridCellKind::kCheck);
  grid.SetKind(1, 0, GridCellKind::kCheck);
  grid.SetList(1, 0, {"a"});
  EXPECT_EQ(grid.Kind(0, 1), GridCellKind::kText);
  EXPECT_EQ(grid.Kind(1, 0), GridCellKind::kText);
  EXPECT_TRUE(grid.Items(1, 0).isEmpty());
  EXPECT_FALSE(grid.AcceptsEdit(0, 1));
  EXPECT_FALSE(grid.AcceptsEdit(1, 0));
  EXPECT_EQ(grid.flags(At(1, 0)), Qt::NoItemFlags);
}

TEST_F(GridModelTest, OnlyCheckCellsHaveAState) {
  grid.SetChecked(1, 1, true);
  EXPECT_FALSE(grid.IsChecked(1, 1));
  EXPECT_FALSE(At(1, 1).data(Qt::CheckStateRole).isValid());
  grid.SetKind(1, 1, GridCellKind::kCheck);
  EXPECT_EQ(At(1, 1).data(Qt::CheckStateRole).toInt(), Qt::Unchecked);
  grid.SetChecked(1, 1, true);
  EXPECT_EQ(At(1, 1).data(Qt::CheckStateRole).toInt(), Qt::Checked);
  grid.SetKind(1, 1, GridCellKind::kText);
  grid.SetKind(1, 1, GridCellKind::kCheck);
  EXPECT_FALSE(grid.IsChecked(1, 1)) << "another kind forgets it";
  grid.SetList(1, 2, {"a", "b"});
  EXPECT_EQ(grid.Items(1, 2), (QStringList{"a", "b"}));
  grid.SetKind(1, 2, GridCellKind::kText);
  EXPECT_TRUE(grid.Items(1, 2).isEmpty());
}

TEST_F(GridModelTest, ATurnedCheckIsToldOnlyWhenTheOperatorChangesIt) {
  grid.SetKind(2, 3, GridCellKind::kCheck);
  std::vector<std::pair<int, int>> turned;
  QObject::connect(&grid, &GridModel::CheckTurned, &grid,
                   [&turned](int row, int column) { turned.emplace_back(row, column); });
  grid.SetChecked(2, 3, true);
  EXPECT_TRUE(turned.empty());
  EXPECT_TRUE(grid.setData(At(2, 3), Qt::Checked, Qt::CheckStateRole));
  EXPECT_TRUE(turned.empty()) << "it was checked already";
  EXPECT_TRUE(grid.setData(At(2, 3), Qt::Unchecked, Qt::CheckStateRole));
  EXPECT_EQ(turned, (std::vector<std::pair<int, int>>{{2, 3}}));
  grid.SetReadOnly(2, 3, true);
  EXPECT_FALSE(grid.setData(At(2, 3), Qt::Checked, Qt::CheckStateRole));
  EXPECT_FALSE(grid.IsChecked(2, 3));
  EXPECT_FALSE(grid.setData(At(1, 1), "x", Qt::EditRole)) << "edits are stored by the grid";
}

TEST_F(GridModelTest, TellsTheStateOfARowToItsHeader) {
  grid.SetRowState(2, GridRowState::kFailed);
  grid.SetRowState(3, GridRowState::kFactory);
  EXPECT_EQ(grid.headerData(0, Qt::Vertical, kRowStateRole).toInt(), 1);
  EXPECT_EQ(grid.headerData(1, Qt::Vertical, kRowStateRole).toInt(), 2);
  EXPECT_EQ(grid.headerData(2, Qt::Vertical, kRowStateRole).toInt(), 0);
  EXPECT_FALSE(grid.headerData(1, Qt::Horizontal, kRowStateRole).isValid());
}

TEST_F(GridModelTest, EachChangeIsToldForTheCellsThatItConcerns) {
  std::vector<std::pair<QModelIndex, QModelIndex>> cells;
  std::vector<int> headers;
  QObject::connect(&grid, &QAbstractItemModel::dataChanged, &grid,
                   [&](const QModelIndex& first, const QModelIndex& last) { cells.emplace_back(first, last); });
  QObject::connect(&grid, &QAbstractItemModel::headerDataChanged, &grid,
                   [&](Qt::Orientation, int first) { headers.push_back(first); });
  grid.SetCellText(2, 1, "x");
  EXPECT_EQ(cells, (std::vector<std::pair<QModelIndex, QModelIndex>>{{At(2, 1), At(2, 1)}}));
  EXPECT_TRUE(headers.empty());
  cells.clear();
  grid.SetCellText(0, 2, "h");
  EXPECT_TRUE(cells.empty());
  EXPECT_EQ(headers, std::vector<int>{2});
  grid.SetRowState(3, GridRowState::kFailed);
  EXPECT_EQ(cells, (std::vector<std::pair<QModelIndex, QModelIndex>>{{At(3, 0), At(3, 3)}}));
}

TEST_F(GridModelTest, ATintIsOfOneCellAndToldWhenItChanges) {
  int changes = 0;
  QObject::connect(&grid, &QAbstractItemModel::dataChanged, &grid, [&changes] { ++changes; });
  EXPECT_FALSE(grid.HasTint(1, 1));
  grid.SetTint(1, 1, true);
  grid.SetTint(1, 1, true);
  EXPECT_TRUE(grid.HasTint(1, 1));
  EXPECT_FALSE(grid.HasTint(1, 2));
  EXPECT_EQ(changes, 1);
  grid.SetTint(1, 1, false);
  EXPECT_FALSE(grid.HasTint(1, 1));
  EXPECT_EQ(changes, 2);
  for (const auto& [row, column] : {std::pair{4, 1}, {1, 4}, {-1, 1}}) grid.SetTint(row, column, true);
  EXPECT_EQ(changes, 2);
}

TEST_F(GridModelTest, EveryKindOfChangeIsTold) {
  std::vector<std::array<int, 4>> changed;  // first row and column, last row and column
  std::vector<std::string> headers;
  QObject::connect(&grid, &QAbstractItemModel::dataChanged, &grid, [&](const QModelIndex& a, const QModelIndex& b) {
    changed.push_back({a.row() + 1, a.column(), b.row() + 1, b.column()});
  });
  QObject::connect(&grid, &QAbstractItemModel::headerDataChanged, &grid, [&](Qt::Orientation way, int a, int b) {
    headers.push_back((way == Qt::Vertical ? "row " : "column ") + std::to_string(a) + "-" + std::to_string(b));
  });
  using Areas = std::vector<std::array<int, 4>>;
  grid.SetKind(1, 2, GridCellKind::kCheck);
  EXPECT_EQ(std::exchange(changed, {}), (Areas{{1, 2, 1, 2}}));
  grid.SetChecked(1, 2, true);
  EXPECT_EQ(std::exchange(changed, {}), (Areas{{1, 2, 1, 2}}));
  grid.SetReadOnly(3, 1, true);
  EXPECT_EQ(std::exchange(changed, {}), (Areas{{3, 1, 3, 1}}));
  grid.SetCellFormat(2, 3, {});
  EXPECT_EQ(std::exchange(changed, {}), (Areas{{2, 3, 2, 3}}));
  EXPECT_EQ(headers, std::vector<std::string>{});
  grid.SetRowFormat(2, {});
  EXPECT_EQ(std::exchange(changed, {}), (Areas{{2, 0, 2, 3}}));
  EXPECT_EQ(std::exchange(headers, {}), std::vector<std::string>{"row 1-1"});
  grid.SetRowState(3, GridRowState::kFailed);
  EXPECT_EQ(headers.front(), "row 2-2") << "its head shows the state";
}

TEST_F(GridModelTest, RowsThatComeAndGoAreTold) {
  std::vector<std::string> told;
  const auto note = [&](const char* what) {
    return [&told, what](const QModelIndex&, int first, int last) {
      told.push_back(std::string(what) + std::to_string(first) + "-" + std::to_string(last));
    };
  };
  QObject::connect(&grid, &QAbstractItemModel::rowsInserted, &grid, note("in "));
  QObject::connect(&grid, &QAbstractItemModel::rowsRemoved, &grid, note("out "));
  grid.SetRows(6);
  grid.SetRows(6);
  grid.SetRows(2);
  grid.AddRow();
  grid.DeleteRow(1);
  EXPECT_EQ(told, (std::vector<std::string>{"in 3-4", "out 1-4", "in 1-1", "out 0-0"}));
}

TEST_F(GridModelTest, ANewNumberOfColumnsIsToldBeforeAndAfterwards) {
  std::vector<int> columns;
  const auto note = [&] { columns.push_back(grid.columnCount()); };
  QObject::connect(&grid, &QAbstractItemModel::modelAboutToBeReset, &grid, note);
  QObject::connect(&grid, &QAbstractItemModel::modelReset, &grid, note);
  grid.SetColumns(6);
  EXPECT_EQ(columns, (std::vector<int>{4, 6}));
}

TEST_F(GridModelTest, ACheckCellStaysCheckedUnlessItBecomesAnother) {
  grid.SetKind(1, 1, GridCellKind::kCheck);
  grid.SetChecked(1, 1, true);
  grid.SetKind(1, 1, GridCellKind::kCheck);
  EXPECT_TRUE(grid.IsChecked(1, 1));
  grid.SetKind(1, 1, GridCellKind::kText);
  grid.SetKind(1, 1, GridCellKind::kCheck);
  EXPECT_FALSE(grid.IsChecked(1, 1));
}

TEST_F(GridModelTest, OnlyARowThatIsThereHasAState) {
  grid.SetRowState(3, GridRowState::kFailed);
  grid.SetRows(3);
  EXPECT_EQ(grid.RowState(3), GridRowState::kFactory) << "it is gone";
  int told = 0;
  const auto note = [&told] { ++told; };
  QObject::connect(&grid, &QAbstractItemModel::headerDataChanged, &grid, note);
  QObject::connect(&grid, &QAbstractItemModel::dataChanged, &grid, note);
  for (const int row : {-1, 0, 3}) grid.SetRowState(row, GridRowState::kFailed);
  for (const int row : {-1, 3, 4000}) grid.SetRowFormat(row, {5, 4, 0, 1});
  EXPECT_EQ(told, 0);
}

TEST_F(GridModelTest, AnUnknownRoleOfACellIsNothing) {
  grid.SetCellText(1, 1, "a");
  EXPECT_EQ(At(1, 1).data(Qt::EditRole).toString(), "a");
  EXPECT_FALSE(At(1, 1).data(Qt::ToolTipRole).isValid());
  EXPECT_FALSE(grid.headerData(-1, Qt::Horizontal, Qt::DisplayRole).isValid());
  EXPECT_FALSE(grid.headerData(1, Qt::Horizontal, Qt::ToolTipRole).isValid());
}

}  // namespace
}  // namespace pnl::test
