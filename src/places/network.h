// SPDX-License-Identifier: MIT
// The seam to the network neighbourhood: providers, domains, servers and shares, each enumerated from the one above it.
// What is in a share is read by a FolderReader (places/places.h).
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

#include "base/text.h"
#include "window/window.h"

namespace pnl {

/// What a resource is shown as.
namespace network_display {
inline constexpr int kGeneric = 0;
inline constexpr int kDomain = 1;
inline constexpr int kServer = 2;
inline constexpr int kShare = 3;
inline constexpr int kProvider = 6;
inline constexpr int kRoot = 7;
inline constexpr int kTree = 9;
}  // namespace network_display

/// Which resources are enumerated.
enum class NetworkScope { kConnected = 1, kEverything = 2 };

/// How a step of an enumeration ended. Other numbers may come too.
namespace network_status {
inline constexpr int kOk = 0;
inline constexpr int kTooLarge = 8;     // one entry alone is larger than a batch
inline constexpr int kNoMore = 259;     // every entry has been taken
inline constexpr int kExtended = 1208;  // the provider has an error of its own
}  // namespace network_status

/// An empty text stands for one that is absent.
struct NetworkResource {
  int display = network_display::kGeneric;
  Text remote;  // "\\server" or "\\server\share"
  Text local;   // "E:" for a connected drive
  Text comment;
  Text provider;
  friend bool operator==(const NetworkResource&, const NetworkResource&) = default;
};

/// The most bytes that the entries of one batch take: kEntryBytes each, and two for each character and terminator of
/// the texts that it has.
inline constexpr std::size_t kBatchBytes = 16384;
inline constexpr std::size_t kEntryBytes = 32;

class NetworkEnumeration {
 public:
  virtual ~NetworkEnumeration() = default;
  /// Puts the next batch into entries, as many as fit. Returns a network_status; entries is empty unless it is kOk.
  [[nodiscard]] virtual int Next(std::vector<NetworkResource>& entries) = 0;
};

/// Reads the neighbourhood. Never changes; may be used on any thread, each enumeration on one only. Every call may take
/// as long as the network needs.
class NetworkReader {
 public:
  virtual ~NetworkReader() = default;
  /// Begins to enumerate what is below a resource, or with none the top. Returns null when it can't be opened.
  [[nodiscard]] virtual std::unique_ptr<NetworkEnumeration> Open(NetworkScope scope,
                                                                 const std::optional<NetworkResource>& below) const = 0;
  /// Connects to a share by its network path; the operator may be asked for name and password. Returns 0, or why not.
  [[nodiscard]] virtual int Connect(TextView path, WindowHandle owner) const = 0;
};

class Network {
 public:
  virtual ~Network() = default;
  [[nodiscard]] virtual std::shared_ptr<const NetworkReader> Reader() const = 0;
};

}  // namespace pnl
