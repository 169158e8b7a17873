// SPDX-License-Identifier: MIT
// Everything that a tool may use, in one argument. LoadPNLTool makes it once for the library; a test makes its own with
// fakes.
#pragma once

#include "base/files.h"
#include "facade/cnc_facade.h"
#include "host/host_api.h"
#include "host/language.h"
#include "places/network.h"
#include "places/places.h"
#include "window/timers.h"
#include "window/window.h"
#include "window/worker.h"

namespace pnl {

struct ToolContext {
  HostBridge& host;
  CncFacade& cnc;
  WindowSystem& windows;
  Timers& timers;
  Language& language;
  Files& files;
  Places& places;
  const Network& network;
  Worker& worker;
};

}  // namespace pnl
