// SPDX-License-Identifier: MIT
// The simulated network neighbourhood: the tree of nodes that SimStorage has, enumerated level by level. Asked on the
// window's thread; its readers are copies of the tree as it is at that time, so they may be used on any thread.
// Connect connects nothing and returns the answer that was set. What is in a share is read by sim_shares.h.
#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <vector>

#include "facade/sim/sim_storage.h"
#include "places/network.h"

namespace pnl::sim {

/// What Connect is asked and answers, for all readers of one SimNetwork.
class SimConnections {
 public:
  struct Call {
    Text path;
    WindowHandle owner = 0;
    friend bool operator==(const Call&, const Call&) = default;
  };
  /// Sets what Connect answers for that network path; 0 for all others.
  void SetAnswer(TextView path, int answer);
  /// Keeps the call and returns its answer.
  int Ask(TextView path, WindowHandle owner);
  /// The calls since the last Take.
  [[nodiscard]] std::vector<Call> Take();

 private:
  std::mutex mutex_;
  std::map<Text, int> answers_;  // by path in capitals
  std::vector<Call> calls_;
};

class SimNetwork final : public Network {
 public:
  /// The storage must outlive this object.
  explicit SimNetwork(SimStorage& storage) : storage_(storage) {}

  /// A resource is found by its display type and its remote name, or without one by its comment, which may be a
  /// provider's name. If its provider has no such resource, one of any provider is taken. A node of type kRoot is no
  /// level of its own: what is below it is enumerated after it.
  [[nodiscard]] std::shared_ptr<const NetworkReader> Reader() const override;
  [[nodiscard]] SimConnections& Connections() { return *connections_; }

 private:
  SimStorage& storage_;
  std::shared_ptr<SimConnections> connections_ = std::make_shared<SimConnections>();
};

}  // namespace pnl::sim
