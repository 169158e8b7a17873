// SPDX-License-Identifier: MIT
#include "host/language.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <set>

#include "host/language_pack.h"
#include "host/shared_texts.h"
#include "support/fake_utilities.h"
#include "support/fake_window_system.h"
#include "support/temp_folder.h"

namespace pnl {
namespace {

using ::testing::ElementsAre;

/// Utilities that note which paths they are asked for.
class PathsOnly final : public test::FakeUtilities {
 public:
  Text Get7340Path(int id) override {
    asked.push_back(id);
    return path;
  }
  Text path = u"C:\\P15";
  std::vector<int> asked;
};

LanguagePack PackOf(const PackContents& contents) {
  LanguagePack pack;
  pack.Parse(BuildPack(contents));
  return pack;
}

class LanguageTest : public ::testing::Test {
 protected:
  LanguageTest() {
    drives_.Set('C', folder_.Path().string());
    static_cast<void>(folder_.Folder("P15"));
  }
  void PutLibrary(const std::string& bytes) const { folder_.Write("P15/LPNLTOOLS.DLL", bytes); }

  test::TempFolder folder_;
  DriveMap drives_;
  DiscFiles files_{drives_};
  MenuTable menus_;
  PathsOnly utilities_;
  test::FakeWindowSystem windows_;
  Language language_{menus_, utilities_, files_, windows_};
};

TEST_F(LanguageTest, WithoutAPackTextsAreEmptyAndMenusZero) {
  EXPECT_EQ(language_.LoadToolText(7), u"");
  EXPECT_EQ(language_.LoadToolMenu(u"IDR_MDAMENU"), 0u);
  EXPECT_EQ(language_.Dialog(3004), nullptr);
  EXPECT_EQ(language_.Bitmap(3017), nullptr);
  EXPECT_TRUE(windows_.boxes.empty());
}

TEST_F(LanguageTest, ATextComesByItsNumberFromThePackInUse) {
  language_.Use(PackOf({{{7, u"End edit"}}, {}, {}, {}}));
  EXPECT_EQ(language_.LoadToolText(7), u"End edit");
  EXPECT_EQ(language_.LoadToolText(6), u"");
  language_.Use(PackOf({{{7, u"Fin edición"}}, {}, {}, {}}));
  EXPECT_EQ(language_.LoadToolText(7), u"Fin edición");
}

TEST_F(LanguageTest, AnotherWordingGoesBeforeThePackAndBeforeNumbers) {
  language_.SetText(7, u"Done");
  language_.Use(PackOf({{{7, u"End edit"}}, {}, {}, {}}));
  EXPECT_EQ(language_.LoadToolText(7), u"Done");
  language_.UseNumbersForTexts(true);
  EXPECT_EQ(language_.LoadToolText(7), u"Done");
  EXPECT_EQ(language_.LoadToolText(38), u"T38");
}

TEST_F(LanguageTest, NumbersForTextsLeaveMenusAsTheyAre) {
  PackContents contents;
  LanguagePack::MenuNode node;
  node.item.id = 40000;
  node.item.text = u"Cancel block";
  contents.menus[u"3015"] = {node};
  language_.Use(PackOf(contents));
  language_.UseNumbersForTexts(true);
  const MenuHandle menu = language_.LoadToolMenu(u"3015");
  EXPECT_EQ(menus_.FindItem(menu, 40000)->text, u"Cancel block");
  language_.UseNumbersForTexts(false);
  EXPECT_EQ(language_.LoadToolText(38), u"");
}

TEST_F(LanguageTest, EachLoadMakesANewMenuWithItsSubMenus) {
  PackContents contents;
  LanguagePack::MenuNode inner;
  inner.item.id = 2;
  LanguagePack::MenuNode outer;
  outer.item.id = 1;
  outer.children = {inner};
  contents.menus[u"IDR_CALCMENU"] = {outer};
  language_.Use(PackOf(contents));
  const MenuHandle first = language_.LoadToolMenu(u"IDR_CALCMENU");
  const MenuHandle second = language_.LoadToolMenu(u"IDR_CALCMENU");
  EXPECT_NE(first, second);
  EXPECT_EQ(menus_.Count(), 4u) << "an item without items below it has no sub-menu";
  EXPECT_EQ(menus_.FindItem(first, 2)->subMenu, 0u);
  menus_.FindItem(first, 2)->checked = true;
  EXPECT_FALSE(menus_.FindItem(second, 2)->checked);
  menus_.Destroy(first);
  menus_.Destroy(second);
  EXPECT_EQ(menus_.Count(), 0u);
}

TEST_F(LanguageTest, TheLanguageLibraryIsTheFileInTheFolderOfPathFifteen) {
  PutLibrary(BuildPack({{{1, u"x"}}, {}, {}, {}}));
  const ModuleHandle module = language_.LoadLanguageLibrary();
  EXPECT_NE(module, 0u);
  EXPECT_THAT(utilities_.asked, ElementsAre(15));
  EXPECT_EQ(language_.CountModules(), 1u);
  language_.FreeLanguageLibrary(module);
  language_.FreeLanguageLibrary(module);
  EXPECT_EQ(language_.CountModules(), 0u);
  EXPECT_NE(language_.LoadLanguageLibrary(), module) << "a module's number is never used twice";
}

TEST_F(LanguageTest, ALibraryThatIsntThereOrIsNoneIsZero) {
  EXPECT_EQ(language_.LoadLanguageLibrary(), 0u);
  PutLibrary("MZ, something else");
  EXPECT_EQ(language_.LoadLanguageLibrary(), 0u);
  utilities_.path = u"";
  EXPECT_EQ(language_.LoadLanguageLibrary(), 0u);
  EXPECT_TRUE(windows_.boxes.empty());
}

TEST(SharedTexts, AreSeventyTextsInSeventyOneLoads) {
  EXPECT_EQ(kSharedTextOrder.size(), 71u);
  EXPECT_EQ(std::set<int>(kSharedTextOrder.begin(), kSharedTextOrder.end()).size(), 70u);
}

struct OrderRun {
  std::size_t place;  // of the first id
  std::vector<int> ids;
};

TEST(SharedTexts, AreLoadedInTheirOrder) {
  const OrderRun runs[] = {
      {0, {1, 2, 3, 4, 5, 6}},
      {6, {100, 101, 102}},
      {9, {203, 205, 251, 254, 206, 207, 203, 209, 237}},
      {18, {210, 211, 212, 213, 214, 215, 216, 217, 218, 219, 220, 221, 222, 223, 224, 225, 226, 227, 228, 229}},
      {38, {57345, 230, 231, 232, 233, 245, 234, 235, 246, 238, 247, 241, 252, 242, 243, 244}},
      {54, {236, 239, 240, 248, 249, 253}},
      {60, {57346, 57347, 57348, 57349, 57352, 57353, 263, 57355, 264, 57356, 265}},
  };
  for (const OrderRun& run : runs) {
    for (std::size_t i = 0; i < run.ids.size(); ++i) EXPECT_EQ(kSharedTextOrder[run.place + i], run.ids[i]);
  }
}

TEST_F(LanguageTest, SharedTextsComeFromTheModuleOnceAndForAll) {
  PackContents module;
  PackContents pack;
  for (const int id : kSharedTextOrder) {
    module.texts[id] = u"module";
    pack.texts[id] = u"pack";
  }
  PutLibrary(BuildPack(module));
  language_.Use(PackOf(pack));
  const auto& texts = language_.SharedToolTexts();
  EXPECT_EQ(texts.size(), 70u);
  for (const auto& [id, text] : texts) EXPECT_EQ(text, u"module") << id;
  PutLibrary("gone");
  EXPECT_EQ(&language_.SharedToolTexts(), &texts);
  EXPECT_EQ(texts.at(203), u"module");
  EXPECT_THAT(utilities_.asked, ElementsAre(15)) << "a second call returns at once";
  EXPECT_EQ(language_.CountModules(), 0u) << "the module is given back once it was read";
  EXPECT_TRUE(windows_.boxes.empty());
}

TEST_F(LanguageTest, AnotherLanguageReadsTheSharedTextsAnew) {
  language_.Use(PackOf({{{203, u"Error"}}, {}, {}, {}}));
  const auto& texts = language_.SharedToolTexts();
  EXPECT_EQ(texts.at(203), u"Error");
  language_.Use(PackOf({{{203, u"Fallo"}}, {}, {}, {}}));
  EXPECT_EQ(language_.SharedToolTexts().at(203), u"Fallo");
}

TEST_F(LanguageTest, WithoutTheModuleTheBoxShowsAndTheTextsAreThoseOfThePackInUse) {
  language_.Use(PackOf({{{203, u"Error"}}, {}, {}, {}}));
  const auto& texts = language_.SharedToolTexts();
  ASSERT_EQ(windows_.boxes.size(), 1u);
  EXPECT_EQ(windows_.boxes[0].text, u"ERROR AL CARGAR DLL DE IDIOMAS");
  EXPECT_EQ(windows_.boxes[0].style, BoxStyle::kError);
  EXPECT_EQ(windows_.boxes[0].title, u"");
  EXPECT_EQ(texts.size(), 70u);
  EXPECT_EQ(texts.at(203), u"Error");
  EXPECT_EQ(texts.at(1), u"");
  static_cast<void>(language_.SharedToolTexts());
  EXPECT_EQ(windows_.boxes.size(), 1u) << "the flag is set all the same";
}

TEST_F(LanguageTest, AskedAgainWhileTheBoxIsOpenTheSharedTextsDontAskASecondTime) {
  windows_.onBox = [this] { static_cast<void>(language_.SharedToolTexts()); };
  static_cast<void>(language_.SharedToolTexts());
  EXPECT_EQ(windows_.boxes.size(), 1u);
  EXPECT_EQ(language_.SharedToolTexts().size(), 70u);
}

TEST_F(LanguageTest, SharedTextsFollowTheSameRulesAsOthers) {
  PackContents module;
  module.texts[203] = u"module";
  module.texts[1] = u"one";
  PutLibrary(BuildPack(module));
  language_.SetText(203, u"Done");
  EXPECT_EQ(language_.SharedToolTexts().at(203), u"Done");
  EXPECT_EQ(language_.SharedToolTexts().at(1), u"one");
  language_.UseNumbersForTexts(true);
  language_.Use({});
  EXPECT_EQ(language_.SharedToolTexts().at(203), u"Done");
  EXPECT_EQ(language_.SharedToolTexts().at(1), u"T1");
}

TEST_F(LanguageTest, ALibraryOfMoreThan64MegabytesIsNotRead) {
  PutLibrary(BuildPack({{{1, u"x"}}, {}, {}, {}}));
  std::filesystem::resize_file(folder_.Path() / "P15/LPNLTOOLS.DLL", (std::uint64_t{64} << 20) + 1);
  EXPECT_EQ(language_.LoadLanguageLibrary(), 0u);
}

TEST_F(LanguageTest, ModulesAreLoadedApart) {
  PutLibrary(BuildPack({{{1, u"x"}}, {}, {}, {}}));
  const ModuleHandle first = language_.LoadLanguageLibrary();
  const ModuleHandle second = language_.LoadLanguageLibrary();
  EXPECT_NE(first, second);
  EXPECT_EQ(language_.CountModules(), 2u);
  language_.FreeLanguageLibrary(first);
  EXPECT_EQ(language_.CountModules(), 1u);
  language_.FreeLanguageLibrary(second);
  language_.FreeLanguageLibrary(0);
  EXPECT_EQ(language_.CountModules(), 0u);
}

}  // namespace
}  // namespace pnl
