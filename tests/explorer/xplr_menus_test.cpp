// SPDX-License-Identifier: MIT
// The explorer's two menus, as the host shows them: pictures, helpers, marks, and what is hidden or can't be pressed.
#include <gmock/gmock.h>

#include "explorer/xplr_stage.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;

class XplrMenuTest : public XplrSessionTest {
 protected:
  void AllowFolderSearch() {
    ForgetQualityTest();
    files.disc["C:\\P108\\HMI_Settings.ini"] = "[CALIDAD]\r\nTest=SI\r\n";
  }
  void CloseFind() {
    Call(&XplrSession::OnFindClosed);
    Drain();
  }
  void CloseFolderSearch() {
    Call(&XplrSession::OnFolderClosed);
    Drain();
  }
  /// The orders that are marked.
  [[nodiscard]] std::vector<int> Marked() {
    std::vector<int> marked;
    for (int id = 32770; id <= 32773; ++id) {
      if (Item(mainMenu, id)->checked) marked.push_back(id);
    }
    return marked;
  }
};

struct FrameRow {
  int id;
  int bitmap;
  TextView helper;
};

TEST_F(XplrMenuTest, EverySideKeyHasItsPictureAndItsHelper) {
  Open();
  for (const FrameRow& row : {FrameRow{32790, 372, u"XPLR1"},
                              {32791, 373, u"XPLR3"},
                              {32777, 374, u"XPLR_MOVETO_TREE"},
                              {32778, 375, u"XPLR_MOVETO_LIST"},
                              {32779, 376, u"XPLR_MOVETO_FIELD"}}) {
    const MenuItem* item = Item(sideMenu, row.id);
    ASSERT_NE(item, nullptr) << row.id;
    EXPECT_EQ(item->bitmap, row.bitmap) << row.id;
    EXPECT_EQ(ToUtf8(item->helper), ToUtf8(row.helper)) << row.id;
    EXPECT_FALSE(item->hidden) << row.id;
    EXPECT_FALSE(item->checked) << row.id;
  }
}

TEST_F(XplrMenuTest, TheKeyToTheTreeComesBackWithTheTree) {
  Open();
  Menu(32791);
  EXPECT_TRUE(Item(sideMenu, 32777)->hidden);
  EXPECT_FALSE(Item(sideMenu, 32778)->hidden);
  EXPECT_EQ(ToUtf8(Item(sideMenu, 32791)->helper), "XPLR2");
  Menu(32791);
  EXPECT_FALSE(Item(sideMenu, 32777)->hidden);
  EXPECT_FALSE(Item(sideMenu, 32791)->checked);
  EXPECT_EQ(ToUtf8(Item(sideMenu, 32791)->helper), "XPLR3");
}

TEST_F(XplrMenuTest, OneOrderIsMarked) {
  Open();
  EXPECT_THAT(Marked(), ElementsAre(32770));
  for (const int id : {32771, 32772, 32773, 32770}) {
    Menu(id);
    EXPECT_THAT(Marked(), ElementsAre(id));
  }
}

TEST_F(XplrMenuTest, ASearchHasTheKeysOfBothSearchesAndGivesThemBack) {
  AllowFolderSearch();
  Open();
  ASSERT_NE(Item(mainMenu, 32775), nullptr);
  for (int turn = 0; turn < 2; ++turn) {
    Menu(32774);
    EXPECT_EQ(Item(mainMenu, 32774), nullptr);
    EXPECT_EQ(Item(mainMenu, 32775), nullptr);
    ASSERT_NE(Item(mainMenu, 32900), nullptr);
    EXPECT_EQ(ToUtf8(Item(mainMenu, 32900)->text), "Next");
    EXPECT_EQ(ToUtf8(Item(mainMenu, 32901)->text), "Previous");
    for (const int id : {32900, 32901}) {
      EXPECT_FALSE(Item(mainMenu, id)->enabled) << "there is nothing to search for";
      EXPECT_FALSE(Item(mainMenu, id)->checked);
      EXPECT_FALSE(Item(mainMenu, id)->hidden);
    }
    CloseFind();
    EXPECT_EQ(Item(mainMenu, 32900), nullptr);
    EXPECT_EQ(Item(mainMenu, 32901), nullptr);
    EXPECT_EQ(ToUtf8(Item(mainMenu, 32774)->text), "Find");
    EXPECT_EQ(ToUtf8(Item(mainMenu, 32775)->text), "Find folder");
    EXPECT_TRUE(Item(mainMenu, 32774)->enabled);
    EXPECT_TRUE(Item(mainMenu, 32775)->enabled);
  }
}

TEST_F(XplrMenuTest, TheStepsOfASearchAreThereAtOnceWhenItsTextIs) {
  AllowFolderSearch();
  Open();
  Menu(32774);
  view->find = u"nc";
  Call(&XplrSession::OnFindTyped, TextView(u"nc"));
  Drain();
  EXPECT_TRUE(Item(mainMenu, 32900)->enabled);
  Menu(32900);
  EXPECT_EQ(view->labels[xplr_control::kCaption], u" Pick = A.NC");
  CloseFind();
  Menu(32774);
  EXPECT_TRUE(Item(mainMenu, 32900)->enabled) << "the last text is sought again";
  EXPECT_TRUE(Item(mainMenu, 32901)->enabled);
}

TEST_F(XplrMenuTest, TheStepsGoForwardAndBack) {
  for (const char16_t* name : {u"C:\\CNC\\D.NC", u"C:\\CNC\\E.NC"}) places.disc->AddFile(name);
  AllowFolderSearch();
  Open();
  ASSERT_THAT(RowNames(), ElementsAre("SUB", "E.NC", "D.NC", "B.TXT", "A.NC"));
  Menu(32900);
  Menu(32901);
  EXPECT_EQ(view->labels[xplr_control::kCaption], u" Pick = ") << "without a search they do nothing";
  Menu(32774);
  view->find = u"nc";
  for (const auto& [id, name] : {std::pair(32900, u"E.NC"), {32900, u"D.NC"}, {32901, u"E.NC"}, {32901, u"A.NC"}}) {
    Menu(id);
    EXPECT_EQ(ToUtf8(view->labels[xplr_control::kCaption]), " Pick = " + ToUtf8(name));
  }
}

TEST_F(XplrMenuTest, WhileAFolderIsSoughtNeitherSearchCanBegin) {
  AllowFolderSearch();
  Open();
  Menu(32775);
  EXPECT_FALSE(Item(mainMenu, 32774)->enabled);
  EXPECT_FALSE(Item(mainMenu, 32775)->enabled);
  CloseFolderSearch();
  EXPECT_TRUE(Item(mainMenu, 32774)->enabled);
  EXPECT_TRUE(Item(mainMenu, 32775)->enabled);
}

TEST_F(XplrMenuTest, APinnedListHasNoFolderSearch) {
  AllowFolderSearch();
  Open();
  EXPECT_FALSE(Item(mainMenu, 32775)->hidden);
  Menu(32791);
  EXPECT_TRUE(Item(mainMenu, 32775)->hidden);
  Forget();
  Menu(32775);
  EXPECT_THAT(All(), testing::Not(testing::Contains("view folder search")));
  Menu(32774);
  EXPECT_FALSE(Item(mainMenu, 32900)->hidden) << "its place is needed for the search";
  CloseFind();
  EXPECT_TRUE(Item(mainMenu, 32775)->hidden);
  Menu(32791);
  EXPECT_FALSE(Item(mainMenu, 32775)->hidden);
}

TEST_F(XplrMenuTest, BothMenusAreGivenBackAtTheEnd) {
  Open();
  ASSERT_NE(menus.Find(mainMenu), nullptr);
  ASSERT_NE(menus.Find(sideMenu), nullptr);
  DestroyTool();
  EXPECT_EQ(menus.Find(mainMenu), nullptr);
  EXPECT_EQ(menus.Find(sideMenu), nullptr);
}

}  // namespace
}  // namespace pnl::test
