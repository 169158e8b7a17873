// SPDX-License-Identifier: MIT
#include "facade/sim/sim_shares.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

#include "places/host_tree.h"
#include "places/network.h"
#include "places/network_path.h"

namespace pnl::sim {
namespace {

/// A server or share that can be named by a network path.
struct Place {
  std::string folder;  // of a share; empty when it has none
  int error = 0;
};

/// By remote name in capitals: "\\SERVER" or "\\SERVER\SHARE".
using PlaceTable = std::map<Text, Place>;

void AddPlaces(const std::vector<rig::NetworkNode>& nodes, int serverError, PlaceTable& places) {
  for (const rig::NetworkNode& node : nodes) {
    const int error = node.error != 0 ? node.error : serverError;
    // A share may also occur as a connected resource. The one that has something to say counts. Nobody asks for what
    // has no remote name.
    Place& place = places[ToUpper(node.remote)];
    if (place.folder.empty()) place.folder = node.dir;
    if (place.error == 0) place.error = error;
    AddPlaces(node.children, node.display == network_display::kServer ? error : serverError, places);
  }
}

class ShareReader final : public FolderReader {
 public:
  ShareReader(PlaceTable places, std::shared_ptr<SimHold> hold) : places_(std::move(places)), hold_(std::move(hold)) {}

  int List(TextView folder, const Take& take) const override {
    const Target target = Find(folder);
    if (target.tree) return target.tree->List(target.names, take);
    if (target.error == place_error::kNone && !target.isServer) {
      static_cast<void>(take({{u".", true, false, true, 0, 0}, {u"..", true, false, true, 0, 0}}));
    }
    return target.error;
  }
  int Probe(TextView folder) const override {
    const Target target = Find(folder);
    return target.tree ? target.tree->Probe(target.names) : target.error;
  }
  bool Exists(TextView path) const override {
    const Target target = Find(path);
    return target.tree ? target.tree->Exists(target.names) : target.error == place_error::kNone;
  }
  bool IsReadOnly(TextView path) const override {
    const Target target = Find(path);
    return target.tree && target.tree->IsReadOnly(target.names);
  }
  int MakeFolder(TextView path) const override {
    const Target target = Find(path);
    if (target.tree) return target.tree->MakeFolder(target.names);
    return target.error != place_error::kNone ? target.error : place_error::kAlreadyExists;
  }
  std::optional<std::string> ReadStart(TextView path, std::size_t most) const override {
    const Target target = Find(path);
    return target.tree ? target.tree->ReadStart(target.names, most) : std::nullopt;
  }

 private:
  /// Where a path leads. With neither an error nor a tree it is there and empty.
  struct Target {
    int error = place_error::kNone;
    bool isServer = false;
    std::optional<HostTree> tree;
    HostTree::Names names;
  };

  [[nodiscard]] Target Find(TextView text) const {
    hold_->WaitWhileHeld('\\');
    auto path = ParseNetworkPath(text);
    if (!path) return {place_error::kPathNotFound, false, {}, {}};
    const bool isServer = path->share.empty();
    const auto found =
        places_.find(ToUpper(isServer ? ServerPath(path->server) : SharePath(path->server, path->share)));
    if (found == places_.end()) return {place_error::kPathNotFound, false, {}, {}};
    if (found->second.error != 0) return {found->second.error, false, {}, {}};
    if (isServer) return {place_error::kNone, true, {}, {}};
    if (!found->second.folder.empty()) {
      return {place_error::kNone, false, HostTree(found->second.folder, HostTree::Root::kShare),
              std::move(path->names)};
    }
    return {path->names.empty() ? place_error::kNone : place_error::kPathNotFound, false, {}, {}};
  }

  const PlaceTable places_;
  std::shared_ptr<SimHold> hold_;
};

}  // namespace

std::shared_ptr<const FolderReader> MakeShareReader(const std::vector<rig::NetworkNode>& roots,
                                                    std::shared_ptr<SimHold> hold) {
  PlaceTable places;
  AddPlaces(roots, 0, places);
  return std::make_shared<ShareReader>(std::move(places), std::move(hold));
}

}  // namespace pnl::sim
