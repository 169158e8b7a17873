// SPDX-License-Identifier: MIT
#include "zmc/zmc_places.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace pnl {
namespace {

namespace id = zmc_control;
using Kind = ZmcControlKind;

/// The bands come first: the others lie on them. Of the inner one only the lower edge is seen.
constexpr ZmcControlPlace kMain[] = {
    {id::kInnerBand, Kind::kBand, {7, 193, 454, 260}},
    {id::kBand, Kind::kBand, {7, 184, 461, 251}},
    {id::kTitle, Kind::kLabel, {7, 7, 461, 23}},
    {id::kMaterialLabel, Kind::kLabel, {9, 27, 70, 40}},
    {id::kMaterial, Kind::kListBox, {71, 27, 229, 109}},
    {id::kOperationLabel, Kind::kLabel, {243, 27, 301, 40}},
    {id::kOperation, Kind::kListBox, {303, 27, 461, 124}},
    {id::kGrid, Kind::kGrid, {7, 49, 461, 114}},
    {id::kRemarkCheck, Kind::kCheckBox, {8, 117, 20, 128}},
    {id::kRemarkLabel, Kind::kLabel, {23, 117, 91, 130}},
    {id::kRemark, Kind::kLine, {93, 117, 461, 131}},
    {id::kToolCheck, Kind::kCheckBox, {8, 138, 20, 149}},
    {id::kToolLabel, Kind::kLabel, {23, 138, 93, 151}},
    {id::kTool, Kind::kToolBox, {93, 138, 236, 234}},
    {id::kDiameterLabel, Kind::kLabel, {245, 138, 339, 151}},
    {id::kPartLabel, Kind::kLabel, {245, 138, 339, 151}},
    {id::kDiameter, Kind::kDataField, {339, 138, 395, 152}},
    {id::kDiameterUnit, Kind::kLabel, {397, 138, 422, 151}},
    {id::kTeethLabel, Kind::kLabel, {245, 154, 339, 167}},
    {id::kTeeth, Kind::kDataField, {339, 154, 395, 168}},
    {id::kTeethUnit, Kind::kLabel, {397, 154, 422, 167}},
    {id::kPicture, Kind::kPicture, {426, 138, 460, 168}},
    {id::kM6Check, Kind::kCheckBox, {7, 158, 19, 169}},
    {id::kM6Label, Kind::kLabel, {23, 159, 93, 172}},
    {id::kBandTitle, Kind::kLabel, {13, 188, 201, 201}},
    {id::kFCheck, Kind::kCheckBox, {12, 207, 24, 218}},
    {id::kFLabel, Kind::kLabel, {27, 207, 43, 220}},
    {id::kF, Kind::kDataField, {45, 207, 124, 221}},
    {id::kFUnit, Kind::kListBox, {121, 207, 176, 289}},
    {id::kSCheck, Kind::kCheckBox, {12, 223, 24, 234}},
    {id::kSLabel, Kind::kLabel, {27, 223, 43, 236}},
    {id::kS, Kind::kDataField, {45, 222, 124, 236}},
    {id::kSUnit, Kind::kListBox, {121, 223, 176, 305}},
    {id::kLine, Kind::kLabel, {176, 198, 177, 240}},
    {id::kPowerLabel, Kind::kLabel, {184, 207, 259, 220}},
    {id::kPower, Kind::kDataField, {262, 207, 341, 221}},
    {id::kPercent, Kind::kLabel, {343, 207, 354, 220}},
    {id::kDmcCheck, Kind::kCheckBox, {184, 223, 196, 234}},
    {id::kDmcOffCheck, Kind::kCheckBox, {182, 231, 194, 242}},
    {id::kDmcLabel, Kind::kLabel, {198, 223, 224, 236}},
    {id::kDmcText, Kind::kLine, {222, 223, 454, 237}},
    {id::kReasonOption, Kind::kLabel, {224, 237, 453, 250}},
    {id::kReasonDrive, Kind::kLabel, {224, 237, 453, 250}},
    {id::kReasonSpindle, Kind::kLabel, {223, 237, 452, 250}},
    {id::kReasonTool, Kind::kLabel, {224, 237, 453, 250}},
    {id::kPowerBar, Kind::kBar, {10, 252, 451, 259}},
    {id::kFormula, Kind::kLabel, {7, 266, 461, 280}},
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

int Scaled(int units, int pixels, int of) {
  return of > 0 ? static_cast<int>(std::lround(static_cast<double>(units) * pixels / of)) : 0;
}

/// Below this a text can't be read; then it is cut rather than made smaller.
constexpr int kSmallestFont = 11;
constexpr double kFontShare = 0.88;

}  // namespace

std::span<const ZmcControlPlace> ControlsOf(ZmcTab tab) { return RowOf(tab).controls; }

int DialogOf(ZmcTab tab) { return RowOf(tab).dialog; }

Rect ZmcPage::Pixels(const Rect& units) const {
  return {Scaled(units.left, width, widthUnits), Scaled(units.top, height, heightUnits),
          Scaled(units.right, width, widthUnits), Scaled(units.bottom, height, heightUnits)};
}

int ZmcPage::FontHeight(int lineUnits) const {
  const int line = Scaled(lineUnits, height, heightUnits);
  return std::max(kSmallestFont, static_cast<int>(line * kFontShare));
}

ZmcPage PageOf(ZmcTab tab, const DialogTemplate* dialog, int width, int height) {
  const PageRow& row = RowOf(tab);
  const bool own = dialog == nullptr || dialog->width <= 0 || dialog->height <= 0;
  return {own ? row.width : dialog->width, own ? row.height : dialog->height, width, height};
}

Rect UnitsOf(const ZmcControlPlace& control, const DialogTemplate* dialog) {
  const DialogControl* found = dialog != nullptr ? dialog->Find(control.id) : nullptr;
  return found != nullptr ? found->rect : control.units;
}

}  // namespace pnl
