// SPDX-License-Identifier: MIT
// The controls of the machining calculator's pages with their places in dialog units, and how a page is scaled to the
// tool area. The pack's dialogs go first; these places count where a pack has none.
#pragma once

#include <span>

#include "host/language.h"
#include "window/window.h"
#include "zmc/zmc_ids.h"

namespace pnl {

enum class ZmcControlKind { kLabel, kListBox, kToolBox, kLine, kCheckBox, kPicture, kBand, kGrid, kDataField, kBar };

struct ZmcControlPlace {
  int id;
  ZmcControlKind kind;
  Rect units;  // in the dialog
  Rect low{};  // on a low page of the main tab, in that page's own units
};

/// The controls of a page, those in front last.
[[nodiscard]] std::span<const ZmcControlPlace> ControlsOf(ZmcTab tab);
/// The number of the page's dialog.
[[nodiscard]] int DialogOf(ZmcTab tab);

/// A page of a size in dialog units over an area of a size in pixels.
struct ZmcPage {
  int widthUnits = 0;
  int heightUnits = 0;
  int width = 0;
  int height = 0;
  bool low = false;  // arranged for an area in which the dialog's lines would be too low to be read

  /// Each edge is scaled on its own, so that controls that touch still do.
  [[nodiscard]] Rect Pixels(const Rect& units) const;
  /// The height of a font that fits a line of that many units.
  [[nodiscard]] int FontHeight(int lineUnits) const;
  /// The height of a line of text, and of the title.
  [[nodiscard]] int LineUnits() const;
  [[nodiscard]] int TitleUnits() const;
  /// The least height in pixels in which the smallest font has room in a line.
  [[nodiscard]] int LeastHeight() const;
};
[[nodiscard]] ZmcPage PageOf(ZmcTab tab, const DialogTemplate* dialog, int width, int height);
/// The page of the main tab in an area of that size. It is never lower than its LeastHeight, so it may be higher than
/// the area. tallest: the greatest height that the area has had with this width; it decides about the arrangement, so
/// that a page isn't arranged anew while something covers a part of it.
[[nodiscard]] ZmcPage MainPageOf(const DialogTemplate* dialog, int width, int height, int tallest);
/// The control's rectangle in units of that page of the main tab.
[[nodiscard]] Rect UnitsOf(const ZmcControlPlace& control, const ZmcPage& page, const DialogTemplate* dialog);
/// The control's rectangle in units: the dialog's, or the page's own.
[[nodiscard]] Rect UnitsOf(const ZmcControlPlace& control, const DialogTemplate* dialog);

}  // namespace pnl
