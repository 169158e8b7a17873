// SPDX-License-Identifier: MIT
// The address by which a share's client names a place: "smb://host:port/share/name". Text alone; asks no server.
#pragma once

#include <string>

#include "places/share_client.h"

namespace pnl {

/// Every byte of a name but letters, digits, '-', '_' and '.' is written as "%XX", so that no name can mean anything
/// else. The credentials are not in it.
[[nodiscard]] std::string ShareUrl(const SharePlace& place);

}  // namespace pnl
