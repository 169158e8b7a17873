// SPDX-License-Identifier: MIT
// Reads the paths of the simulated network: a server, a share, and what is in the folder of this machine that backs the
// share. Enumerates nothing; sim_network.h does.
#pragma once

#include <pnltools/rig.h>

#include <memory>
#include <vector>

#include "facade/sim/sim_hold.h"
#include "places/places.h"

namespace pnl::sim {

/// A reader of the network with these nodes, as a copy. A node's error, or that of its server, is what reading it fails
/// with. A share without a folder is an empty one. A server is there and has no entries. While the network is held,
/// every call waits.
[[nodiscard]] std::shared_ptr<const FolderReader> MakeShareReader(const std::vector<rig::NetworkNode>& roots,
                                                                  std::shared_ptr<SimHold> hold);

}  // namespace pnl::sim
