// SPDX-License-Identifier: MIT
// The seam to the library that speaks with Windows servers. The real client is in a module of its own, which is loaded
// when a server is first asked (places/shares); the tests have a fake one. A client belongs to one thread, and each
// call may take as long as the server needs. Keeps no credentials: every call brings those that it needs.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "places/credentials.h"
#include "places/places.h"

namespace pnl {

/// A server, a share of it, or a place in the share, and who asks for it.
struct SharePlace {
  std::string host;
  std::uint16_t port = 0;   // 0 for the usual one
  Text share;               // empty for the server
  std::vector<Text> names;  // from the share down
  SharedCredentials logon;  // null: nobody in particular
};

/// The answers. error is a place_error; with one, the rest is empty.
struct ShareNames {
  struct Share {
    Text name;
    Text comment;
  };
  int error = place_error::kRemoteNotListening;
  std::vector<Share> shares;
};
struct ShareListing {
  int error = place_error::kRemoteNotListening;
  std::vector<PlaceEntry> entries;
};
struct ShareFacts {
  int error = place_error::kRemoteNotListening;
  bool folder = false;
  bool readOnly = false;
};

struct ShareStart {
  int error = place_error::kRemoteNotListening;
  std::string bytes;
};

class ShareClient {
 public:
  virtual ~ShareClient() = default;
  /// The shares of a server that contain files, in the server's order.
  [[nodiscard]] virtual ShareNames ListShares(const SharePlace& server) = 0;
  /// What is in a folder, without "." and "..".
  [[nodiscard]] virtual ShareListing List(const SharePlace& folder) = 0;
  [[nodiscard]] virtual ShareFacts Look(const SharePlace& place) = 0;
  /// Makes a folder whose parent exists. Returns kNone, kAlreadyExists, or why it couldn't be made.
  [[nodiscard]] virtual int MakeFolder(const SharePlace& folder) = 0;
  /// The first bytes of a file, at most so many; fewer are all that it has.
  [[nodiscard]] virtual ShareStart ReadStart(const SharePlace& file, std::size_t most) = 0;
};

/// The module's one function. Returns null when the module was built for another version of this header or the client
/// can't be made. A server that says nothing for timeOut milliseconds is given up. The caller owns the client and keeps
/// the module loaded.
inline constexpr int kShareClientVersion = 2;
inline constexpr const char* kShareClientMaker = "PnlMakeShareClient";
using MakeShareClientFn = ShareClient* (*)(int version, int timeOut);

}  // namespace pnl
