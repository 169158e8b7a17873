// SPDX-License-Identifier: MIT
#include "zmc/zmc_places.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace pnl {
namespace {

namespace id = zmc_control;
using Kind = ZmcControlKind;

/// The bands come first: the others lie on them. Of the inner one only the lower edge is seen. Each control has its
/// place in the dialog and, after it, its place on a low page: there the results are beside the conditions.
constexpr ZmcControlPlace kMain[] = {
    {id::kInnerBand, Kind::kBand, {7, 193, 454, 260}, {424, 62, 681, 204}},
    {id::kBand, Kind::kBand, {7, 184, 461, 251}, {424, 62, 684, 198}},
    {id::kTitle, Kind::kLabel, {7, 7, 461, 23}, {6, 1, 418, 20}},
    {id::kMaterialLabel, Kind::kLabel, {9, 27, 70, 40}, {6, 21, 78, 40}},
    {id::kMaterial, Kind::kListBox, {71, 27, 229, 109}, {80, 21, 418, 40}},
    {id::kOperationLabel, Kind::kLabel, {243, 27, 301, 40}, {6, 41, 78, 60}},
    {id::kOperation, Kind::kListBox, {303, 27, 461, 124}, {80, 41, 418, 60}},
    {id::kGrid, Kind::kGrid, {7, 49, 461, 114}, {6, 62, 418, 159}},
    {id::kRemarkCheck, Kind::kCheckBox, {8, 117, 20, 128}, {6, 161, 24, 179}},
    {id::kRemarkLabel, Kind::kLabel, {23, 117, 91, 130}, {28, 161, 112, 180}},
    {id::kRemark, Kind::kLine, {93, 117, 461, 131}, {114, 161, 418, 180}},
    {id::kToolCheck, Kind::kCheckBox, {8, 138, 20, 149}, {428, 2, 446, 20}},
    {id::kToolLabel, Kind::kLabel, {23, 138, 93, 151}, {450, 1, 542, 20}},
    {id::kTool, Kind::kToolBox, {93, 138, 236, 234}, {544, 1, 616, 20}},
    {id::kDiameterLabel, Kind::kLabel, {245, 138, 339, 151}, {428, 21, 548, 40}},
    {id::kPartLabel, Kind::kLabel, {245, 138, 339, 151}, {428, 21, 548, 40}},
    {id::kDiameter, Kind::kDataField, {339, 138, 395, 152}, {550, 21, 625, 40}},
    {id::kDiameterUnit, Kind::kLabel, {397, 138, 422, 151}, {626, 21, 654, 40}},
    {id::kTeethLabel, Kind::kLabel, {245, 154, 339, 167}, {428, 41, 548, 60}},
    {id::kTeeth, Kind::kDataField, {339, 154, 395, 168}, {550, 41, 625, 60}},
    {id::kTeethUnit, Kind::kLabel, {397, 154, 422, 167}, {626, 41, 654, 60}},
    {id::kPicture, Kind::kPicture, {426, 138, 460, 168}, {655, 22, 684, 60}},
    {id::kM6Check, Kind::kCheckBox, {7, 158, 19, 169}, {622, 2, 640, 20}},
    {id::kM6Label, Kind::kLabel, {23, 159, 93, 172}, {644, 1, 682, 20}},
    {id::kBandTitle, Kind::kLabel, {13, 188, 201, 201}, {428, 63, 680, 82}},
    {id::kFCheck, Kind::kCheckBox, {12, 207, 24, 218}, {430, 83, 448, 101}},
    {id::kFLabel, Kind::kLabel, {27, 207, 43, 220}, {452, 83, 480, 102}},
    {id::kF, Kind::kDataField, {45, 207, 124, 221}, {482, 83, 576, 102}},
    {id::kFUnit, Kind::kListBox, {121, 207, 176, 289}, {572, 83, 680, 102}},
    {id::kSCheck, Kind::kCheckBox, {12, 223, 24, 234}, {430, 103, 448, 121}},
    {id::kSLabel, Kind::kLabel, {27, 223, 43, 236}, {452, 103, 480, 122}},
    {id::kS, Kind::kDataField, {45, 222, 124, 236}, {482, 103, 576, 122}},
    {id::kSUnit, Kind::kListBox, {121, 223, 176, 305}, {572, 103, 680, 122}},
    {id::kLine, Kind::kLabel, {176, 198, 177, 240}, {420, 4, 421, 212}},
    {id::kPowerLabel, Kind::kLabel, {184, 207, 259, 220}, {428, 123, 554, 142}},
    {id::kPower, Kind::kDataField, {262, 207, 341, 221}, {556, 123, 654, 142}},
    {id::kPercent, Kind::kLabel, {343, 207, 354, 220}, {656, 123, 680, 142}},
    {id::kDmcCheck, Kind::kCheckBox, {184, 223, 196, 234}, {430, 143, 448, 161}},
    {id::kDmcOffCheck, Kind::kCheckBox, {182, 231, 194, 242}, {430, 143, 448, 161}},
    {id::kDmcLabel, Kind::kLabel, {198, 223, 224, 236}, {452, 143, 490, 162}},
    {id::kDmcText, Kind::kLine, {222, 223, 454, 237}, {492, 143, 680, 162}},
    {id::kReasonOption, Kind::kLabel, {224, 237, 453, 250}, {428, 163, 680, 197}},
    {id::kReasonDrive, Kind::kLabel, {224, 237, 453, 250}, {428, 163, 680, 197}},
    {id::kReasonSpindle, Kind::kLabel, {223, 237, 452, 250}, {428, 163, 680, 197}},
    {id::kReasonTool, Kind::kLabel, {224, 237, 453, 250}, {428, 163, 680, 197}},
    {id::kPowerBar, Kind::kBar, {10, 252, 451, 259}, {427, 199, 678, 203}},
    {id::kFormula, Kind::kLabel, {7, 266, 461, 280}, {6, 181, 418, 215}},
};
constexpr ZmcControlPlace kMaterials[] = {
    {id::kMaterialsTitle, Kind::kLabel, {7, 5, 313, 21}},
    {id::kMaterialsGrid, Kind::kGrid, {7, 23, 313, 193}},
};
constexpr ZmcControlPlace kOperations[] = {
    {id::kOperationsTitle, Kind::kLabel, {7, 5, 313, 21}},
    {id::kOperationsGrid, Kind::kGrid, {7, 25, 313, 193}},
};

struct PageRow {
  int dialog;
  int width;
  int height;
  std::span<const ZmcControlPlace> controls;
};

const PageRow& RowOf(ZmcTab tab) {
  static constexpr PageRow kPages[] = {
      {3036, 468, 302, kMain}, {3031, 320, 200, kMaterials}, {3032, 320, 200, kOperations}};
  return kPages[static_cast<std::size_t>(tab)];
}

constexpr int kLowWidth = 688;
constexpr int kLowHeight = 216;

int Scaled(int units, int pixels, int of) {
  return of > 0 ? static_cast<int>(std::lround(static_cast<double>(units) * pixels / of)) : 0;
}

/// The cell of letters of 13 pixels. Smaller ones can't be read from some distance, so a text is cut instead.
constexpr int kSmallestFont = 15;
/// The lowest line in which such letters have room, in pixels. A low page can't waste one.
constexpr int kLowestLine = 19;
constexpr int kLowestLineOfLow = 18;
constexpr double kFontShare = 0.88;

}  // namespace

std::span<const ZmcControlPlace> ControlsOf(ZmcTab tab) { return RowOf(tab).controls; }

int DialogOf(ZmcTab tab) { return RowOf(tab).dialog; }

Rect ZmcPage::Pixels(const Rect& units) const {
  return {Scaled(units.left, width, widthUnits), Scaled(units.top, height, heightUnits),
          Scaled(units.right, width, widthUnits), Scaled(units.bottom, height, heightUnits)};
}

int ZmcPage::FontHeight(int lineUnits) const {
  int line = Scaled(lineUnits, height, heightUnits);
  // A low page may be in a narrow area that isn't that low; its fields are as narrow then.
  if (low) line = std::min(line, Scaled(lineUnits, width, widthUnits));
  return std::max(kSmallestFont, static_cast<int>(line * kFontShare));
}

int ZmcPage::LineUnits() const { return low ? 19 : 13; }

int ZmcPage::TitleUnits() const { return low ? 19 : 16; }

int ZmcPage::LeastHeight() const {
  const int line = low ? kLowestLineOfLow : kLowestLine;
  return (heightUnits * line + LineUnits() - 1) / LineUnits();
}

ZmcPage PageOf(ZmcTab tab, const DialogTemplate* dialog, int width, int height) {
  const PageRow& row = RowOf(tab);
  const bool own = dialog == nullptr || dialog->width <= 0 || dialog->height <= 0;
  return {own ? row.width : dialog->width, own ? row.height : dialog->height, width, height};
}

ZmcPage MainPageOf(const DialogTemplate* dialog, int width, int height, int tallest) {
  ZmcPage page = PageOf(ZmcTab::kMain, dialog, width, height);
  if (tallest < page.LeastHeight()) page = {kLowWidth, kLowHeight, width, height, true};
  page.height = std::max(height, page.LeastHeight());
  return page;
}

Rect UnitsOf(const ZmcControlPlace& control, const ZmcPage& page, const DialogTemplate* dialog) {
  return page.low ? control.low : UnitsOf(control, dialog);
}

Rect UnitsOf(const ZmcControlPlace& control, const DialogTemplate* dialog) {
  const DialogControl* found = dialog != nullptr ? dialog->Find(control.id) : nullptr;
  return found != nullptr ? found->rect : control.units;
}

}  // namespace pnl
