// SPDX-License-Identifier: MIT
#include "controls/list_box.h"

#include "support/widget_probe.h"

namespace pnl::test {
namespace {

class ListBoxTest : public testing::Test {
 protected:
  ListBoxTest() {
    box.SetColors(0x78643C, 0xFFFFFF);
    box.SetSelectedColors(0xD3BF97, 0x000001);
    box.SetFont("Arial", 18, 600);
    box.resize(200, 150);
  }
  [[nodiscard]] std::vector<Text> Items() const {
    std::vector<Text> items;
    for (int i = 0; i < box.Count(); ++i) items.push_back(box.Item(i));
    return items;
  }
  ListBox box{5001, nullptr};
};

TEST_F(ListBoxTest, NothingIsSelectedAfterFilling) {
  box.SetItems({u"a", u"b"});
  EXPECT_EQ(box.Selection(), -1);
  box.Select(1);
  EXPECT_EQ(box.Selection(), 1);
  box.SetItems({u"a", u"b"});
  EXPECT_EQ(box.Selection(), -1);
}

TEST_F(ListBoxTest, ItemsHaveNoItemsBelowThem) {
  ListBoxModel items;
  items.SetItems({u"a", u"b"});
  EXPECT_EQ(items.rowCount({}), 2);
  EXPECT_EQ(items.rowCount(items.index(0)), 0);
}

TEST_F(ListBoxTest, InsertingKeepsTheSelectedItemSelected) {
  box.SetItems({u"a", u"b"});
  box.Select(1);
  box.Insert(0, u"first");
  EXPECT_EQ(box.Selection(), 2);
  box.Insert(99, u"last");
  EXPECT_EQ(Items(), (std::vector<Text>{u"first", u"a", u"b", u"last"}));
}

TEST_F(ListBoxTest, ADeletedSelectionLeavesNone) {
  box.SetItems({u"a", u"b", u"c"});
  box.Select(1);
  box.Delete(1);
  EXPECT_EQ(box.Selection(), -1);
  box.Select(1);
  box.Delete(0);
  EXPECT_EQ(box.Selection(), 0);
  EXPECT_EQ(box.Item(0), u"c");
}

TEST_F(ListBoxTest, WrongIndicesAreLeftAlone) {
  box.SetItems({u"a"});
  box.Select(0);
  box.Select(5);
  box.Select(-7);
  EXPECT_EQ(box.Selection(), 0);
  box.Delete(3);
  box.Replace(-1, u"x");
  EXPECT_EQ(Items(), std::vector<Text>{u"a"});
  EXPECT_EQ(box.Item(4), u"");
  box.Select(-1);
  EXPECT_EQ(box.Selection(), -1);
}

TEST_F(ListBoxTest, PaintsItsColoursAlsoWhenDisabled) {
  box.SetItems({u"HHHH", u"HHHH"});
  box.Select(1);
  for (const bool enabled : {true, false}) {
    box.setEnabled(enabled);
    box.show();
    Settle();
    const QImage image = Paint(*box.viewport());
    EXPECT_EQ(ColorAt(image, 150, 10), 0x78643Cu);
    EXPECT_EQ(ColorAt(image, 150, box.RowHeight() + 10), 0xD3BF97u);
    EXPECT_GT(Count(image, 0xFFFFFF), 10);
    EXPECT_GT(Count(image, 0x000001), 10);
    EXPECT_EQ(ColorAt(image, 150, 140), 0x78643Cu);
  }
}

TEST_F(ListBoxTest, RowsAreHighEnoughForAFinger) {
  EXPECT_GE(box.RowHeight(), 34);
  box.SetItems({u"a"});
  EXPECT_EQ(box.sizeHintForRow(0), box.RowHeight());
}

TEST_F(ListBoxTest, RowsAreAsHighAsWishedButNeverTooLowForAFinger) {
  box.SetItems({u"a", u"b"});
  const int usual = box.RowHeight();
  box.SetLeastRowHeight(usual + 25);
  EXPECT_EQ(box.RowHeight(), usual + 25);
  EXPECT_EQ(box.visualRect(box.model()->index(1, 0)).top(), usual + 25);
  box.SetLeastRowHeight(1);
  EXPECT_EQ(box.RowHeight(), usual);
}

TEST_F(ListBoxTest, AFullListHasABarForAFinger) {
  box.SetItems(TextRows(std::vector<Text>(10000, u"G0 X1")));
  box.show();
  Settle();
  EXPECT_TRUE(box.verticalScrollBar()->isVisible());
  EXPECT_GE(box.verticalScrollBar()->width(), 30);
}

TEST_F(ListBoxTest, HandsItsTextsToWhoeverReadsTheModel) {
  box.SetItems({u"G0 X1"});
  EXPECT_EQ(box.model()->index(0, 0).data().toString(), "G0 X1");
  EXPECT_FALSE(box.model()->index(0, 0).data(Qt::DecorationRole).isValid());
}

TEST_F(ListBoxTest, AnExtendedOneTakesSeveralAndTellsThemInOrder) {
  box.SetExtended(true);
  box.SetItems({u"a", u"b", u"c", u"d"});
  EXPECT_TRUE(box.Selected().empty());
  EXPECT_EQ(box.Current(), -1);
  auto* selection = box.selectionModel();
  for (const int row : {3, 0, 1}) selection->select(box.model()->index(row, 0), QItemSelectionModel::Select);
  EXPECT_EQ(box.Selected(), (std::vector<int>{0, 1, 3}));
  EXPECT_EQ(box.Selection(), 0);
}

TEST_F(ListBoxTest, DeletingFromAnExtendedOneSelectsNoNeighbour) {
  box.SetExtended(true);
  box.SetItems({u"a", u"b", u"c", u"d"});
  auto* selection = box.selectionModel();
  for (const int row : {1, 3}) selection->select(box.model()->index(row, 0), QItemSelectionModel::Select);
  box.Delete(1);
  EXPECT_EQ(box.Selected(), (std::vector<int>{2})) << "the other one stays selected";
  box.Delete(2);
  EXPECT_TRUE(box.Selected().empty());
}

TEST_F(ListBoxTest, ATouchedRowAndTheKeysUpAndDownAreTold) {
  box.SetItems({u"a", u"b"});
  box.show();
  int walked = 0;
  QObject::connect(&box, &ListBox::Walked, &box, [&walked] { ++walked; });
  const QPoint row = box.visualRect(box.model()->index(1, 0)).center();
  PressMouse(box.viewport(), row);
  EXPECT_EQ(walked, 1);
  PressMouse(box.viewport(), row);
  EXPECT_EQ(walked, 2) << "the selection is as before";
  PressMouse(box.viewport(), row, QEvent::MouseButtonPress, Qt::RightButton);
  PressMouse(box.viewport(), QPoint(5, 140));
  PressMouse(box.viewport(), row, QEvent::MouseButtonRelease);
  EXPECT_EQ(walked, 2) << "another button, no row, no press";
  PressKey(&box, Qt::Key_Up);
  PressKey(&box, Qt::Key_Up);
  EXPECT_EQ(walked, 4) << "at the first row too";
  PressKey(&box, Qt::Key_Home);
  EXPECT_EQ(walked, 4);
}

TEST_F(ListBoxTest, TheFirstDownGoesToTheFirstItem) {
  QWidget window;
  auto* inside = new ListBox(1, &window);
  inside->SetItems({u"a", u"b"});
  Activate(window);
  inside->setFocus(Qt::OtherFocusReason);
  EXPECT_EQ(inside->Current(), -1);
  PressKey(inside, Qt::Key_Down);
  EXPECT_EQ(inside->Selection(), 0);
}

}  // namespace
}  // namespace pnl::test
