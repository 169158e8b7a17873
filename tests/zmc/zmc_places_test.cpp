// SPDX-License-Identifier: MIT
// The controls of the three pages and their places, in the table of the logic and in the dialogs of both languages.
#include "zmc/zmc_places.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <vector>

#include "host/language.h"

namespace pnl::test {
namespace {

using Kind = ZmcControlKind;

struct PlaceRow {
  int id;
  Kind kind;
  int x, y, width, height;
};

const std::vector<PlaceRow> kMainPage = {
    {3027, Kind::kLabel, 7, 7, 454, 16},        {3018, Kind::kLabel, 9, 27, 61, 13},
    {3008, Kind::kListBox, 71, 27, 158, 82},    {3009, Kind::kLabel, 243, 27, 58, 13},
    {3010, Kind::kListBox, 303, 27, 158, 97},   {3028, Kind::kGrid, 7, 49, 454, 65},
    {228, Kind::kCheckBox, 8, 117, 12, 11},     {3014, Kind::kLabel, 23, 117, 68, 13},
    {3033, Kind::kLine, 93, 117, 368, 14},      {229, Kind::kCheckBox, 8, 138, 12, 11},
    {3011, Kind::kLabel, 23, 138, 70, 13},      {3012, Kind::kToolBox, 93, 138, 143, 96},
    {3013, Kind::kLabel, 245, 138, 94, 13},     {3024, Kind::kLabel, 245, 138, 94, 13},
    {3029, Kind::kDataField, 339, 138, 56, 14}, {3026, Kind::kLabel, 397, 138, 25, 13},
    {3015, Kind::kLabel, 245, 154, 94, 13},     {3030, Kind::kDataField, 339, 154, 56, 14},
    {3036, Kind::kLabel, 397, 154, 25, 13},     {501, Kind::kPicture, 426, 138, 34, 30},
    {230, Kind::kCheckBox, 7, 158, 12, 11},     {3023, Kind::kLabel, 23, 159, 70, 13},
    {3007, Kind::kLabel, 13, 188, 188, 13},     {225, Kind::kCheckBox, 12, 207, 12, 11},
    {3020, Kind::kLabel, 27, 207, 16, 13},      {3034, Kind::kDataField, 45, 207, 79, 14},
    {3016, Kind::kListBox, 121, 207, 55, 82},   {226, Kind::kCheckBox, 12, 223, 12, 11},
    {3021, Kind::kLabel, 27, 223, 16, 13},      {3035, Kind::kDataField, 45, 222, 79, 14},
    {3017, Kind::kListBox, 121, 223, 55, 82},   {3061, Kind::kLabel, 176, 198, 1, 42},
    {3019, Kind::kLabel, 184, 207, 75, 13},     {3031, Kind::kDataField, 262, 207, 79, 14},
    {3025, Kind::kLabel, 343, 207, 11, 13},     {227, Kind::kCheckBox, 184, 223, 12, 11},
    {231, Kind::kCheckBox, 182, 231, 12, 11},   {3022, Kind::kLabel, 198, 223, 26, 13},
    {3038, Kind::kLine, 222, 223, 232, 14},     {3058, Kind::kLabel, 224, 237, 229, 13},
    {3059, Kind::kLabel, 224, 237, 229, 13},    {3062, Kind::kLabel, 223, 237, 229, 13},
    {3057, Kind::kLabel, 224, 237, 229, 13},    {503, Kind::kBand, 7, 184, 454, 67},
    {504, Kind::kBand, 7, 193, 447, 67},
};
/// What the page has beyond its dialog: the bar of the power and the formula. They lie in the room below.
bool IsBeyondDialog(int id) { return id == 3101 || id == 3102; }
const std::vector<PlaceRow> kMaterialsPage = {{3055, Kind::kGrid, 7, 23, 306, 170}};
const std::vector<PlaceRow> kOperationsPage = {{3058, Kind::kGrid, 7, 25, 306, 168}};

struct Page {
  ZmcTab tab;
  int dialog;
  int width, height;
  const std::vector<PlaceRow>& rows;
  int title;  // a control whose place is free; 0 for none
};
const Page kPages[] = {{ZmcTab::kMain, 3036, 468, 302, kMainPage, 0},
                       {ZmcTab::kMaterials, 3031, 320, 200, kMaterialsPage, 3056},
                       {ZmcTab::kOperations, 3032, 320, 200, kOperationsPage, 3060}};

Rect RectOf(const PlaceRow& row) { return {row.x, row.y, row.x + row.width, row.y + row.height}; }

const ZmcControlPlace* Find(ZmcTab tab, int id) {
  for (const ZmcControlPlace& place : ControlsOf(tab)) {
    if (place.id == id) return &place;
  }
  return nullptr;
}

TEST(ZmcPlaces, EachPageHasItsControlsWhereTheyBelong) {
  for (const Page& page : kPages) {
    EXPECT_EQ(DialogOf(page.tab), page.dialog);
    const auto controls = ControlsOf(page.tab);
    const auto beyond = std::count_if(controls.begin(), controls.end(),
                                      [](const ZmcControlPlace& place) { return IsBeyondDialog(place.id); });
    EXPECT_EQ(beyond, page.tab == ZmcTab::kMain ? 2 : 0);
    EXPECT_EQ(controls.size(), page.rows.size() + static_cast<std::size_t>(beyond) + (page.title != 0 ? 1 : 0));
    for (const PlaceRow& row : page.rows) {
      const ZmcControlPlace* place = Find(page.tab, row.id);
      ASSERT_NE(place, nullptr) << row.id;
      EXPECT_EQ(place->kind, row.kind) << row.id;
      EXPECT_EQ(place->units, RectOf(row)) << row.id;
    }
    if (page.title != 0) {
      EXPECT_NE(Find(page.tab, page.title), nullptr);
    }
  }
}

TEST(ZmcPlaces, TheBandsLieUnderEverythingElse) {
  const auto controls = ControlsOf(ZmcTab::kMain);
  EXPECT_EQ(controls[0].id, 504);
  EXPECT_EQ(controls[1].id, 503) << "of the inner one only the lower edge is seen";
}

class BuiltPack : public testing::TestWithParam<const char*> {
 protected:
  BuiltPack() {
    std::ifstream in(std::string(PNL_SHARE_FOLDER "/lang/") + GetParam() + ".pnl", std::ios::binary);
    EXPECT_TRUE(pack.Parse(std::string(std::istreambuf_iterator<char>(in), {}))) << "no pack";
  }
  LanguagePack pack;
};

TEST_P(BuiltPack, TheDialogsHaveEveryControlInTheSamePlace) {
  for (const Page& page : kPages) {
    const DialogTemplate* dialog = pack.FindDialog(page.dialog);
    ASSERT_NE(dialog, nullptr) << page.dialog;
    EXPECT_EQ(dialog->width, page.width);
    EXPECT_EQ(dialog->height, page.height);
    EXPECT_EQ(dialog->controls.size(), page.rows.size() + (page.title != 0 ? 1 : 0)) << page.dialog;
    for (const ZmcControlPlace& place : ControlsOf(page.tab)) {
      if (IsBeyondDialog(place.id)) {
        EXPECT_EQ(dialog->Find(place.id), nullptr) << "it must not lie on another control";
        EXPECT_GE(place.units.top, 251) << "below the band";
        continue;
      }
      const DialogControl* control = dialog->Find(place.id);
      ASSERT_NE(control, nullptr) << page.dialog << " " << place.id;
      EXPECT_EQ(control->rect, place.units) << page.dialog << " " << place.id;
    }
  }
}

TEST_P(BuiltPack, TheReasonsAndTitlesHaveWords) {
  const DialogTemplate* main = pack.FindDialog(3036);
  ASSERT_NE(main, nullptr);
  for (const int reason : {3057, 3058, 3059, 3062}) EXPECT_FALSE(main->Find(reason)->text.empty()) << reason;
  // Two reasons are one for the operator: without the option, and without a spindle for it, DMC isn't active.
  EXPECT_EQ(main->Find(3058)->text, main->Find(3062)->text);
  EXPECT_NE(main->Find(3057)->text, main->Find(3059)->text);
  EXPECT_FALSE(pack.FindDialog(3031)->Find(3056)->text.empty());
  EXPECT_FALSE(pack.FindDialog(3032)->Find(3060)->text.empty());
}

TEST_P(BuiltPack, HasEveryTextOfTheTool) {
  std::vector<int> ids = {50, 51, 52, 85, 105, 266, 267, 268, 270, 271, 272, 275, 277, 278, 281, 283, 285};
  for (int id = 54; id <= 74; ++id) ids.push_back(id);
  for (int id = 88; id <= 98; ++id) ids.push_back(id);
  for (const int id : ids) {
    const Text* text = pack.FindText(id);
    EXPECT_TRUE(text != nullptr && !text->empty()) << id;
  }
}

TEST_P(BuiltPack, OnlyTheTextsWithAnInsertTakeOne) {
  for (const int id : {271, 275}) EXPECT_NE(pack.FindText(id)->find(u"%s"), Text::npos) << id;
  for (const int id : {268, 270, 272, 278, 281, 283, 285}) EXPECT_EQ(pack.FindText(id)->find(u'%'), Text::npos) << id;
}

TEST_P(BuiltPack, TheToolTypesDiffer) {
  std::set<Text> types;
  for (int id = 89; id <= 98; ++id) types.insert(ToUpper(*pack.FindText(id)));
  EXPECT_EQ(types.size(), 10u) << "an operation's tool type must mean one type of tools";
}

TEST_P(BuiltPack, HasTheMenusWithTheirItems) {
  const std::map<Text, std::vector<int>> menus = {{u"IDR_ZMC_MENU", {32818, 32819, 32820}},
                                                  {u"3026", {32902, 32777, 32822}},
                                                  {u"3031", {32779, 32781, 32783, 32822}},
                                                  {u"3032", {32785, 32787, 32788, 32822}}};
  for (const auto& [name, ids] : menus) {
    const auto* items = pack.FindMenuNodes(name);
    ASSERT_NE(items, nullptr) << ToUtf8(name);
    std::vector<int> found;
    for (const LanguagePack::MenuNode& node : *items) {
      found.push_back(node.item.id);
      EXPECT_FALSE(node.item.text.empty()) << node.item.id;
      EXPECT_NE(pack.FindBitmap(node.item.id), nullptr) << node.item.id;
    }
    EXPECT_EQ(found, ids) << ToUtf8(name);
  }
}

TEST_P(BuiltPack, HasAPictureForEveryTool) {
  for (int state = 0; state <= 14; ++state) EXPECT_NE(pack.FindBitmap(3100 + state), nullptr) << state;
}

INSTANTIATE_TEST_SUITE_P(Languages, BuiltPack, testing::Values("en", "es"),
                         [](const auto& row) { return std::string(row.param); });

TEST(ZmcPlaces, APageIsScaledToItsAreaEdgeByEdge) {
  const ZmcPage page = PageOf(ZmcTab::kMain, nullptr, 936, 906);
  EXPECT_EQ(page.Pixels({7, 184, 461, 251}), (Rect{14, 552, 922, 753}));
  // A label and the field beside it touch at any size.
  for (int width = 100; width < 1300; width += 7) {
    const ZmcPage any = PageOf(ZmcTab::kMain, nullptr, width, 600);
    EXPECT_EQ(any.Pixels({245, 138, 339, 151}).right, any.Pixels({339, 138, 395, 152}).left);
  }
}

TEST(ZmcPlaces, ADialogWithoutASizeIsTakenForThePagesOwn) {
  DialogTemplate dialog;
  for (const auto& [width, height] : {std::pair(0, 302), std::pair(468, 0), std::pair(-1, -1)}) {
    dialog.width = width;
    dialog.height = height;
    EXPECT_EQ(PageOf(ZmcTab::kMain, &dialog, 100, 100).widthUnits, 468);
    EXPECT_EQ(PageOf(ZmcTab::kMaterials, &dialog, 100, 100).heightUnits, 200);
  }
  dialog.width = 500;
  dialog.height = 400;
  EXPECT_EQ(PageOf(ZmcTab::kMain, &dialog, 100, 100).widthUnits, 500);
  EXPECT_EQ(PageOf(ZmcTab::kMain, &dialog, 100, 100).heightUnits, 400);
  dialog.width = dialog.height = 1;
  EXPECT_EQ(PageOf(ZmcTab::kMain, &dialog, 100, 100).widthUnits, 1) << "any size but none";
  const Rect whole = PageOf(ZmcTab::kMain, &dialog, 100, 50).Pixels({0, 0, 1, 1});
  EXPECT_EQ(whole.right, 100);
  EXPECT_EQ(whole.bottom, 50);
  const Rect nothing = ZmcPage{0, 0, 100, 50}.Pixels({1, 1, 2, 2});
  EXPECT_EQ(nothing.right, 0);
  EXPECT_EQ(nothing.bottom, 0);
}

TEST(ZmcPlaces, AControlOfTheDialogGoesBeforeTheTable) {
  DialogTemplate dialog;
  dialog.controls.push_back({});
  dialog.controls.back().id = 3008;
  dialog.controls.back().rect = {1, 2, 3, 4};
  EXPECT_EQ(UnitsOf(*Find(ZmcTab::kMain, 3008), &dialog), (Rect{1, 2, 3, 4}));
  EXPECT_EQ(UnitsOf(*Find(ZmcTab::kMain, 3010), &dialog), (Rect{303, 27, 461, 124}));
  EXPECT_EQ(UnitsOf(*Find(ZmcTab::kMain, 3008), nullptr), (Rect{71, 27, 229, 109}));
}

TEST(ZmcPlaces, AFontFitsItsLineButStaysReadable) {
  EXPECT_EQ(PageOf(ZmcTab::kMain, nullptr, 936, 604).FontHeight(13), 22);  // 26 pixels
  EXPECT_EQ(PageOf(ZmcTab::kMain, nullptr, 100, 100).FontHeight(13), 15);
  EXPECT_EQ(PageOf(ZmcTab::kMain, nullptr, 0, 0).FontHeight(13), 15);
}

// The main tab in an area in which the dialog's lines would be too low.

TEST(ZmcPlaces, AnAreaInWhichTheDialogsLinesAreTooLowHasALowPage) {
  struct Row {
    int height;
    int tallest;
    bool low;
    int page;  // its height
  };
  for (const Row& row :
       {Row{600, 600, false, 600}, Row{442, 442, false, 442}, Row{441, 441, true, 441}, Row{213, 213, true, 213},
        Row{205, 205, true, 205}, Row{204, 204, true, 205}, Row{0, 0, true, 205},
        // What was arranged as the dialog stays so while a part of it is covered, and scrolls.
        Row{441, 600, false, 442}, Row{70, 442, false, 442}, Row{70, 213, true, 205}}) {
    const ZmcPage page = MainPageOf(nullptr, 688, row.height, row.tallest);
    EXPECT_EQ(page.low, row.low) << row.height;
    EXPECT_EQ(page.height, row.page) << row.height;
    EXPECT_EQ(page.width, 688);
    EXPECT_GE(page.height, page.LeastHeight());
  }
}

TEST(ZmcPlaces, ALineOfALowPageHasRoomForLettersOfThirteenPixels) {
  for (const int height : {205, 213, 289, 441}) {
    const ZmcPage page = MainPageOf(nullptr, 688, height, height);
    const Rect line = page.Pixels({0, 0, 1, page.LineUnits()});
    EXPECT_GE(line.Height(), 18) << height;
    EXPECT_GE(page.FontHeight(page.LineUnits()), 15) << height;
    EXPECT_LE(page.FontHeight(page.LineUnits()), line.Height()) << height;
  }
}

TEST(ZmcPlaces, TheLettersOfALowPageFollowTheShorterOfItsSides) {
  EXPECT_EQ(MainPageOf(nullptr, 688, 216, 216).FontHeight(19), 16);
  EXPECT_EQ(MainPageOf(nullptr, 688, 432, 432).FontHeight(19), 16) << "its fields are no wider";
  EXPECT_EQ(MainPageOf(nullptr, 1376, 216, 216).FontHeight(19), 16) << "its lines are no higher";
  EXPECT_EQ(MainPageOf(nullptr, 1376, 432, 432).FontHeight(19), 33);
}

bool Meet(const Rect& one, const Rect& other) {
  return one.left < other.right && other.left < one.right && one.top < other.bottom && other.top < one.bottom;
}

/// Controls of which only one is shown at a time, or that lie on each other on purpose.
bool MayMeet(const ZmcControlPlace& one, const ZmcControlPlace& other) {
  const auto group = [](int id) {
    for (const auto& ids : std::vector<std::vector<int>>{
             {3013, 3024}, {227, 231}, {3057, 3058, 3059, 3062}, {3034, 3016}, {3035, 3017}}) {
      if (std::find(ids.begin(), ids.end(), id) != ids.end()) return ids.front();
    }
    return id;
  };
  return one.kind == Kind::kBand || other.kind == Kind::kBand || group(one.id) == group(other.id);
}

TEST(ZmcPlaces, NothingOverlapsOnALowPageAndAllOfItIsInside) {
  const ZmcPage page = MainPageOf(nullptr, 688, 213, 213);
  const auto controls = ControlsOf(ZmcTab::kMain);
  for (const ZmcControlPlace& one : controls) {
    EXPECT_FALSE(one.low.Width() <= 0 || one.low.Height() <= 0) << one.id;
    EXPECT_TRUE(one.low.left >= 0 && one.low.right <= page.widthUnits) << one.id;
    EXPECT_TRUE(one.low.top >= 0 && one.low.bottom <= page.heightUnits) << one.id;
    EXPECT_EQ(UnitsOf(one, page, nullptr), one.low) << one.id;
    for (const ZmcControlPlace& other : controls) {
      if (&one == &other || MayMeet(one, other)) continue;
      EXPECT_FALSE(Meet(one.low, other.low)) << one.id << " and " << other.id;
    }
  }
}

TEST(ZmcPlaces, WhatLiesOnTheBandOfTheDialogLiesOnTheBandOfALowPage) {
  const Rect band = Find(ZmcTab::kMain, 503)->low;
  for (const ZmcControlPlace& place : ControlsOf(ZmcTab::kMain)) {
    // The line between the results parts the two halves of a low page.
    if (place.kind == Kind::kBand || place.id == 3061) continue;
    const bool on = place.units.top >= 184 && place.units.top <= 251;
    EXPECT_EQ(on, Meet(place.low, band)) << place.id;
    EXPECT_TRUE(!on || (place.low.bottom <= band.bottom && place.low.right <= band.right)) << place.id;
  }
}

}  // namespace
}  // namespace pnl::test
