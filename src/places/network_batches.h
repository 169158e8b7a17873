// SPDX-License-Identifier: MIT
// An enumeration of resources that are known already: hands them over in batches of the largest allowed size. Asks
// nobody.
#pragma once

#include <memory>
#include <vector>

#include "places/network.h"

namespace pnl {

/// Enumerates these resources in their order. An entry that alone is larger than a batch ends it with kTooLarge.
[[nodiscard]] std::unique_ptr<NetworkEnumeration> EnumerateAll(std::vector<NetworkResource> resources);

}  // namespace pnl
