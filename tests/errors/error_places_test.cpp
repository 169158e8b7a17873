// SPDX-License-Identifier: MIT
#include "errors/error_places.h"

#include <gtest/gtest.h>

#include "errors/error_ids.h"

namespace pnl {
namespace {

using Kind = ErrorControlKind;

struct PlaceCase {
  int id;
  Kind kind;
  Rect pixels;  // without a scale
  int picture;
  TextView instead;
};

// The dialog is 393 by 157 units; a unit is one and a half pixels wide and thirteen eighths of a pixel high.
const PlaceCase kPlaces[] = {
    {error_id::kTitleBox, Kind::kBox, {113, 10, 431, 52}, 0, u""},
    {error_id::kChannelBox, Kind::kBox, {62, 10, 107, 52}, 0, u""},
    {error_id::kTitleLine, Kind::kText, {11, 63, 580, 97}, 0, u""},
    {error_id::kDescription, Kind::kText, {11, 109, 580, 244}, 0, u""},
    {error_id::kPrevious, Kind::kPicture, {11, 24, 41, 57}, 361, u"<"},
    {error_id::kNext, Kind::kPicture, {537, 10, 567, 43}, 362, u">"},
    {error_id::kBefore, Kind::kCounter, {20, 10, 50, 26}, 0, u""},
    {error_id::kAfter, Kind::kCounter, {543, 41, 573, 57}, 0, u""},
    {error_id::kHelp, Kind::kPicture, {437, 10, 467, 43}, 3018, u"?"},
    {error_id::kAcknowledge, Kind::kPicture, {471, 10, 501, 43}, 3023, u"Esc"},
    {error_id::kConfirmSign, Kind::kPicture, {503, 10, 533, 43}, 3024, u"Enter"},
    {error_id::kMarkedSign, Kind::kPicture, {503, 10, 533, 43}, 3070, u"!"},
};

const ErrorControl& ControlOf(int id) {
  for (const ErrorControl& control : ErrorControls()) {
    if (control.id == id) return control;
  }
  ADD_FAILURE() << "no control " << id;
  return ErrorControls()[0];
}

TEST(ErrorPlaces, EachControlHasItsPlaceAndItsPicture) {
  EXPECT_EQ(ErrorControls().size(), std::size(kPlaces));
  for (const PlaceCase& row : kPlaces) {
    const ErrorControl& control = ControlOf(row.id);
    EXPECT_EQ(control.kind, row.kind) << row.id;
    EXPECT_EQ(PixelsOf(control, nullptr, 1), row.pixels) << row.id;
    EXPECT_EQ(control.picture, row.picture) << row.id;
    EXPECT_EQ(control.instead, row.instead) << row.id;
  }
  EXPECT_EQ(kErrorDialogWidth, 393);
  EXPECT_EQ(kErrorDialogHeight, 157);
}

TEST(ErrorPlaces, TheLanguagesDialogMovesAControlUnlessItHasNoRoomForIt) {
  const ErrorControl& help = ControlOf(error_id::kHelp);
  const Rect own = PixelsOf(help, nullptr, 1);
  const struct {
    int id;
    Rect units;
    Rect pixels;
  } rows[] = {
      {error_id::kHelp, {100, 8, 102, 16}, {150, 13, 153, 26}},
      {error_id::kHelp, {100, 8, 101, 9}, {150, 13, 152, 15}},
      {error_id::kHelp, {100, 8, 100, 16}, own},
      {error_id::kHelp, {100, 8, 102, 8}, own},
      {error_id::kHelp, {100, 8, 90, 16}, own},
      {error_id::kNext, {100, 8, 102, 16}, own},
  };
  for (const auto& row : rows) {
    DialogTemplate dialog;
    dialog.controls.push_back({row.id, u"static", {}, row.units});
    EXPECT_EQ(PixelsOf(help, &dialog, 1), row.pixels) << row.units.right << "," << row.units.bottom;
  }
}

TEST(ErrorPlaces, AScaleEnlargesPlaceAndSize) {
  EXPECT_EQ(PixelsOf(ControlOf(error_id::kPrevious), nullptr, 2), (Rect{21, 49, 81, 114}));
}

}  // namespace
}  // namespace pnl
