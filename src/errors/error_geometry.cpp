// SPDX-License-Identifier: MIT
#include "errors/error_geometry.h"

#include <algorithm>
#include <limits>

#include "base/format.h"
#include "base/ini_file.h"

namespace pnl {

namespace {

constexpr TextView kSection = u"COMMON";
constexpr TextView kAbsent = u"FAIL";
constexpr int kSmallest = 100;
/// The height that the panel's top line and frame take above and below the window.
constexpr int kAroundHeight = 98;

constexpr int kSmallPanelHeight = 601;
constexpr int kLargePanelHeight = 1024;
constexpr int kSmallPanelWidth = 801;
constexpr std::int32_t kBottom = 65;
constexpr std::int32_t kMostBottom = 75;
constexpr std::int32_t kRight = 90;
constexpr std::int32_t kMostRight = 105;
constexpr int kStandardKeyWidth = 85;
constexpr int kWideKeyWidth = 114;

std::int32_t Scaled(std::int32_t value, std::int32_t from, std::int32_t to) {
  const std::int64_t scaled = std::int64_t{value} * to / from;
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(scaled, std::numeric_limits<std::int32_t>::min() / 2,
                                                            std::numeric_limits<std::int32_t>::max() / 2));
}

/// The rectangle with each number limited to what a panel can have. A file may contain any number.
Rect Sane(const Rect& rect) {
  static constexpr int kMost = 100000;
  const auto limit = [](int value) { return std::clamp(value, -kMost, kMost); };
  return {limit(rect.left), limit(rect.top), limit(rect.right), limit(rect.bottom)};
}

bool TooSmall(int width, int height) { return width < kSmallest || height < kSmallest; }

int ConfiguredSoftKeys(Files& files, Utilities& utilities) {
  CIniFile ini(files);
  (void)ini.ReadIniFile(Format(u"%s\\HMI_MP.ini", utilities.Get7340Path(path_id::kSetup)));
  return ini.ReadInt(u"MENUBAR", u"HMenuNSoftkey", kDefaultSoftKeys);
}

PanelFrame FrameOf(const Rect& panel, int configuredKeys, bool standardMetrics) {
  PanelFrame frame;
  frame.right = RightMargin(panel.Width(), standardMetrics);
  frame.bottom = BottomMargin(panel.Width(), panel.Height(), SoftKeysIn(configuredKeys, panel.Width(), standardMetrics),
                              standardMetrics);
  return frame;
}

/// The four numbers are in the order top, right, bottom, left.
PanelFrame ParseFrame(TextView text) {
  const Rect fields = AsciiToCRect(text);
  return {fields.left, fields.top, fields.right, fields.bottom};
}

Text FrameText(const PanelFrame& frame) { return CRectToAscii({frame.top, frame.right, frame.bottom, frame.left}); }

}  // namespace

std::int32_t BottomMargin(int width, int height, int softKeys, bool standardMetrics) {
  if (height < kSmallPanelHeight) return kBottom;
  if (standardMetrics && height < kLargePanelHeight) return height * kBottom / 600;
  const std::int32_t keyHeight = (width / std::max(softKeys, 1)) * kBottom / kStandardKeyWidth;
  return standardMetrics ? std::max(keyHeight, kBottom) : std::clamp(keyHeight, kBottom, kMostBottom);
}

std::int32_t RightMargin(int width, bool standardMetrics) {
  if (width < kSmallPanelWidth) return kRight;
  const auto margin = static_cast<std::int32_t>(std::int64_t{width} * kRight / 800);
  return standardMetrics ? margin : std::clamp(margin, kRight, kMostRight);
}

int SoftKeysIn(int configured, int width, bool standardMetrics) {
  if (configured < 1) return kDefaultSoftKeys;
  const int cap = std::max(width / (standardMetrics ? kStandardKeyWidth : kWideKeyWidth), kDefaultSoftKeys);
  return std::min(configured, cap);
}

Rect AvailableArea(const Rect& panel, const PanelFrame& frame) {
  const std::int64_t width = std::int64_t{panel.right} - panel.left - frame.right;
  const std::int64_t height = std::int64_t{panel.bottom} - panel.top - frame.bottom - kAroundHeight;
  constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();
  return {0, 0, static_cast<int>(std::clamp<std::int64_t>(width, -kMost, kMost)),
          static_cast<int>(std::clamp<std::int64_t>(height, -kMost, kMost))};
}

Rect ScaleErrorWindow(const Rect& window, const Rect& oldArea, const Rect& newArea) {
  if (oldArea.right <= 0 || oldArea.bottom <= 0) return kDefaultErrorWindow;
  const std::int32_t left = Scaled(window.left, oldArea.right, newArea.right);
  const std::int32_t top = Scaled(window.top, oldArea.bottom, newArea.bottom);
  const std::int32_t width = Scaled(window.Width(), oldArea.right, newArea.right);
  const std::int32_t height = Scaled(window.Height(), oldArea.bottom, newArea.bottom);
  if (TooSmall(width, height)) return kDefaultErrorWindow;
  return {left, top, left + width, top + height};
}

Text ErrorIniPath(Utilities& utilities) { return Format(u"%s\\errman.ini", utilities.Get7340Path(path_id::kSetup)); }

Rect PlaceErrorWindow(Files& files, Utilities& utilities) {
  const Text path = ErrorIniPath(utilities);
  CIniFile ini(files);
  (void)ini.ReadIniFile(path);
  Rect window = Sane(AsciiToCRect(ini.ReadString(kSection, u"Window", CRectToAscii(kDefaultErrorWindow))));
  Rect panel = Sane(AsciiToCRect(ini.ReadString(kSection, u"ParentWindow", CRectToAscii(kDefaultErrorPanel))));
  if (TooSmall(window.Width(), window.Height())) {
    window = kDefaultErrorWindow;
    panel = kDefaultErrorPanel;
  }
  const bool standardMetrics = utilities.UTIL7340_AreSoftkeyMetricsStandard();
  const int softKeys = ConfiguredSoftKeys(files, utilities);
  const Text frameText = ini.ReadString(kSection, u"Frame", kAbsent);
  const PanelFrame oldFrame = frameText == kAbsent ? FrameOf(panel, softKeys, standardMetrics) : ParseFrame(frameText);
  const Rect present = utilities.UTIL7340_GetCNCRect();
  const PanelFrame newFrame = FrameOf(present, softKeys, standardMetrics);
  const Rect oldArea = AvailableArea(panel, oldFrame);
  const Rect newArea = AvailableArea(present, newFrame);
  if (oldArea == newArea) return window;
  window = ScaleErrorWindow(window, oldArea, newArea);
  ini.WriteString(kSection, u"Window", CRectToAscii(window));
  ini.WriteString(kSection, u"ParentWindow", CRectToAscii(present));
  ini.WriteString(kSection, u"Frame", FrameText(newFrame));
  (void)ini.WriteIniFile(path);
  return window;
}

}  // namespace pnl
