// SPDX-License-Identifier: MIT
// The colours of the command line: the set that the settings hold, and the rule which pair a control takes. Colours are
// 0x00BBGGRR. Not a painter.
#pragma once

#include <cstdint>
#include <optional>

namespace pnl {

/// The built-in colours. They differ from the defaults of the custom keys in one point: focused text is black here.
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

/// Behind the controls.
inline constexpr std::uint32_t kMdiDialogBack = 0x05B9D2;
/// The sign that opens the drop list: both at start; with the focus; the ground while the drop list is open.
inline constexpr std::uint32_t kMdiSignBack = 0x02B6E8;
inline constexpr std::uint32_t kMdiSignFocus = 0x05B9D2;
inline constexpr std::uint32_t kMdiSignOpen = 0x23D7F0;

enum class MdiControl { kEdit, kList, kOther };

struct MdiColorPair {
  std::uint32_t text = 0;
  std::uint32_t back = 0;
  friend bool operator==(const MdiColorPair&, const MdiColorPair&) = default;
};

/// ready: there is no channel yet, or its state is 1. Nothing for a control that keeps its own look.
[[nodiscard]] inline std::optional<MdiColorPair> MdiControlColors(const MdiColors& colors, MdiControl control,
                                                                  bool ready, bool focused) {
  // The list looks the same whatever runs; everything else shows that a block is in the machine's hands.
  if (control == MdiControl::kList) return MdiColorPair{colors.text, colors.back};
  if (!ready) return MdiColorPair{colors.textRunning, colors.backRunning};
  if (control != MdiControl::kEdit) return std::nullopt;
  return focused ? MdiColorPair{colors.textFocus, colors.backFocus} : MdiColorPair{colors.text, colors.back};
}

}  // namespace pnl
