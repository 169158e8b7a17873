// SPDX-License-Identifier: MIT
// How the remote control was started.
#pragma once

namespace panel {

struct RemoteOptions {
  bool bare = false;        // the panel only records callbacks
  bool manualTime = false;  // time.advance moves the clock
};

}  // namespace panel
