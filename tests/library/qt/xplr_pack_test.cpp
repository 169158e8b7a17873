// SPDX-License-Identifier: MIT
// What the built packs have for the explorer: texts, menus, dialogs. Its icons are in xplr_icons_test.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

#include "explorer/xplr_ids.h"
#include "explorer/xplr_layout.h"
#include "library/qt/built_packs.h"

namespace pnl {
namespace {

using test::Conversions;
using test::LoadPack;
using test::MenuIds;
using ::testing::ElementsAre;

class XplrPack : public ::testing::TestWithParam<const char*> {
 protected:
  [[nodiscard]] Text TextOf(int id) const {
    const Text* text = pack_.FindText(id);
    return text != nullptr ? *text : Text();
  }
  [[nodiscard]] MenuItem ItemOf(TextView menu, int id) const {
    const auto* nodes = pack_.FindMenuNodes(menu);
    if (nodes == nullptr) return {};
    for (const auto& node : *nodes) {
      if (node.item.id == id) return node.item;
    }
    return {};
  }
  LanguagePack pack_ = LoadPack(GetParam());
};

INSTANTIATE_TEST_SUITE_P(Languages, XplrPack, ::testing::Values("en", "es"),
                         [](const auto& row) { return std::string(row.param); });

struct TextCase {
  int id;
  const char* conversions;
};

TEST_P(XplrPack, HasEveryTextWithItsArgumentsAndShortEnoughForTheMessageLine) {
  const TextCase cases[] = {
      {11, ""},   {12, "%s"}, {13, ""}, {14, ""}, {15, ""}, {16, ""}, {17, ""}, {18, ""},
      {19, "%s"}, {20, "%s"}, {23, ""}, {26, ""}, {27, ""}, {28, ""}, {29, ""}, {30, "%s"},
      {31, ""},   {32, ""},   {33, ""}, {34, ""}, {35, ""}, {36, ""}, {37, ""}, {40, ""},
  };
  for (const TextCase& row : cases) {
    EXPECT_FALSE(TextOf(row.id).empty()) << row.id;
    EXPECT_EQ(Conversions(TextOf(row.id)), row.conversions) << row.id;
    EXPECT_LE(TextOf(row.id).size(), 60u) << row.id;
  }
}

TEST_P(XplrPack, HasTheSideMenuWithItsPicturesAndHelpers) {
  EXPECT_THAT(MenuIds(pack_, u"3003"), ElementsAre(32790, 32791, 32777, 32778, 32779));
  const struct {
    int id;
    int bitmap;
    TextView helper;
  } rows[] = {{32790, 372, u"XPLR1"},
              {32791, 373, u"XPLR3"},
              {32777, 374, u"XPLR_MOVETO_TREE"},
              {32778, 375, u"XPLR_MOVETO_LIST"},
              {32779, 376, u"XPLR_MOVETO_FIELD"}};
  for (const auto& row : rows) {
    const MenuItem item = ItemOf(u"3003", row.id);
    EXPECT_EQ(item.bitmap, row.bitmap) << row.id;
    EXPECT_EQ(item.helper, row.helper) << row.id;
    EXPECT_TRUE(item.enabled && !item.checked && !item.hidden) << row.id;
  }
}

TEST(XplrPacks, TheEnglishSideMenuHasTheWordsOfTheResource) {
  const LanguagePack pack = LoadPack("en");
  std::vector<Text> words;
  for (const auto& node : *pack.FindMenuNodes(u"3003")) words.push_back(node.item.text);
  EXPECT_THAT(words, ElementsAre(u"REFRESH", u"TOGGLE PIN", u"MOVE TO TREE", u"MOVE TO LIST", u"MOVE TO FIELD"));
}

TEST_P(XplrPack, HasTheListsMenuWithoutNextAndPrevious) {
  // 32901 and 32900 take the places of 32774 and 32775 while the find dialog is open.
  EXPECT_THAT(MenuIds(pack_, u"IDR_XPLR_MENU"), ElementsAre(32770, 32771, 32772, 32773, 32774, 32775));
}

TEST_P(XplrPack, AnEndedSearchGivesTheMenuTheWordsItHadBefore) {
  EXPECT_EQ(TextOf(xplr_text::kFind), ItemOf(u"IDR_XPLR_MENU", xplr_command::kFind).text);
  EXPECT_EQ(TextOf(xplr_text::kFindFolder), ItemOf(u"IDR_XPLR_MENU", xplr_command::kFindFolder).text);
}

/// How many lines a text needs when no line is longer than width; 99 when a word is.
int LinesOf(TextView text, std::size_t width) {
  int lines = 1;
  std::size_t used = 0;
  while (!text.empty()) {
    const std::size_t word = std::min(text.find(u' '), text.size());
    if (word > width) return 99;
    if (used != 0 && used + 1 + word > width) {
      ++lines;
      used = 0;
    }
    used += word + (used != 0 ? 1 : 0);
    text.remove_prefix(std::min(word + 1, text.size()));
  }
  return lines;
}

TEST_P(XplrPack, EverySoftKeyHasWordsInTwoShortLines) {
  for (const TextView menu : {u"3003", u"IDR_XPLR_MENU"}) {
    for (const auto& node : *pack_.FindMenuNodes(menu)) {
      EXPECT_FALSE(node.item.text.empty()) << node.item.id;
      EXPECT_LE(LinesOf(node.item.text, 11), 2) << ToUtf8(node.item.text);
    }
  }
  for (const int id : {xplr_text::kNext, xplr_text::kPrevious}) EXPECT_LE(LinesOf(TextOf(id), 11), 2) << id;
}

/// A rectangle of a dialog in pixels at scale 1.
Rect Pixels(const Rect& units) {
  const auto x = [](int value) { return value * 6 / 4; };
  const auto y = [](int value) { return value * 13 / 8; };
  return {x(units.left), y(units.top), x(units.right), y(units.bottom)};
}

TEST_P(XplrPack, TheFormHasItsControlsAboutWhereTheyAreLaidOut) {
  const DialogTemplate* form = pack_.FindDialog(xplr_dialog::kForm);
  ASSERT_NE(form, nullptr);
  const Rect size = Pixels({0, 0, form->width, form->height});
  const XplrLayout layout = LayOutXplr(size.right, size.bottom, LayoutMode::kTreeAndList);
  const struct {
    int id;
    TextView kind;
    Rect place;
  } rows[] = {{1101, u"static", layout.caption}, {1102, u"static", layout.filter}, {1103, u"static", layout.folder},
              {1104, u"static", layout.label},   {1105, u"edit", layout.name},     {1106, u"tree", layout.tree},
              {1107, u"list", layout.list}};
  EXPECT_EQ(form->controls.size(), std::size(rows));
  for (const auto& row : rows) {
    const DialogControl* control = form->Find(row.id);
    ASSERT_NE(control, nullptr) << row.id;
    EXPECT_EQ(control->kind, row.kind) << row.id;
    EXPECT_EQ(control->text, u"") << row.id;
    const Rect place = Pixels(control->rect);
    EXPECT_NEAR(place.left, row.place.left, 2) << row.id;
    EXPECT_NEAR(place.top, row.place.top, 2) << row.id;
    EXPECT_NEAR(place.right, row.place.right, 2) << row.id;
    EXPECT_NEAR(place.bottom, row.place.bottom, 2) << row.id;
  }
}

TEST_P(XplrPack, EachFindDialogHasOneEditInItsRoom) {
  for (const int id : {xplr_dialog::kFind, xplr_dialog::kFindFolder}) {
    const DialogTemplate* dialog = pack_.FindDialog(id);
    ASSERT_NE(dialog, nullptr) << id;
    ASSERT_EQ(dialog->controls.size(), 1u) << id;
    const DialogControl& edit = dialog->controls.front();
    EXPECT_EQ(edit.id, xplr_control::kFindText) << id;
    EXPECT_EQ(edit.kind, u"edit") << id;
    EXPECT_TRUE(edit.rect.left > 0 && edit.rect.top > 0 && edit.rect.left < edit.rect.right) << id;
    EXPECT_TRUE(edit.rect.right < dialog->width && edit.rect.bottom < dialog->height) << id;
  }
}

}  // namespace
}  // namespace pnl
