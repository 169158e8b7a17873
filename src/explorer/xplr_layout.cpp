// SPDX-License-Identifier: MIT
#include "explorer/xplr_layout.h"

namespace pnl {
namespace {

constexpr int kTreeWidth = 300;
constexpr int kHeadings = 39;  // the headings overlap the caption by one pixel
constexpr int kPanes = 69;
constexpr int kPanesLess = 98;  // what the panes leave of the height
constexpr int kLabelWidth = 100;
constexpr int kBottom = 28;

Rect At(int x, int y, int width, int height) { return {x, y, x + width, y + height}; }

}  // namespace

LayoutMode LayoutOf(const XplrState& state) {
  if (state.Has(XPLR_LISTONLY)) return LayoutMode::kListOnly;
  return state.Has(XPLR_PINNED) ? LayoutMode::kPinnedList : LayoutMode::kTreeAndList;
}

XplrLayout LayOutXplr(int width, int height, LayoutMode mode) {
  XplrLayout layout;
  layout.showsTree = mode == LayoutMode::kTreeAndList;
  layout.pathLeads = mode != LayoutMode::kListOnly;
  const int left = layout.showsTree ? kTreeWidth : 0;
  const int panes = height - kPanesLess;
  layout.caption = At(0, 0, width, 40);
  layout.filter = At(0, kHeadings, kTreeWidth, 30);
  layout.folder = At(left, kHeadings, width - left, 30);
  layout.tree = At(0, kPanes, kTreeWidth, panes);
  layout.list = At(left, kPanes, width - left, panes);
  layout.label = At(0, height - kBottom, kLabelWidth, kBottom);
  layout.name = At(kLabelWidth + 1, height - kBottom + 1, width - kLabelWidth - 2, kBottom - 2);
  return layout;
}

}  // namespace pnl
