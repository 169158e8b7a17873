// SPDX-License-Identifier: MIT
#include "places/share_network.h"

#include <algorithm>
#include <utility>

#include "places/network_batches.h"
#include "places/share_reader.h"

namespace pnl {
namespace {

using Resources = std::vector<NetworkResource>;

const Text& NameOf(const NetworkResource& resource) {
  return resource.remote.empty() ? resource.comment : resource.remote;
}

class Neighbourhood final : public NetworkReader {
 public:
  explicit Neighbourhood(std::shared_ptr<ShareAccess> access) : access_(std::move(access)) {}

  std::unique_ptr<NetworkEnumeration> Open(NetworkScope scope,
                                           const std::optional<NetworkResource>& below) const override {
    auto found = scope == NetworkScope::kConnected ? Connected() : below ? Below(*below) : Top();
    return found ? EnumerateAll(std::move(*found)) : nullptr;
  }
  int Connect(TextView path, WindowHandle /*owner*/) const override { return access_->Connect(path); }

 private:
  [[nodiscard]] const NetworkSetup& Setup() const { return access_->Setup(); }

  [[nodiscard]] std::optional<Resources> Connected() const {
    Resources found;
    for (Text& share : access_->Connected()) found.push_back({network_display::kGeneric, std::move(share), {}, {}, {}});
    return found;
  }
  [[nodiscard]] std::optional<Resources> Top() const {
    Resources found;
    for (const NetworkProvider& each : Setup().providers) {
      found.push_back({network_display::kProvider, {}, {}, each.comment, each.name});
    }
    return found;
  }
  [[nodiscard]] std::optional<Resources> Below(const NetworkResource& resource) const {
    switch (resource.display) {
      case network_display::kProvider:
        return BelowProvider(NameOf(resource));
      case network_display::kDomain:
        return BelowDomain(NameOf(resource));
      case network_display::kServer:
        return SharesOf(resource.remote);
      default:
        return std::nullopt;
    }
  }
  [[nodiscard]] std::optional<Resources> BelowProvider(TextView name) const {
    const auto& all = Setup().providers;
    const bool known =
        std::any_of(all.begin(), all.end(), [&](const NetworkProvider& each) { return EqualNoCase(each.name, name); });
    if (!known) return std::nullopt;
    Resources found;
    for (const NetworkDomain& each : Setup().domains) {
      if (EqualNoCase(each.provider, name)) {
        found.push_back({network_display::kDomain, each.name, {}, each.comment, each.provider});
      }
    }
    for (const NetworkServer& each : Setup().servers) {
      if (each.domain.empty() && EqualNoCase(each.provider, name)) found.push_back(ResourceOf(each));
    }
    return found;
  }
  /// A domain's name occurs once in the file, whatever its provider.
  [[nodiscard]] std::optional<Resources> BelowDomain(TextView name) const {
    const auto& all = Setup().domains;
    const bool known =
        std::any_of(all.begin(), all.end(), [&](const NetworkDomain& each) { return EqualNoCase(each.name, name); });
    if (!known) return std::nullopt;
    Resources found;
    for (const NetworkServer& each : Setup().servers) {
      if (EqualNoCase(each.domain, name)) found.push_back(ResourceOf(each));
    }
    return found;
  }
  [[nodiscard]] std::optional<Resources> SharesOf(TextView remote) const {
    const auto path = ParseNetworkPath(remote);
    const auto place = access_->PlaceOf(remote);
    if (!place || !place->share.empty()) return std::nullopt;
    const ShareNames names = access_->SharesOf(*place, path->server);
    if (names.error != place_error::kNone) return std::nullopt;
    const NetworkServer* known = access_->ServerOf(path->server);
    Resources found;
    for (const ShareNames::Share& each : names.shares) {
      found.push_back({network_display::kShare,
                       SharePath(path->server, each.name),
                       {},
                       each.comment,
                       known != nullptr ? known->provider : Text(kUsualProvider)});
    }
    return found;
  }
  [[nodiscard]] static NetworkResource ResourceOf(const NetworkServer& server) {
    return {network_display::kServer, ServerPath(server.name), {}, server.comment, server.provider};
  }

  std::shared_ptr<ShareAccess> access_;
};

}  // namespace

ShareNetwork::ShareNetwork(NetworkSetup setup, ShareThread::MakeClient makeClient,
                           std::shared_ptr<CredentialsAsker> asker, std::chrono::milliseconds limit) {
  const auto access = std::make_shared<ShareAccess>(std::move(setup), std::move(makeClient), limit, std::move(asker));
  reader_ = std::make_shared<Neighbourhood>(access);
  folders_ = MakeShareReader(access);
}

}  // namespace pnl
