// SPDX-License-Identifier: MIT
#include "mdi/mdi_colors.h"

namespace pnl {

std::optional<MdiColorPair> MdiControlColors(const MdiColors& colors, MdiControl control, bool ready, bool focused) {
  // The list looks the same whatever runs; everything else shows that a block is in the machine's hands.
  if (control == MdiControl::kList) return MdiColorPair{colors.text, colors.back};
  if (!ready) return MdiColorPair{colors.textRunning, colors.backRunning};
  if (control != MdiControl::kEdit) return std::nullopt;
  return focused ? MdiColorPair{colors.textFocus, colors.backFocus} : MdiColorPair{colors.text, colors.back};
}

}  // namespace pnl
