// SPDX-License-Identifier: MIT
// The help viewer's menu: its nine items, and what is left of it.
#include "help/help_menus.h"

#include "help/help_rig.h"

namespace pnl::test {
namespace {

struct ItemRow {
  const char* helper;
  std::uint32_t id;
  std::uint32_t flags;
  int bitmap;
  int command;
};

constexpr ItemRow kItems[] = {
    {"HELP1", 2004, 0, 3007, 0},      {"HELP2", 2001, 0, 3009, 65740},  {"HELP3", 2003, 0, 3010, 102400},
    {"HELP4", 2006, 0, 3011, 102403}, {"HELP5", 4, 1024, 3012, 0},      {"HELP6", 2000, 0, 3013, 205},
    {"HELP7", 2002, 0, 3014, 65745},  {"HELP8", 2005, 0, 3015, 102402}, {"HELP9", 40002, 0, 3016, 0},
};

class HelpMenuTest : public HelpToolTest {
 protected:
  const MenuItem* Item(MenuHandle menu, const ItemRow& row) {
    return menus.FindItem(menu, static_cast<int>(row.id), row.flags == 1024);
  }
};

TEST_F(HelpMenuTest, EachOfTheNineItemsHasItsBitmapItsHelperAndItsCommand) {
  HelpMenus help(language);
  help.Load();
  ASSERT_EQ(HelpMenus::m_Entries.size(), std::size(kItems));
  for (std::size_t i = 0; i < std::size(kItems); ++i) {
    const ItemRow& row = kItems[i];
    const ManualEntry& entry = HelpMenus::m_Entries[i];
    EXPECT_EQ(entry.Id, row.id);
    EXPECT_EQ(entry.Flags, row.flags);
    EXPECT_EQ(entry.Command, row.command);
    const MenuItem* item = Item(help.Main(), row);
    ASSERT_NE(item, nullptr) << row.helper;
    EXPECT_EQ(item->bitmap, row.bitmap);
    EXPECT_EQ(ToUtf8(item->helper), row.helper);
    if (row.flags == 0) {
      EXPECT_EQ(HelpMenus::CommandOf(static_cast<int>(row.id)), row.command);
    }
  }
}

TEST_F(HelpMenuTest, APositionIsNoCommand) {
  EXPECT_EQ(HelpMenus::CommandOf(4), 0);
  EXPECT_EQ(HelpMenus::CommandOf(0), 0);
  EXPECT_EQ(HelpMenus::CommandOf(-1), 0);
  EXPECT_EQ(HelpMenus::CommandOf(65740), 0);
}

TEST_F(HelpMenuTest, ThePartForTheBarIsTheFirstSubMenu) {
  HelpMenus help(language);
  help.Load();
  ASSERT_NE(help.Main(), 0u);
  EXPECT_EQ(menus.Find(help.Main())->items.size(), 5u);
  EXPECT_EQ(menus.Find(help.Main())->items.front().id, 2004);
}

TEST_F(HelpMenuTest, LoadingAgainDestroysTheOlderMenu) {
  HelpMenus help(language);
  help.Load();
  const MenuHandle first = help.Main();
  const std::size_t count = menus.Count();
  help.Load();
  EXPECT_EQ(menus.Count(), count);
  EXPECT_EQ(menus.Find(first), nullptr);
  EXPECT_NE(help.Main(), first);
}

TEST_F(HelpMenuTest, ALanguageWithoutTheMenuHasNone) {
  language.Use(LanguagePack());
  HelpMenus help(language);
  help.Load();
  EXPECT_EQ(help.Main(), 0u);
  EXPECT_EQ(menus.Count(), 0u);
}

TEST_F(HelpMenuTest, AMenuWithoutASubMenuHasNoPartForTheBar) {
  PackContents contents;
  contents.menus[u"IDR_HELPMENU"] = {PackItem(2004, u"Manuals")};
  LanguagePack pack;
  ASSERT_TRUE(pack.Parse(BuildPack(contents)));
  language.Use(std::move(pack));
  {
    HelpMenus help(language);
    help.Load();
    EXPECT_EQ(help.Main(), 0u);
  }
  EXPECT_EQ(menus.Count(), 0u);
}

TEST_F(HelpMenuTest, TheMenuIsPublishedOnceWhenTheToolStarts) {
  std::uint32_t published = 0;
  noting.onMainMenu = [&](std::uint32_t menu) { published = menu; };
  MakeTool();
  ASSERT_NE(published, 0u);
  for (const ItemRow& row : kItems) EXPECT_NE(Item(published, row), nullptr) << row.helper;
  Forget();
  OpenAt();
  EXPECT_THAT(Asked(), testing::Not(testing::Contains("main menu")));
  DestroyTool();
  EXPECT_EQ(menus.Find(published), nullptr);
  EXPECT_EQ(menus.Count(), 0u);
}

}  // namespace
}  // namespace pnl::test
