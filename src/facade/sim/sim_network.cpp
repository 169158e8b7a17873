// SPDX-License-Identifier: MIT
#include "facade/sim/sim_network.h"

#include <algorithm>
#include <utility>

#include "places/network_batches.h"

namespace pnl::sim {
namespace {

using Nodes = std::vector<rig::NetworkNode>;

NetworkResource ResourceOf(const rig::NetworkNode& node) {
  return {node.display, node.remote, node.local, node.comment, node.provider};
}

void AddLevel(const Nodes& nodes, std::vector<NetworkResource>& entries) {
  for (const rig::NetworkNode& node : nodes) {
    entries.push_back(ResourceOf(node));
    if (node.display == network_display::kRoot) AddLevel(node.children, entries);
  }
}

void AddConnected(const Nodes& nodes, std::vector<NetworkResource>& entries) {
  for (const rig::NetworkNode& node : nodes) {
    if (node.connected) entries.push_back(ResourceOf(node));
    AddConnected(node.children, entries);
  }
}

bool IsNamed(const rig::NetworkNode& node, const NetworkResource& wanted) {
  if (!wanted.remote.empty()) return EqualNoCase(node.remote, wanted.remote);
  const Text& name = wanted.comment;
  return !name.empty() &&
         (EqualNoCase(node.provider, name) || EqualNoCase(node.comment, name) || EqualNoCase(node.remote, name));
}

/// The name by which the resources below a node know their provider.
const Text& ProviderOf(const rig::NetworkNode& node, const Text& above) {
  if (!node.provider.empty()) return node.provider;
  if (node.display != network_display::kProvider) return above;
  return node.comment.empty() ? node.remote : node.comment;
}

/// The node of a resource. An empty provider matches every one.
const rig::NetworkNode* Find(const Nodes& nodes, const NetworkResource& wanted, const Text& provider,
                             const Text& above = {}) {
  for (const rig::NetworkNode& node : nodes) {
    const Text& own = ProviderOf(node, above);
    const bool provided = provider.empty() || EqualNoCase(own, provider);
    if (provided && node.display == wanted.display && IsNamed(node, wanted)) return &node;
    if (const auto* found = Find(node.children, wanted, provider, own); found != nullptr) return found;
  }
  return nullptr;
}

class Reader final : public NetworkReader {
 public:
  Reader(Nodes roots, std::shared_ptr<SimConnections> connections, std::shared_ptr<SimHold> hold)
      : roots_(std::move(roots)), connections_(std::move(connections)), hold_(std::move(hold)) {}

  std::unique_ptr<NetworkEnumeration> Open(NetworkScope scope,
                                           const std::optional<NetworkResource>& below) const override {
    hold_->WaitWhileHeld('\\');
    std::vector<NetworkResource> entries;
    if (scope == NetworkScope::kConnected) {
      AddConnected(roots_, entries);
    } else if (!below) {
      AddLevel(roots_, entries);
    } else {
      const rig::NetworkNode* node = Find(roots_, *below, below->provider);
      if (node == nullptr) node = Find(roots_, *below, {});
      if (node == nullptr || node->error != 0) return nullptr;
      AddLevel(node->children, entries);
    }
    return EnumerateAll(std::move(entries));
  }
  int Connect(TextView path, WindowHandle owner) const override {
    hold_->WaitWhileHeld('\\');
    return connections_->Ask(path, owner);
  }

 private:
  const Nodes roots_;
  std::shared_ptr<SimConnections> connections_;
  std::shared_ptr<SimHold> hold_;
};

}  // namespace

void SimConnections::SetAnswer(TextView path, int answer) {
  const std::lock_guard lock(mutex_);
  answers_[ToUpper(path)] = answer;
}

int SimConnections::Ask(TextView path, WindowHandle owner) {
  const std::lock_guard lock(mutex_);
  calls_.push_back({Text(path), owner});
  const auto found = answers_.find(ToUpper(path));
  return found != answers_.end() ? found->second : 0;
}

std::vector<SimConnections::Call> SimConnections::Take() {
  const std::lock_guard lock(mutex_);
  return std::exchange(calls_, {});
}

std::shared_ptr<const NetworkReader> SimNetwork::Reader() const {
  return std::make_shared<sim::Reader>(storage_.Network(), connections_, storage_.Hold());
}

}  // namespace pnl::sim
