// SPDX-License-Identifier: MIT
#include "calc/calc_places.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "calc/calc_ids.h"

namespace pnl {
namespace {

const CalcControl& Built(int id) {
  for (const CalcControl& control : CalcControls()) {
    if (control.id == id) return control;
  }
  ADD_FAILURE() << "no control " << id;
  return CalcControls().front();
}

struct PlaceRow {
  int id;
  int x, y, width, height;
};

class CalcPlaces : public testing::TestWithParam<PlaceRow> {};

TEST_P(CalcPlaces, StandWhereTheDialogHasThem) {
  const PlaceRow& row = GetParam();
  const CalcControl& control = Built(row.id);
  EXPECT_EQ(control.x, row.x);
  EXPECT_EQ(control.y, row.y);
  EXPECT_EQ(control.width, row.width);
  EXPECT_EQ(control.height, row.height);
}

INSTANTIATE_TEST_SUITE_P(
    Dialog, CalcPlaces,
    testing::Values(PlaceRow{1010, 2, 2, 184, 17}, PlaceRow{1008, 2, 22, 163, 16}, PlaceRow{1012, 167, 22, 19, 16},
                    PlaceRow{1011, 2, 41, 184, 10}, PlaceRow{1038, 2, 54, 184, 79}, PlaceRow{1013, 2, 54, 22, 17},
                    PlaceRow{1014, 2, 75, 22, 17}, PlaceRow{1015, 2, 96, 22, 17}, PlaceRow{1016, 2, 117, 22, 17},
                    PlaceRow{1017, 59, 54, 22, 17}, PlaceRow{1018, 85, 54, 22, 17}, PlaceRow{1019, 111, 54, 22, 17},
                    PlaceRow{1020, 137, 54, 22, 17}, PlaceRow{1021, 164, 54, 22, 17}, PlaceRow{1022, 59, 75, 22, 17},
                    PlaceRow{1023, 85, 75, 22, 17}, PlaceRow{1024, 111, 75, 22, 17}, PlaceRow{1025, 137, 75, 22, 17},
                    PlaceRow{1026, 164, 75, 22, 17}, PlaceRow{1027, 59, 96, 22, 17}, PlaceRow{1028, 85, 96, 22, 17},
                    PlaceRow{1029, 111, 96, 22, 17}, PlaceRow{1030, 137, 96, 22, 17}, PlaceRow{1031, 164, 96, 22, 17},
                    PlaceRow{1032, 59, 117, 22, 17}, PlaceRow{1033, 85, 117, 22, 17}, PlaceRow{1034, 111, 117, 22, 17},
                    PlaceRow{1035, 137, 117, 22, 17}, PlaceRow{1036, 164, 117, 22, 17}),
    [](const auto& row) { return "Id" + std::to_string(row.param.id); });

TEST(CalcDialog, IsAsLargeAsItsTemplate) {
  EXPECT_EQ(CalcDialogUnits().width, 188);
  EXPECT_EQ(CalcDialogUnits().height, 135);
}

TEST(CalcDialog, LeavesRoomForEveryKey) {
  for (const CalcControl& a : CalcControls()) {
    if (a.kind == CalcKind::kList) continue;  // lists lie over the keypad
    EXPECT_GE(a.x, 0);
    EXPECT_LE(a.x + a.width, CalcDialogUnits().width) << a.id;
    EXPECT_LE(a.y + a.height, CalcDialogUnits().height) << a.id;
    for (const CalcControl& b : CalcControls()) {
      if (b.kind == CalcKind::kList || a.id == b.id) continue;
      const bool apart = a.x + a.width <= b.x || b.x + b.width <= a.x || a.y + a.height <= b.y || b.y + b.height <= a.y;
      EXPECT_TRUE(apart) << a.id << " lies over " << b.id;
    }
  }
}

TEST(CalcDialog, HasItsListsInFrontOfTheKeys) {
  bool list = false;
  for (const CalcControl& control : CalcControls()) {
    EXPECT_FALSE(list && control.kind != CalcKind::kList) << control.id;
    list = list || control.kind == CalcKind::kList;
  }
  EXPECT_TRUE(list);
}

TEST(CalcDialog, TakesPlacesAndWordsFromTheLanguage) {
  DialogTemplate dialog;
  dialog.controls.push_back({1101, u"button", u"Grundzahl", {10, 20, 40, 35}});
  dialog.controls.push_back({1102, u"button", u"", {0, 0, 0, 0}});
  const CalcControl moved = LocalizedControl(Built(1101), &dialog);
  EXPECT_EQ(moved.text, u"Grundzahl");
  EXPECT_EQ(moved.x, 10);
  EXPECT_EQ(moved.y, 20);
  EXPECT_EQ(moved.width, 30);
  EXPECT_EQ(moved.height, 15);
  const CalcControl empty = LocalizedControl(Built(1102), &dialog);
  EXPECT_EQ(empty.text, Built(1102).text) << "a control without words or size keeps its own";
  EXPECT_EQ(empty.width, Built(1102).width);
  const CalcControl absent = LocalizedControl(Built(1017), &dialog);
  EXPECT_EQ(absent.x, 59);
  EXPECT_EQ(LocalizedControl(Built(1017), nullptr).x, 59) << "a pack without the dialog";
}

struct PixelRow {
  int units;
  double scale;
  int x, y;
};

class DialogPixelsTest : public testing::TestWithParam<PixelRow> {};

TEST_P(DialogPixelsTest, RoundsEachNumberByItself) {
  const PixelRow& row = GetParam();
  EXPECT_EQ(DialogPixelsX(row.units, row.scale), row.x);
  EXPECT_EQ(DialogPixelsY(row.units, row.scale), row.y);
}

INSTANTIATE_TEST_SUITE_P(Units, DialogPixelsTest,
                         testing::Values(PixelRow{0, 1, 0, 0}, PixelRow{2, 1, 3, 3}, PixelRow{17, 1, 26, 28},
                                         PixelRow{22, 1, 33, 36}, PixelRow{54, 1, 81, 88}, PixelRow{117, 1, 176, 190},
                                         PixelRow{135, 1, 203, 219}, PixelRow{188, 1, 282, 306},
                                         PixelRow{22, 1.5, 50, 54}, PixelRow{17, 2, 51, 55}));

TEST(DialogPixelsTest, SizeIsRoundedLikeThePlace) {
  const Rect acc = DialogPixels(Built(1016), 1);
  EXPECT_EQ(acc, (Rect{3, 190, 36, 218}));
}

struct ScaleRow {
  double density;
  int width, height;  // of the parent
  double scale;
};

class DialogScaleTest : public testing::TestWithParam<ScaleRow> {};

TEST_P(DialogScaleTest, GrowsWithThePanelAndKeepsKeysAsLargeAsAFingerWhereThereIsRoom) {
  const ScaleRow& row = GetParam();
  EXPECT_DOUBLE_EQ(DialogScale(row.density, {0, 0, row.width, row.height}), row.scale);
}

INSTANTIATE_TEST_SUITE_P(
    Densities, DialogScaleTest,
    testing::Values(ScaleRow{96, 800, 600, 1}, ScaleRow{100, 800, 600, 1}, ScaleRow{96, 999, 768, 1},
                    ScaleRow{96, 1024, 768, 1.25}, ScaleRow{96, 1220, 668, 1.5}, ScaleRow{96, 1600, 860, 1.75},
                    ScaleRow{96, 1920, 1080, 2.25}, ScaleRow{96, 1920, 300, 1}, ScaleRow{96, 200, 1080, 1},
                    ScaleRow{119, 1000, 600, 1.25}, ScaleRow{120, 800, 600, 1.25}, ScaleRow{141, 850, 600, 1.25},
                    ScaleRow{144, 850, 600, 1.5}, ScaleRow{192, 1200, 600, 2}, ScaleRow{192, 800, 600, 1.25},
                    ScaleRow{192, 1920, 300, 1.25}, ScaleRow{192, 200, 100, 1}, ScaleRow{72, 800, 600, 1},
                    ScaleRow{0, 800, 600, 1}, ScaleRow{-5, 800, 600, 1}, ScaleRow{1e9, 850, 600, 1},
                    ScaleRow{NAN, 850, 600, 1}, ScaleRow{800, 1920, 1080, 3.25}, ScaleRow{800.5, 850, 600, 1},
                    ScaleRow{INFINITY, 850, 600, 1}));

struct SightRow {
  const char* what;
  Rect window;
  CalcPlace place;
};

class CalcSight : public testing::TestWithParam<SightRow> {};

TEST_P(CalcSight, MovesAWindowOnlyWhenItWouldOpenOutOfSight) {
  const SightRow& row = GetParam();
  EXPECT_EQ(CalcInSight(row.window, {0, 0, 800, 600}), row.place) << row.what;
}

INSTANTIATE_TEST_SUITE_P(
    Places, CalcSight,
    testing::Values(SightRow{"inside", {100, 50, 382, 271}, {100, 50}},
                    SightRow{"partly outside, as a step may leave it", {776, 576, 1058, 797}, {776, 576}},
                    SightRow{"the same at the other side", {-258, -197, 24, 24}, {-258, -197}},
                    SightRow{"beyond the right edge", {777, 50, 1059, 271}, {518, 50}},
                    SightRow{"beyond the bottom", {100, 577, 382, 798}, {100, 379}},
                    SightRow{"beyond both", {1600, 900, 1882, 1121}, {518, 379}},
                    SightRow{"beyond the left edge", {-259, 50, 23, 271}, {0, 50}},
                    SightRow{"beyond the top", {100, -198, 382, 23}, {100, 0}},
                    SightRow{"larger than the parent", {900, 700, 1900, 1400}, {0, 0}}));

TEST(CalcSightAlone, WithoutAParentItStays) {
  EXPECT_EQ(CalcInSight({900, 700, 1182, 921}, {}), (CalcPlace{900, 700}));
}

struct NoteRow {
  const char* what;
  Rect window;
  CalcExtent note;
  Rect place;
};

class CalcNotePlace : public testing::TestWithParam<NoteRow> {};

TEST_P(CalcNotePlace, KeepsTheWindowFreeWhereThereIsRoom) {
  const NoteRow& row = GetParam();
  EXPECT_EQ(CalcNoteRect({0, 0, 800, 600}, row.window, row.note), row.place) << row.what;
}

INSTANTIATE_TEST_SUITE_P(
    Places, CalcNotePlace,
    testing::Values(NoteRow{"below", {0, 0, 282, 221}, {282, 30}, {0, 223, 282, 253}},
                    NoteRow{"exactly below", {0, 347, 282, 568}, {282, 30}, {0, 570, 282, 600}},
                    NoteRow{"above", {0, 348, 282, 569}, {282, 30}, {0, 316, 282, 346}},
                    NoteRow{"over a window that fills the parent", {0, 0, 282, 600}, {282, 30}, {0, 570, 282, 600}},
                    NoteRow{"not beyond the right edge", {700, 0, 982, 221}, {282, 30}, {518, 223, 800, 253}},
                    NoteRow{"not beyond the left edge", {-200, 0, 82, 221}, {282, 30}, {0, 223, 282, 253}},
                    NoteRow{"higher than the parent", {0, 0, 282, 600}, {282, 700}, {0, 0, 282, 700}}));

// Heights, list rectangles and steps, in pixels.

constexpr CalcMeasures kMeasures{{0, 0, 282, 221}, {3, 36, 248, 62},   {3, 3, 279, 31},
                                 {3, 67, 279, 83}, {89, 88, 122, 116}, {3, 190, 36, 218}};

TEST(CalcLayoutTest, NormalSizeRepeatsTheLowestKeysLeftMarginBelowIt) {
  EXPECT_EQ(CalcClientHeight(kMeasures, false), 221);
  CalcMeasures wide = kMeasures;
  wide.lastKey = {10, 190, 40, 218};
  EXPECT_EQ(CalcClientHeight(wide, false), 228);
}

TEST(CalcLayoutTest, CompactSizeEndsAPixelAboveTheKeypad) { EXPECT_EQ(CalcClientHeight(kMeasures, true), 87); }

TEST(CalcLayoutTest, TheListLiesOverTheKeypad) { EXPECT_EQ(CalcListRect(kMeasures, false), (Rect{3, 83, 279, 221})); }

TEST(CalcLayoutTest, InCompactSizeTheListLiesOverTheResult) {
  EXPECT_EQ(CalcListRect(kMeasures, true), (Rect{3, 0, 279, 36}));
}

struct MoveRow {
  Rect window;
  CalcDirection direction;
  std::optional<CalcPlace> place;
};

TEST(CalcLayoutTest, AStepIsEightPixelsAsLongAsTwentyFourStayVisible) {
  constexpr Rect kParent{0, 0, 800, 600};
  const MoveRow rows[] = {
      {{100, 100, 382, 321}, CalcDirection::kLeft, CalcPlace{92, 100}},
      {{100, 100, 382, 321}, CalcDirection::kRight, CalcPlace{108, 100}},
      {{100, 100, 382, 321}, CalcDirection::kUp, CalcPlace{100, 92}},
      {{100, 100, 382, 321}, CalcDirection::kDown, CalcPlace{100, 108}},
      // The last step that leaves 24 pixels, and the first that wouldn't.
      {{-250, 0, 32, 221}, CalcDirection::kLeft, CalcPlace{-258, 0}},
      {{-251, 0, 31, 221}, CalcDirection::kLeft, std::nullopt},
      {{768, 0, 1050, 221}, CalcDirection::kRight, CalcPlace{776, 0}},
      {{769, 0, 1051, 221}, CalcDirection::kRight, std::nullopt},
      {{0, -189, 282, 32}, CalcDirection::kUp, CalcPlace{0, -197}},
      {{0, -190, 282, 31}, CalcDirection::kUp, std::nullopt},
      {{0, 568, 282, 789}, CalcDirection::kDown, CalcPlace{0, 576}},
      {{0, 569, 282, 790}, CalcDirection::kDown, std::nullopt},
      // A window that is out of sight can come back.
      {{2000, 0, 2282, 221}, CalcDirection::kRight, std::nullopt},
      {{2000, 0, 2282, 221}, CalcDirection::kLeft, CalcPlace{1992, 0}},
      {{-2000, 0, -1718, 221}, CalcDirection::kLeft, std::nullopt},
      {{-2000, 0, -1718, 221}, CalcDirection::kRight, CalcPlace{-1992, 0}},
  };
  for (const MoveRow& row : rows) {
    EXPECT_EQ(MoveCalc(row.window, kParent, row.direction), row.place) << row.window.left << "," << row.window.top;
  }
}

}  // namespace
}  // namespace pnl
