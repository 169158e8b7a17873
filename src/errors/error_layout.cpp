// SPDX-License-Identifier: MIT
#include "errors/error_layout.h"

#include <algorithm>

namespace pnl {

namespace {

constexpr int kTitleBoxWidth = 320;
constexpr int kBetween = 10;
constexpr int kBelowText = 15;
constexpr int kArrowLift = 5;

/// The panel for which the dialog is made, in pixels.
constexpr double kNormalWidth = 800;
constexpr double kNormalHeight = 600;
/// The width that the top row takes between the arrows: what keeps its size, and what grows, at scale 1. The row is
/// centred, so the arrows count twice.
constexpr double kRowFixed = kTitleBoxWidth + 4 * kBetween;
constexpr double kRowGrowing = 284;
/// The same for the height: the description has three lines at least.
constexpr double kHeightFixed = 90;
constexpr double kHeightGrowing = 109;
constexpr double kMostScale = 3;

Rect Place(const Rect& size, int left, int top) { return {left, top, left + size.Width(), top + size.Height()}; }

}  // namespace

double ErrorScale(const Rect& area, const Rect& window) {
  const double scale =
      std::min({area.Width() / kNormalWidth, area.Height() / kNormalHeight, (window.Width() - kRowFixed) / kRowGrowing,
                (window.Height() - kHeightFixed) / kHeightGrowing});
  return std::clamp(scale, 1.0, kMostScale);
}

ErrorTopRow LayoutTop(int windowWidth, const ErrorTopRow& before, bool withChannel) {
  ErrorTopRow row = before;
  const int picture = before.help.Width();
  int left = (windowWidth - (withChannel ? picture + kTitleBoxWidth : kTitleBoxWidth)) / 2;
  if (withChannel) {
    row.channelBox = Place(before.channelBox, left, before.channelBox.top);
    left = row.channelBox.right;
  }
  row.titleBox = {left, before.titleBox.top, left + kTitleBoxWidth, before.titleBox.bottom};
  row.help = Place(before.help, row.titleBox.right + kBetween, row.titleBox.top);
  row.sign = Place(before.sign, row.help.left + kBetween + picture, row.titleBox.top);
  return row;
}

ErrorArrow LayoutArrow(const ErrorArrow& before, int titleTop, int oldWidth, int newWidth, bool right) {
  const int shift = right ? newWidth - oldWidth : 0;
  // The arrow is a little above the middle of the free height, because the counter is below it.
  const int top = std::max((titleTop - before.arrow.Height()) / 2 - kArrowLift, 0);
  ErrorArrow placed;
  placed.arrow = Place(before.arrow, before.arrow.left + shift, top);
  placed.counter = Place(before.counter, before.counter.left + shift, placed.arrow.bottom);
  return placed;
}

Rect LayoutTitleLine(const Rect& before, int windowWidth) {
  return {before.left, before.top, std::max(windowWidth - before.left, before.left), before.bottom};
}

Rect LayoutDescription(const Rect& titleLine, int gap, const Rect& client) {
  const int top = titleLine.bottom + gap;
  return {titleLine.left, top, titleLine.right, std::max(client.bottom - kBelowText, top)};
}

TitleFit FitTitle(int base, int current, int needed) {
  if (needed == current || (needed < current && current == base)) return {false, current, current == base};
  if (needed <= base) return {true, base, true};
  return {true, needed, false};
}

}  // namespace pnl
