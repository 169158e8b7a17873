// SPDX-License-Identifier: MIT
// The network file: the providers, domains and servers that a machine's owner wants to see in the network, and the
// shares of servers that don't list them. docs/formats/network.md describes it. Only reads, and asks no server;
// ShareNetwork puts it to use.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"

namespace pnl {

/// The provider of whatever names none.
inline constexpr TextView kUsualProvider = u"Microsoft Network";

struct NetworkProvider {
  Text name;
  Text comment;
  friend bool operator==(const NetworkProvider&, const NetworkProvider&) = default;
};

struct NetworkDomain {
  Text name;
  Text provider;
  Text comment;
  friend bool operator==(const NetworkDomain&, const NetworkDomain&) = default;
};

struct NetworkServer {
  Text name;  // without backslashes
  Text provider;
  Text domain;  // empty when the server is in none
  Text comment;
  std::string host;          // its name or address in the machine's own network
  std::uint16_t port = 0;    // 0 for the usual one
  std::vector<Text> shares;  // when not empty, the server isn't asked for its shares
  friend bool operator==(const NetworkServer&, const NetworkServer&) = default;
};

/// In the order of the file. Every provider and domain that is named is there.
struct NetworkSetup {
  std::vector<NetworkProvider> providers;
  std::vector<NetworkDomain> domains;
  std::vector<NetworkServer> servers;
  friend bool operator==(const NetworkSetup&, const NetworkSetup&) = default;
};

/// True for a text that can be the name or address of a host: 1 to 253 letters, digits, points, hyphens and
/// underscores. Such a text means nothing else in any address.
[[nodiscard]] bool IsHostName(std::string_view text);

/// Reads the bytes of a network file. A value that makes no sense counts as absent.
[[nodiscard]] NetworkSetup ParseNetworkFile(std::string_view bytes);
/// Reads a network file of this machine. Returns nothing when hostPath is null or the file can't be read, isn't a
/// regular file or is larger than a megabyte.
[[nodiscard]] std::optional<NetworkSetup> ReadNetworkFile(const char* hostPath);

}  // namespace pnl
