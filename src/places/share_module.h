// SPDX-License-Identifier: MIT
// Loads the module that has the real client of shares (places/shares). It takes tens of milliseconds and brings many
// libraries with it, so it is loaded when a server is first asked, and on the client's thread.
#pragma once

#include <chrono>
#include <string>

#include "places/share_thread.h"

namespace pnl {

/// How long a server may say nothing. ShareNetwork::kCallLimit leaves room for the rest of a call.
inline constexpr std::chrono::milliseconds kServerTimeOut{3000};

/// The module beside a file of this library: in the same folder.
[[nodiscard]] std::string ShareModuleBeside(const std::string& libraryFile);

/// A maker that loads the module at that path. It returns null, and prints why to standard error, when the module or a
/// library that it needs is missing, or it was built for another version. A loaded module stays for the life of the
/// process. A server that says nothing for that time is given up.
[[nodiscard]] ShareThread::MakeClient ShareClientFrom(std::string modulePath,
                                                      std::chrono::milliseconds timeOut = kServerTimeOut);

}  // namespace pnl
