// SPDX-License-Identifier: MIT
// Everything that a tool may use, in one argument. LoadPNLTool makes it once for the library; a test makes its own with
// fakes.
#pragma once

#include "base/files.h"
#include "facade/cnc_facade.h"
#include "host/host_api.h"
#include "host/language.h"
#include "window/timers.h"
#include "window/window.h"

namespace pnl {

struct ToolContext {
  HostBridge& host;
  CncFacade& cnc;
  WindowSystem& windows;
  Timers& timers;
  Language& language;
  Files& files;
};

/// The tools' own numbers.
namespace tool_id {
inline constexpr int kErrorManager = 0;
inline constexpr int kPlcMessages = 1;
inline constexpr int kHelp = 2;
inline constexpr int kCalculator = 3;
inline constexpr int kMachiningCalculator = 4;
inline constexpr int kExplorer = 5;
inline constexpr int kMdi = 6;
}  // namespace tool_id

/// Results of tool operations.
inline constexpr std::intptr_t kDone = 0;
inline constexpr std::intptr_t kRefused = -200;
inline constexpr std::intptr_t kCloseRefused = -202;
inline constexpr std::intptr_t kReserved = -203;

}  // namespace pnl
