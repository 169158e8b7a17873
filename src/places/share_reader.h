// SPDX-License-Identifier: MIT
// Reads the folders of the real network: "\\server\share\folder". A server itself is there when its shares can be
// enumerated, and lists nothing. What the server reports as hidden is hidden, and so is a name that begins with a
// point.
#pragma once

#include <memory>

#include "places/places.h"
#include "places/share_access.h"

namespace pnl {

[[nodiscard]] std::shared_ptr<const FolderReader> MakeShareReader(std::shared_ptr<ShareAccess> access);

}  // namespace pnl
