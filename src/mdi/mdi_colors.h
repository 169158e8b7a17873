// SPDX-License-Identifier: MIT
// The colours of the command line, and the rule that decides which of them a control has. Colours are 0x00BBGGRR. It
// paints nothing.
#pragma once

#include <cstdint>
#include <optional>

namespace pnl {

/// The colours of the settings, with the built-in ones as defaults. The settings' own default of textFocus is white.
struct MdiColors {
  std::uint32_t back = 0x78643C;         // 60, 100, 120
  std::uint32_t backFocus = 0xD3BF97;    // 151, 191, 211
  std::uint32_t backRunning = 0x00A573;  // 115, 165, 0
  std::uint32_t text = 0xFFFFFF;
  std::uint32_t textFocus = 0x000000;
  std::uint32_t textRunning = 0x000000;
  std::uint32_t backList = 0x78643C;  // of the drop list
  std::uint32_t textList = 0xFFFFFF;
};

/// The background of the window.
inline constexpr std::uint32_t kMdiDialogBack = 0x05B9D2;
/// The colours of the sign that opens the drop list: its background, which is also its foreground at the start; its
/// foreground after the window has had the focus; and its background while the drop list is open.
inline constexpr std::uint32_t kMdiSignBack = 0x02B6E8;
inline constexpr std::uint32_t kMdiSignFocus = 0x05B9D2;
inline constexpr std::uint32_t kMdiSignOpen = 0x23D7F0;

enum class MdiControl { kEdit, kList, kOther };

struct MdiColorPair {
  std::uint32_t text = 0;
  std::uint32_t back = 0;
  friend bool operator==(const MdiColorPair&, const MdiColorPair&) = default;
};

/// The colours of a control, or nothing if it keeps its own. ready means that there is no channel yet or its State is
/// 1.
[[nodiscard]] inline std::optional<MdiColorPair> MdiControlColors(const MdiColors& colors, MdiControl control,
                                                                  bool ready, bool focused) {
  // The list always looks the same. Everything else shows that a block is running or interrupted.
  if (control == MdiControl::kList) return MdiColorPair{colors.text, colors.back};
  if (!ready) return MdiColorPair{colors.textRunning, colors.backRunning};
  if (control != MdiControl::kEdit) return std::nullopt;
  return focused ? MdiColorPair{colors.textFocus, colors.backFocus} : MdiColorPair{colors.text, colors.back};
}

}  // namespace pnl
