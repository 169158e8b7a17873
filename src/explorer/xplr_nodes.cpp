// SPDX-License-Identifier: MIT
#include "explorer/xplr_nodes.h"

#include <algorithm>
#include <iterator>

#include "base/format.h"
#include "base/merge_sort.h"

namespace pnl {
namespace {

/// Indices in the image list of tree and list.
namespace image {
constexpr int kFolder = 2;
constexpr int kOpenFolder = 3;
constexpr int kFloppy = 4;
constexpr int kDrive = 5;
constexpr int kNetworkDrive = 6;
constexpr int kCd = 7;
constexpr int kProvider = 8;
constexpr int kDomain = 9;
constexpr int kServer = 10;
constexpr int kLocked = 11;
constexpr int kNetworkRoot = 12;
}  // namespace image

constexpr TextView kEntireNetwork = u"Entire Network";

/// A drive's letter and colon, without what is shown after them. Any other text as it is.
TextView CutDrive(TextView name) { return name.size() > 1 && name[1] == u':' ? name.substr(0, 2) : name; }

Text DriveText(char letter, int type, const Places& places) {
  const auto sign = static_cast<char16_t>(letter);
  if (type == drive_type::kNetwork) {
    const Places::RemoteName remote = places.DriveRemoteName(letter);
    const bool known = remote.error == place_error::kNone || remote.error == place_error::kNotConnected;
    if (known && !remote.name.empty()) return Format(u"%c:  (%s)", sign, remote.name);
  }
  if (type == drive_type::kFixed) {
    const std::optional<Text> label = places.VolumeLabel(letter);
    if (label && !label->empty()) return Format(u"%c:  (%s)", sign, *label);
  }
  return Format(u"%c:", sign);
}

std::optional<int> DriveImage(char letter, int type) {
  switch (type) {
    case drive_type::kRemovable:
    case drive_type::kFixed:
      return letter == 'A' || letter == 'B' ? image::kFloppy : image::kDrive;
    case drive_type::kNetwork:
      return image::kNetworkDrive;
    case drive_type::kCd:
      return image::kCd;
    default:
      return std::nullopt;
  }
}

XplrNode Node(Text text, int image, int selectedImage, NodeKind kind) {
  return {std::move(text), image, selectedImage, kind, true, false};
}

const Text& FirstOf(const Text& first, const Text& second) { return first.empty() ? second : first; }

}  // namespace

const std::vector<NodeId>& XplrNodes::Children(NodeId node) const {
  return node == kNoNode ? roots_ : rows_.at(node).children;
}

NodeId XplrNodes::Insert(NodeId parent, std::size_t index, XplrNode node) {
  const NodeId id = next_++;
  rows_[id] = {std::move(node), parent, {}};
  std::vector<NodeId>& children = parent == kNoNode ? roots_ : rows_.at(parent).children;
  children.insert(children.begin() + static_cast<std::ptrdiff_t>(index), id);
  return id;
}

std::size_t XplrNodes::AddFolders(NodeId parent, std::vector<Text> names) {
  MergeSort(names, [](const Text& a, const Text& b) { return CompareNoCase(a, b) < 0; });
  for (Text& name : names) Add(parent, Node(std::move(name), image::kFolder, image::kOpenFolder, NodeKind::kFolder));
  return names.size();
}

void XplrNodes::Remove(NodeId node) {
  const auto found = rows_.find(node);
  if (found == rows_.end()) return;
  // A copy: each removal changes the parent's own list.
  for (const NodeId child : std::vector<NodeId>(found->second.children)) Remove(child);
  const NodeId parent = found->second.parent;
  std::erase(parent == kNoNode ? roots_ : rows_.at(parent).children, node);
  rows_.erase(found);
}

Text XplrNodes::NodeName(NodeId node) const {
  const XplrNode& found = At(node);
  if (found.image != image::kLocked) return found.text;
  const Text name = found.text.substr(0, found.text.find(u' '));
  return name.empty() ? found.text : name;
}

std::vector<NodeId> XplrNodes::NetworkPlaces() const {
  std::vector<NodeId> places;
  for (const auto& [id, row] : rows_) {
    if (row.node.kind == NodeKind::kServer || row.node.kind == NodeKind::kNetwork) places.push_back(id);
  }
  return places;
}

/// The node's part of a path.
Text XplrNodes::PathName(NodeId node) const {
  Text name = NodeName(node);
  return Parent(node) == kNoNode ? Text(CutDrive(name)) : name;
}

Text XplrNodes::BuildNodePath(NodeId node) const {
  if (At(node).kind == NodeKind::kServer) return At(node).text;
  Text path = PathName(node);
  for (NodeId up = Parent(node); up != kNoNode; up = Parent(up)) {
    path.insert(0, PathName(up) + u'\\');
    if (At(up).kind == NodeKind::kServer) break;
  }
  return path;
}

NodeId XplrNodes::FindChild(NodeId parent, TextView name) const {
  const std::vector<NodeId>& children = Children(parent);
  const auto found =
      std::find_if(children.begin(), children.end(), [&](NodeId child) { return EqualNoCase(PathName(child), name); });
  return found == children.end() ? kNoNode : *found;
}

Text XplrNodes::ProviderOf(NodeId node, NodeId networkRoot) const {
  for (NodeId at = node; at != kNoNode; at = Parent(at)) {
    if (Parent(at) == networkRoot && networkRoot != kNoNode) return NodeName(at);
  }
  return {};
}

std::optional<XplrNode> DriveNode(char letter, const Places& places, bool hideLocked, TextView unavailable) {
  const DriveMask bit = DriveBit(static_cast<char16_t>(letter));
  // A drive that is only remembered isn't there to have a type.
  const int type = (places.LogicalDrives() & bit) != 0 ? places.DriveType(letter) : drive_type::kNetwork;
  if ((places.LockedDrives() & bit) != 0) {
    if (!hideLocked && !DriveImage(letter, type)) return std::nullopt;
    XplrNode node = Node(Format(u"%c:  (%s)", static_cast<char16_t>(letter), unavailable), image::kLocked,
                         image::kLocked, hideLocked ? NodeKind::kUnavailable : static_cast<NodeKind>(type));
    node.hasChildren = !hideLocked;
    return node;
  }
  const std::optional<int> picture = DriveImage(letter, type);
  if (!picture) return std::nullopt;
  return Node(DriveText(letter, type, places), *picture, *picture, static_cast<NodeKind>(type));
}

std::optional<XplrNode> NetworkNodeOf(const NetworkResource& resource) {
  switch (resource.display) {
    case network_display::kGeneric:
    case network_display::kTree:
      return Node(FirstOf(resource.local, resource.remote), image::kFolder, image::kOpenFolder, NodeKind::kNetwork);
    case network_display::kDomain:
      return Node(resource.remote, image::kDomain, image::kDomain, NodeKind::kDomain);
    case network_display::kServer:
      return Node(resource.remote, image::kServer, image::kServer, NodeKind::kServer);
    case network_display::kShare: {
      const std::size_t slash = resource.remote.rfind(u'\\');
      return Node(slash == Text::npos ? resource.remote : resource.remote.substr(slash + 1), image::kFolder,
                  image::kOpenFolder, NodeKind::kNetwork);
    }
    case network_display::kProvider:
      return Node(FirstOf(resource.provider, resource.remote), image::kProvider, image::kProvider, NodeKind::kProvider);
    case network_display::kRoot:
      return Node(resource.comment.empty() ? Text(kEntireNetwork) : resource.comment, image::kNetworkRoot,
                  image::kNetworkRoot, NodeKind::kNetworkRoot);
    default:
      return std::nullopt;
  }
}

NetworkResource ResourceBelow(NodeKind kind, TextView name, TextView provider) {
  NetworkResource resource;
  resource.provider = provider;
  switch (kind) {
    case NodeKind::kDomain:
      resource.display = network_display::kDomain;
      resource.remote = name;
      break;
    case NodeKind::kServer:
      resource.display = network_display::kServer;
      resource.remote = name;
      break;
    default:
      resource.display = kind == NodeKind::kProvider ? network_display::kProvider : network_display::kGeneric;
      resource.comment = name;
      break;
  }
  return resource;
}

bool FitsBelow(NodeKind kind, int display) {
  switch (kind) {
    case NodeKind::kProvider:
      return display == network_display::kDomain || display == network_display::kServer;
    case NodeKind::kDomain:
      return display == network_display::kServer;
    case NodeKind::kServer:
      return display == network_display::kGeneric || display == network_display::kShare;
    default:
      return false;
  }
}

}  // namespace pnl
