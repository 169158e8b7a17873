// SPDX-License-Identifier: MIT
#include "zmc/logic/zmc_focus.h"

namespace pnl {

bool HasStop(ZmcStop stop, const ZmcFocusState& state) {
  switch (stop) {
    case ZmcStop::kGrid:
      return !state.operationsEmpty;
    case ZmcStop::kM6Check:
      return state.m6Shown;
    case ZmcStop::kD:
      return state.diameterEnabled;
    case ZmcStop::kZ:
      return state.teethShown && state.teethEnabled;
    case ZmcStop::kPower:
    case ZmcStop::kDmcCheck:
    case ZmcStop::kDmcText:
      return state.dmcUsable;
    default:
      return true;
  }
}

ZmcStop NextStop(ZmcStop from, bool forward, const ZmcFocusState& state) {
  const int step = forward ? 1 : kZmcStops - 1;
  int at = static_cast<int>(from);
  // The material is always there.
  do {
    at = (at + step) % kZmcStops;
  } while (!HasStop(static_cast<ZmcStop>(at), state));
  return static_cast<ZmcStop>(at);
}

ZmcGridCell FirstEditableCell(bool factoryPair) { return {1, factoryPair ? 3 : 1}; }

}  // namespace pnl
