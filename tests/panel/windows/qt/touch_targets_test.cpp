// SPDX-License-Identifier: MIT
// The search for everything that a finger can press.
#include "support/touch_targets.h"

#include <gtest/gtest.h>

#include <QListWidget>
#include <QPushButton>
#include <QStandardItemModel>

#include "support/widget_probe.h"

namespace panel {
namespace {

using pnl::test::TouchTarget;
using pnl::test::TouchTargets;

class TouchTargetsTest : public ::testing::Test {
 protected:
  TouchTargetsTest() { window_.resize(300, 200); }
  [[nodiscard]] std::vector<TouchTarget> Found(const std::string& part) {
    pnl::test::Activate(window_);
    std::vector<TouchTarget> found;
    const TouchTargets targets(window_);
    for (const TouchTarget& target : targets.All()) {
      if (target.part == part) found.push_back(target);
    }
    return found;
  }
  QWidget window_;
};

TEST_F(TouchTargetsTest, AKeyIsFoundWhereItIsDimOrNot) {
  QPushButton key("Start", &window_);
  key.setGeometry(20, 30, 40, 50);
  for (const bool enabled : {true, false}) {
    key.setEnabled(enabled);
    const auto found = Found("button");
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0].place, QRect(20, 30, 40, 50));
    EXPECT_EQ(found[0].widget, &key);
  }
}

TEST_F(TouchTargetsTest, WhatIsHiddenCoveredOrOutsideIsntThere) {
  QPushButton hidden("1", &window_);
  hidden.hide();
  QPushButton outside("2", &window_);
  outside.setGeometry(500, 10, 40, 40);
  QPushButton covered("3", &window_);
  covered.setGeometry(10, 10, 40, 40);
  QWidget cover(&window_);
  cover.setGeometry(0, 0, 100, 100);
  EXPECT_TRUE(Found("button").empty());
  cover.hide();
  EXPECT_EQ(Found("button").size(), 1u);
}

TEST_F(TouchTargetsTest, EachRowOfAListIsOneAndItsScrollBarHasAHandle) {
  QListWidget list(&window_);
  list.setGeometry(0, 0, 200, 190);
  for (int i = 0; i < 50; ++i) list.addItem(new QListWidgetItem(QString::number(i)));
  for (int i = 0; i < 50; ++i) list.item(i)->setSizeHint(QSize(50, 20));
  const auto rows = Found("row");
  ASSERT_GE(rows.size(), 4u);
  EXPECT_EQ(rows[0].place.height(), 20);
  EXPECT_EQ(rows[0].place.width(), list.viewport()->width());
  ASSERT_EQ(Found("scroll bar").size(), 1u);
  ASSERT_EQ(Found("handle").size(), 1u);
  EXPECT_LT(Found("handle")[0].place.height(), Found("scroll bar")[0].place.height());
  while (list.count() > 2) delete list.takeItem(2);
  EXPECT_EQ(Found("row").size(), 2u);
  EXPECT_TRUE(Found("scroll bar").empty()) << "nothing to scroll";
}

TEST_F(TouchTargetsTest, ATableHasItsCellsAndHeadings) {
  QStandardItemModel model(2, 3);
  QTableView table(&window_);
  table.setModel(&model);
  table.setGeometry(0, 0, 300, 200);
  for (int column = 0; column < 3; ++column) table.setColumnWidth(column, 50 + column);
  for (int row = 0; row < 2; ++row) table.setRowHeight(row, 25);
  const auto cells = Found("cell");
  ASSERT_EQ(cells.size(), 6u);
  EXPECT_EQ(cells[1].place.size(), QSize(50, 24)) << "without the line of the grid";
  ASSERT_EQ(Found("heading").size(), 3u);
  EXPECT_EQ(Found("heading")[2].place.width(), 52);
}

TEST_F(TouchTargetsTest, AFieldAndABoxAreOneEach) {
  QLineEdit field(&window_);
  field.setGeometry(0, 0, 100, 21);
  QComboBox box(&window_);
  box.setEditable(true);
  box.setGeometry(0, 50, 100, 22);
  ASSERT_EQ(Found("field").size(), 1u);
  EXPECT_EQ(Found("field")[0].place.height(), 21);
  ASSERT_EQ(Found("box").size(), 1u);
  EXPECT_EQ(Found("box")[0].place.height(), 22);
}

TEST_F(TouchTargetsTest, AMenuHasItsItems) {
  QMenu menu;
  menu.addAction("Copy");
  menu.addAction("Paste");
  menu.popup(QPoint(10, 10));
  const TouchTargets found(menu);
  EXPECT_EQ(found.All().size(), 2u);
}

}  // namespace
}  // namespace panel
