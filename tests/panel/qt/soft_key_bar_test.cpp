// SPDX-License-Identifier: MIT
// A bar of soft keys made from menu data.
#include "ui/soft_key_bar.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QKeyEvent>
#include <map>
#include <utility>

#include "common/shortcuts.h"
#include "support/text_catcher.h"
#include "ui/panel_key.h"
#include "ui/theme.h"

namespace panel {
namespace {

class SoftKeyBarTest : public ::testing::Test {
 protected:
  SoftKeyBarTest() : bar_(Qt::Horizontal, kMainKeys, &MainKey, nullptr) {
    QObject::connect(&bar_, &SoftKeyBar::Pressed, &bar_,
                     [this](int id, std::uint32_t menu) { presses_.emplace_back(id, menu); });
    bar_.SetMenuSource({[this](std::uint32_t menu) { return menus_.count(menu) != 0; },
                        [this](std::uint32_t menu) { return menus_[menu]; }});
    bar_.resize(800, 56);
    bar_.show();
  }

  static SoftKeyItem Item(int id, const QString& text) {
    SoftKeyItem item;
    item.id = id;
    item.text = text;
    return item;
  }

  static std::vector<SoftKeyItem> Items(int count) {
    std::vector<SoftKeyItem> items;
    for (int i = 0; i < count; ++i) items.push_back(Item(100 + i, QString::number(i)));
    return items;
  }

  std::map<std::uint32_t, std::vector<SoftKeyItem>> menus_;
  SoftKeyBar bar_;
  std::vector<std::pair<int, std::uint32_t>> presses_;
};

TEST_F(SoftKeyBarTest, APressTellsItemAndMenu) {
  menus_[7] = {Item(32771, "Delete"), Item(32772, "Change")};
  bar_.ShowMenu(7);
  EXPECT_EQ(bar_.Key(0)->text(), "Delete");
  EXPECT_EQ(bar_.Key(1)->KeyName(), "F2");
  bar_.Key(1)->click();
  ASSERT_EQ(presses_.size(), 1u);
  EXPECT_EQ(presses_[0], std::make_pair(32772, 7u));
}

TEST_F(SoftKeyBarTest, ThePanelsKeysComeAfterThoseOfTheToolAndAreTheirOwn) {
  menus_[7] = {Item(1, "A"), Item(2, "More")};
  menus_[7][1].subMenu = 8;
  menus_[8] = {Item(3, "B")};
  bar_.ShowMenu(7, {Item(1, "OK")});
  EXPECT_EQ(bar_.Key(2)->text(), "OK");
  bar_.Press(2);
  bar_.Press(0);
  EXPECT_EQ(presses_, (std::vector<std::pair<int, std::uint32_t>>{{1, 0u}, {1, 7u}}));
  bar_.Press(1);
  EXPECT_EQ(bar_.Items().size(), 1u) << "not in a sub-menu";
  bar_.Back();
  EXPECT_EQ(bar_.Key(2)->text(), "OK");
  bar_.ShowMenu(7);
  EXPECT_EQ(bar_.Items().size(), 2u);
}

TEST_F(SoftKeyBarTest, ADisabledOrEmptyKeyDoesNothing) {
  menus_[7] = {Item(1, "A")};
  menus_[7][0].enabled = false;
  bar_.ShowMenu(7);
  EXPECT_FALSE(bar_.Key(0)->isEnabled());
  EXPECT_FALSE(bar_.Key(3)->isEnabled());
  for (const int slot : {0, 3, -1, 99}) bar_.Press(slot);
  EXPECT_TRUE(presses_.empty());
}

TEST_F(SoftKeyBarTest, AChangedItemShowsWhenTheMenuIsShownAgain) {
  menus_[7] = {Item(1, "A"), Item(2, "B")};
  bar_.ShowMenu(7);
  EXPECT_FALSE(bar_.Key(0)->isChecked());
  menus_[7][0].checked = true;
  menus_[7][1].enabled = false;
  menus_[7][1].text = "C";
  bar_.ShowMenu(7);
  EXPECT_TRUE(bar_.Key(0)->isChecked());
  EXPECT_FALSE(bar_.Key(1)->isEnabled());
  EXPECT_EQ(bar_.Key(1)->text(), "C");
}

TEST_F(SoftKeyBarTest, ASubMenuOpensOnPressAndBackLeavesIt) {
  menus_[7] = {Item(1, "A"), Item(0, "More of B")};
  menus_[7][1].subMenu = 8;
  menus_[8] = {Item(21, "B1")};
  bar_.ShowMenu(7);
  bar_.Key(1)->click();
  EXPECT_TRUE(presses_.empty());
  EXPECT_TRUE(bar_.InSubMenu());
  EXPECT_EQ(bar_.Key(0)->text(), "B1");
  EXPECT_FALSE(bar_.Key(1)->isEnabled());
  bar_.Press(0);
  ASSERT_EQ(presses_.size(), 1u);
  EXPECT_EQ(presses_[0], std::make_pair(21, 7u)) << "the command goes to the owner of the whole menu";
  bar_.BackKey()->click();
  EXPECT_FALSE(bar_.InSubMenu());
  EXPECT_EQ(bar_.Key(0)->text(), "A");
}

TEST_F(SoftKeyBarTest, AnUpdateKeepsTheOpenSubMenuAndADeadOneCloses) {
  menus_[7] = {Item(0, "Sub")};
  menus_[7][0].subMenu = 8;
  menus_[8] = {Item(21, "B1")};
  bar_.ShowMenu(7);
  bar_.Press(0);
  bar_.ShowMenu(7);
  EXPECT_TRUE(bar_.InSubMenu());
  menus_.erase(8);
  bar_.ShowMenu(7);
  EXPECT_FALSE(bar_.InSubMenu());
  EXPECT_EQ(bar_.Key(0)->text(), "Sub");
}

TEST_F(SoftKeyBarTest, ASubMenuOfTheSameItemsHasItsKeyBackToo) {
  menus_[7] = Items(8);
  menus_[7][7].subMenu = 8;
  menus_[8] = menus_[7];
  bar_.ShowMenu(7);
  bar_.NextPage();
  bar_.Press(0);
  ASSERT_TRUE(bar_.InSubMenu());
  EXPECT_EQ(bar_.Key(0)->text(), "0") << "it begins at its first page";
  EXPECT_TRUE(bar_.BackKey()->isEnabled());
}

TEST_F(SoftKeyBarTest, MoreItemsThanKeysArePaged) {
  menus_[7] = Items(8);
  bar_.ShowMenu(7);
  EXPECT_EQ(bar_.PageCount(), 2);
  EXPECT_TRUE(bar_.MoreKey()->isEnabled());
  bar_.MoreKey()->click();
  EXPECT_EQ(bar_.Key(0)->text(), "7");
  EXPECT_FALSE(bar_.Key(1)->isEnabled());
  bar_.Press(0);
  EXPECT_EQ(presses_.at(0).first, 107);
  bar_.MoreKey()->click();
  EXPECT_EQ(bar_.Key(0)->text(), "0");
}

TEST_F(SoftKeyBarTest, BackLeadsFromALaterPageToTheFirstAndNoFurther) {
  menus_[7] = Items(8);
  bar_.ShowMenu(7);
  bar_.NextPage();
  EXPECT_TRUE(bar_.BackKey()->isEnabled());
  bar_.BackKey()->click();
  EXPECT_EQ(bar_.Page(), 0);
  EXPECT_EQ(bar_.Key(0)->text(), "0");
  EXPECT_FALSE(bar_.BackKey()->isEnabled());
  bar_.Back();
  EXPECT_EQ(bar_.Key(0)->text(), "0") << "the menu stays";
}

TEST_F(SoftKeyBarTest, APageThatVanishesGivesWayToTheLastOne) {
  menus_[7] = Items(15);
  bar_.ShowMenu(7);
  bar_.NextPage();
  bar_.NextPage();
  EXPECT_EQ(bar_.Page(), 2);
  menus_[7] = Items(9);
  bar_.ShowMenu(7);
  EXPECT_EQ(bar_.Page(), 1);
  menus_[7] = {};
  bar_.ShowMenu(7);
  EXPECT_EQ(bar_.PageCount(), 1);
  EXPECT_FALSE(bar_.MoreKey()->isEnabled());
}

TEST_F(SoftKeyBarTest, AnotherMenuStartsAtItsFirstPage) {
  menus_[7] = Items(8);
  menus_[9] = Items(8);
  bar_.ShowMenu(7);
  bar_.NextPage();
  bar_.ShowMenu(9);
  EXPECT_EQ(bar_.Page(), 0);
  bar_.NextPage();
  bar_.ShowItems(Items(9));
  EXPECT_EQ(bar_.Page(), 0);
  bar_.Press(0);
  EXPECT_EQ(presses_.back().second, 0u) << "the panel's own keys have no menu";
}

TEST_F(SoftKeyBarTest, KeysAreBigEnoughForAFingerAtEverySize) {
  const int touch = theme::TouchPixels(bar_);
  menus_[7] = Items(8);
  bar_.ShowMenu(7);
  for (const int width : {632, 792, 1016, 1912}) {
    bar_.resize(width, 56);
    for (int slot = 0; slot < kMainKeys; ++slot) EXPECT_GE(bar_.Key(slot)->width(), touch) << width;
    EXPECT_GE(bar_.MoreKey()->width(), touch);
    EXPECT_GE(bar_.BackKey()->width(), touch);
    EXPECT_EQ(bar_.BackKey()->width(), std::max(touch, std::min(width / 12, 72))) << width;
    EXPECT_EQ(bar_.MoreKey()->width(), bar_.BackKey()->width());
    EXPECT_GT(bar_.Key(0)->width(), bar_.BackKey()->width());
  }
}

TEST_F(SoftKeyBarTest, AllItsKeysHaveTheLettersAndTheSizeOfTheScreen) {
  menus_[7] = Items(8);
  bar_.ShowMenu(7);
  bar_.SetFontPixels(13);
  for (PanelKey* key : {bar_.Key(0), bar_.MoreKey()}) {
    EXPECT_THAT(pnl::test::StrokesOf(*key), ::testing::Contains(::testing::HasSubstr(" 13 px"))) << key->width();
  }
  bar_.BackKey()->setText("1/2");
  EXPECT_THAT(pnl::test::StrokesOf(*bar_.BackKey()), ::testing::Contains(::testing::HasSubstr(" 13 px")));
  // Somebody says that the screen is narrower than it was thought to be.
  theme::SetScreenWidth(100);
  const int touch = theme::TouchPixels(bar_);
  ASSERT_GT(touch, bar_.MoreKey()->width());
  bar_.SetFontPixels(13);
  EXPECT_EQ(bar_.MoreKey()->width(), touch);
  theme::SetScreenWidth(0);
}

TEST(SideBarTest, PagingKeysShowOnlyWhenTheyAreNeeded) {
  SoftKeyBar bar(Qt::Vertical, kSideKeys, &SideKey, nullptr);
  bar.resize(100, 420);
  bar.show();
  SoftKeyItem item;
  item.text = "A";
  bar.ShowItems(std::vector<SoftKeyItem>(6, item));
  EXPECT_FALSE(bar.MoreKey()->isVisible());
  bar.ShowItems(std::vector<SoftKeyItem>(7, item));
  EXPECT_TRUE(bar.MoreKey()->isVisible());
  EXPECT_GE(bar.MoreKey()->width(), theme::TouchPixels(bar));
  for (int slot = 0; slot < kSideKeys; ++slot) EXPECT_GE(bar.Key(slot)->height(), theme::TouchPixels(bar));
}

TEST(MenuTest, AMenuThatIsNotThereHasNoItems) {
  EXPECT_FALSE(MenuExists(0));
  EXPECT_FALSE(MenuExists(0xFFFFFFFF));
  EXPECT_TRUE(ReadMenu(0xFFFFFFFF).empty());
}

TEST(PanelKeyTest, ADamagedPictureDrawsNothing) {
  PanelKey key(nullptr);
  key.SetPicture("<svg");
  EXPECT_FALSE(key.HasPicture());
  key.SetPicture("<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 8 8'><rect width='8' height='8'/></svg>");
  EXPECT_TRUE(key.HasPicture());
  key.resize(100, 60);
  EXPECT_FALSE(key.grab().isNull());
}

TEST(PanelKeyTest, EnterPressesAKeyAsTheSpaceBarDoes) {
  PanelKey key(nullptr);
  int presses = 0;
  QObject::connect(&key, &PanelKey::clicked, &key, [&presses] { ++presses; });
  for (const int code : {Qt::Key_Return, Qt::Key_Enter}) {
    QKeyEvent event(QEvent::KeyPress, code, Qt::NoModifier);
    QCoreApplication::sendEvent(&key, &event);
  }
  EXPECT_EQ(presses, 2);
  key.setEnabled(false);
  key.click();
  EXPECT_EQ(presses, 2);
}

}  // namespace
}  // namespace panel
