// SPDX-License-Identifier: MIT
#include "controls/report_model.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace pnl::test {
namespace {

TEST(ReportModel, StaysConsistentUnderEveryChange) {
  ReportModel model;
  EXPECT_TRUE(model.IsConsistent());
  model.SetColumns({{"Name"}, {"Size"}});
  EXPECT_EQ(model.InsertRow(5, {{{"a"}}, -1, -1, 1}), 0);
  EXPECT_EQ(model.InsertRow(0, {{{"b"}}, -1, -1, 2}), 0);
  EXPECT_TRUE(model.IsConsistent());
  EXPECT_TRUE(model.SetCell(1, 1, {"12", 3}));
  EXPECT_EQ(model.Cell(1, 1).text, "12");
  EXPECT_FALSE(model.SetCell(1, 2, {"x"}));
  EXPECT_FALSE(model.SetCell(9, 0, {"x"}));
  EXPECT_FALSE(model.ReplaceRow(-1, {}));
  EXPECT_FALSE(model.DeleteRow(2));
  EXPECT_TRUE(model.DeleteRow(0));
  EXPECT_EQ(model.Row(0)->data, 1);
  EXPECT_EQ(model.Row(1), nullptr);
  EXPECT_EQ(model.Cell(7, 7).text, "");
  model.Clear();
  EXPECT_EQ(model.rowCount(), 0);
  EXPECT_TRUE(model.IsConsistent());
}

TEST(ReportModel, CellsAreToldWithTheirRowAndAlignedAsTheirColumn) {
  ReportModel model;
  model.SetColumns({{"Name"}, {"Size", Qt::AlignRight}});
  model.SetRows(std::vector<ReportRow>(3));
  std::vector<std::pair<QModelIndex, QModelIndex>> changed;
  QObject::connect(&model, &QAbstractItemModel::dataChanged, &model,
                   [&](const QModelIndex& first, const QModelIndex& last) { changed.emplace_back(first, last); });
  const std::pair<QModelIndex, QModelIndex> row{model.index(1, 0), model.index(1, 1)};
  EXPECT_TRUE(model.SetCell(1, 0, {"a"}));
  EXPECT_TRUE(model.ReplaceRow(1, {{{"b"}}, 4, 5, 6}));
  EXPECT_EQ(changed, (std::vector<std::pair<QModelIndex, QModelIndex>>{row, row}));
  EXPECT_EQ(model.Row(1)->overlay, 4);
  EXPECT_EQ(model.Row(0)->overlay, -1);
  EXPECT_EQ(model.Row(0)->stateImage, -1);
  EXPECT_EQ(model.Row(0)->data, 0);
  EXPECT_EQ(model.Cell(1, 0).image, -1);
  EXPECT_TRUE(model.SetCell(1, 1, {"c"}));
  EXPECT_EQ(model.Cell(1, 0).text, "b") << "the cell before stays";
  EXPECT_FALSE(model.SetCell(1, -1, {"x"}));
  EXPECT_FALSE(model.SetCell(3, 0, {"x"}));
  EXPECT_EQ(model.Cell(1, -1).text, "");
  EXPECT_EQ(model.index(1, 1).data().toString(), "c");
  EXPECT_EQ(model.index(1, 1).data(Qt::TextAlignmentRole).toInt(), static_cast<int>(Qt::AlignRight | Qt::AlignVCenter));
  EXPECT_EQ(model.index(1, 0).data(Qt::TextAlignmentRole).toInt(), static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter));
  EXPECT_FALSE(model.index(1, 1).data(Qt::ToolTipRole).isValid());
  EXPECT_EQ(model.headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(), "Size");
  EXPECT_FALSE(model.headerData(2, Qt::Horizontal, Qt::DisplayRole).isValid());
  EXPECT_FALSE(model.headerData(-1, Qt::Horizontal, Qt::DisplayRole).isValid());
  EXPECT_FALSE(model.headerData(0, Qt::Vertical, Qt::DisplayRole).isValid());
  EXPECT_FALSE(model.headerData(0, Qt::Horizontal, Qt::ToolTipRole).isValid());
  EXPECT_EQ(model.rowCount(model.index(0, 0)), 0);
  EXPECT_EQ(model.columnCount(model.index(0, 0)), 0);
}

TEST(ReportModel, NewColumnsAndNewRowsAreToldBeforeAndAfterwards) {
  ReportModel model;
  std::vector<std::string> told;
  const auto note = [&] {
    told.push_back(std::to_string(model.columnCount()) + "x" + std::to_string(model.rowCount()));
  };
  QObject::connect(&model, &QAbstractItemModel::modelAboutToBeReset, &model, note);
  QObject::connect(&model, &QAbstractItemModel::modelReset, &model, note);
  model.SetColumns({{"Name"}, {"Size"}});
  model.SetRows(std::vector<ReportRow>(3));
  EXPECT_EQ(told, (std::vector<std::string>{"0x0", "2x0", "2x0", "2x3"}));
}

TEST(ReportModel, RowsThatComeAndGoAreTold) {
  ReportModel model;
  model.SetColumns({{"Name"}});
  std::vector<std::string> told;
  const auto note = [&](const char* what) {
    return [&told, what](const QModelIndex&, int first, int last) {
      told.push_back(std::string(what) + std::to_string(first) + "-" + std::to_string(last));
    };
  };
  QObject::connect(&model, &QAbstractItemModel::rowsInserted, &model, note("in "));
  QObject::connect(&model, &QAbstractItemModel::rowsRemoved, &model, note("out "));
  EXPECT_EQ(model.InsertRow(0, {}), 0);
  EXPECT_EQ(model.InsertRow(1, {}), 1);
  EXPECT_EQ(model.InsertRow(-1, {}), 2);
  EXPECT_EQ(model.InsertRow(1, {}), 1);
  EXPECT_TRUE(model.DeleteRow(3));
  EXPECT_FALSE(model.DeleteRow(3));
  EXPECT_EQ(told, (std::vector<std::string>{"in 0-0", "in 1-1", "in 2-2", "in 1-1", "out 3-3"}));
}

}  // namespace
}  // namespace pnl::test
