// SPDX-License-Identifier: MIT
// What the help viewer needs of the packs that the build made: its menu with pictures, its texts and its dialogs.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "help/help_ids.h"
#include "help/help_menus.h"
#include "library/qt/built_packs.h"

namespace pnl {
namespace {

using MenuNode = LanguagePack::MenuNode;

class HelpPack : public ::testing::TestWithParam<const char*> {
 protected:
  LanguagePack pack_ = test::LoadPack(GetParam());
};

INSTANTIATE_TEST_SUITE_P(Languages, HelpPack, ::testing::Values("en", "es"),
                         [](const auto& row) { return std::string(row.param); });

/// The item with that command, in the menu or in one of its sub-menus; null when there is none.
const MenuNode* FindItem(const std::vector<MenuNode>& nodes, int id) {
  for (const MenuNode& node : nodes) {
    if (node.item.id == id) return &node;
    if (const MenuNode* inside = FindItem(node.children, id)) return inside;
  }
  return nullptr;
}

TEST_P(HelpPack, HasTheNineItemsOfTheMenuWithTheirPictures) {
  const auto* menu = pack_.FindMenuNodes(u"IDR_HELPMENU");
  ASSERT_NE(menu, nullptr);
  ASSERT_EQ(menu->size(), 1u);
  const std::vector<MenuNode>& bar = menu->front().children;
  EXPECT_LE(bar.size(), 7u) << "as many as the bar has keys";
  for (const ManualEntry& entry : HelpMenus::m_Entries) {
    const bool byPosition = entry.Flags == ManualEntry::kByPosition;
    ASSERT_TRUE(!byPosition || entry.Id < bar.size());
    const MenuNode* node = byPosition ? &bar[entry.Id] : FindItem(bar, static_cast<int>(entry.Id));
    ASSERT_NE(node, nullptr) << ToUtf8(entry.Helper);
    EXPECT_FALSE(node->item.text.empty()) << ToUtf8(entry.Helper);
    EXPECT_EQ(node->children.empty(), !byPosition) << ToUtf8(entry.Helper);
    EXPECT_NE(pack_.FindBitmap(entry.Bitmap), nullptr) << entry.Bitmap;
  }
}

TEST_P(HelpPack, HasEveryTextWithThePlacesThatTheViewerFills) {
  using namespace help_text;
  const std::pair<int, const char*> formats[] = {
      {kFound, "%d"},      {kNothingFound, "%s"}, {kLoading, "%s"},   {kDamaged, "%s"},  {kUnusable, "%s"},
      {kFallback, "%s%s"}, {kNoPage, "%s"},       {kNotInPage, "%s"}, {kNoList, "%s%d"}, {kNoAddress, "%s"}};
  for (int id = kTitle; id <= kNoAddress; ++id) {
    ASSERT_NE(pack_.FindText(id), nullptr) << id;
    EXPECT_FALSE(pack_.FindText(id)->empty()) << id;
    const auto* row =
        std::find_if(std::begin(formats), std::end(formats), [id](const auto& r) { return r.first == id; });
    EXPECT_EQ(test::Conversions(*pack_.FindText(id)), row == std::end(formats) ? "" : row->second) << id;
  }
}

TEST_P(HelpPack, HasTheDialogsOfTheViewerAndOfThePicker) {
  const DialogTemplate* viewer = pack_.FindDialog(help_id::kDialog);
  ASSERT_NE(viewer, nullptr);
  ASSERT_NE(viewer->Find(help_id::kMissing), nullptr);
  EXPECT_FALSE(viewer->Find(help_id::kMissing)->text.empty());
  if (std::string(GetParam()) == "en") {
    EXPECT_EQ(viewer->Find(help_id::kMissing)->text, u"File not found.");
  }
  const DialogTemplate* picker = pack_.FindDialog(help_id::kPicker);
  ASSERT_NE(picker, nullptr);
  EXPECT_NE(picker->Find(help_id::kManuals), nullptr);
}

}  // namespace
}  // namespace pnl
