// SPDX-License-Identifier: MIT
// The options with which the remote control was started.
#pragma once

namespace panel {

struct RemoteOptions {
  bool bare = false;        // the panel records callbacks and doesn't react
  bool manualTime = false;  // time.advance moves the clock
};

}  // namespace panel
