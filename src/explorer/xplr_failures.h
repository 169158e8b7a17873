// SPDX-License-Identifier: MIT
// Which shares and servers have failed lately, so that an operator who walks over one again doesn't wait for it again.
// Gives readers that answer at once for such a place and note what fails. Threads share the notes; who forgets them,
// and when, is decided elsewhere.
#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <set>

#include "places/network.h"
#include "places/places_over.h"

namespace pnl {

/// The share or server that a network path leads to, in capitals; empty for any other path.
[[nodiscard]] Text NetworkPlaceOf(TextView path);

/// The notes. May be used on any thread.
class XplrFailures {
 public:
  /// The error with which the path's share, or its server, failed; kNone when none is noted.
  [[nodiscard]] int ErrorOf(TextView path) const;
  /// What a reader was answered for a folder. A place that doesn't answer is noted; so is one that can't be used
  /// itself.
  void Answered(TextView folder, int error);
  void Note(TextView path, int error);
  /// Forgets the path's share with its server, and of a server all shares. Returns true when something was noted.
  bool Forget(TextView path);
  /// The places that have been noted since the last call.
  [[nodiscard]] std::set<Text> TakeNew();

 private:
  mutable std::mutex mutex_;
  std::map<Text, int> errors_;
  std::set<Text> new_;
};

using SharedFailures = std::shared_ptr<XplrFailures>;

/// Places and network whose readers heed the notes. The other ones must outlive them.
class CarefulPlaces final : public PlacesOver {
 public:
  CarefulPlaces(Places& places, SharedFailures failures) : PlacesOver(places), failures_(std::move(failures)) {}
  [[nodiscard]] std::shared_ptr<const FolderReader> Reader() const override;

 private:
  SharedFailures failures_;
};

class CarefulNetwork final : public Network {
 public:
  CarefulNetwork(const Network& network, SharedFailures failures) : network_(network), failures_(std::move(failures)) {}
  [[nodiscard]] std::shared_ptr<const NetworkReader> Reader() const override;

 private:
  const Network& network_;
  SharedFailures failures_;
};

}  // namespace pnl
