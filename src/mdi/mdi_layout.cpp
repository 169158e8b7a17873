// SPDX-License-Identifier: MIT
#include "mdi/mdi_layout.h"

#include <algorithm>

#include "base/format.h"

namespace pnl {

namespace {

constexpr int kLineHeight = 29;
constexpr int kControlHeight = 30;
constexpr int kSignSpace = 31;
constexpr int kSignSize = 30;
constexpr int kTitleWidth = 65;
constexpr int kTitleWidthWithChannel = 85;
constexpr int kDropListExtraWidth = 30;
constexpr int kDropListHeight = 150;
constexpr int kBlinkPeriod = 800;

Rect At(int left, int top, int width, int height) {
  return {left, top, left + std::max(width, 0), top + std::max(height, 0)};
}

MdiLayout LayOutLine(const MdiLayoutInput& input) {
  MdiLayout layout;
  const int width = input.fullLength ? input.parent.Width() : input.parent.Width() / 2;
  const int top = input.below ? input.parent.bottom - kLineHeight : input.parent.top;
  const int titleWidth = input.channelCount > 1 ? kTitleWidthWithChannel : kTitleWidth;
  layout.window = At(0, top, width, kLineHeight);
  layout.title = At(0, 0, titleWidth, kControlHeight);
  layout.sign = At(width - kSignSpace, 1, kSignSize, kSignSize);
  layout.edit = At(titleWidth, 1, width - titleWidth - kSignSpace, kControlHeight);
  layout.signShown = true;
  return layout;
}

MdiLayout LayOutPanel(const MdiLayoutInput& input) {
  MdiLayout layout;
  const int width = input.parent.Width();
  const int height = input.parent.Height();
  layout.window = At(input.parent.left, input.parent.top, width, height);
  layout.title = At(0, 0, width, kControlHeight);
  layout.list = At(0, kControlHeight, width, height - 2 * kControlHeight - 1);
  layout.edit = At(0, height - kControlHeight, width, kControlHeight);
  layout.listShown = true;
  return layout;
}

}  // namespace

MdiLayout LayOutMdi(MdiRole role, const MdiLayoutInput& input) {
  return role == MdiRole::kMdi ? LayOutLine(input) : LayOutPanel(input);
}

Text MdiTitleText(MdiRole role, int channelCount, int channel) {
  const TextView name = role == MdiRole::kMdi ? TextView(u"MDI") : TextView(u"MDA");
  return channelCount > 1 ? Format(u"%s C%d", name, channel) : Text(name);
}

int MdiTitleBlink(MdiRole role) { return role == MdiRole::kMdi ? kBlinkPeriod : 0; }

Rect MdiDropListRect(const Rect& editOnScreen, bool below) {
  const int top = below ? editOnScreen.top - kDropListHeight - 1 : editOnScreen.bottom;
  return At(editOnScreen.left, top, editOnScreen.Width() + kDropListExtraWidth, kDropListHeight);
}

}  // namespace pnl
