// SPDX-License-Identifier: MIT
// The nodes of the folder tree as data: drives, folders and the network, each with its text, images and kind. Reads no
// disc and shows nothing: the explorer's tree fills it, and the window shows what is in it.
#pragma once

#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "explorer/xplr_ids.h"
#include "places/network.h"
#include "places/places.h"

namespace pnl {

/// Identifies a node; 0 is none, and above the roots. Never used twice in one tree.
using NodeId = int;
inline constexpr NodeId kNoNode = 0;

struct XplrNode {
  Text text;
  int image = 0;
  int selectedImage = 0;
  NodeKind kind = NodeKind::kNone;
  bool hasChildren = true;  // shows the mark by which it is opened; corrected when it is
  bool failed = false;      // a share or server that didn't answer
};

class XplrNodes {
 public:
  /// Adds a node as the last child of parent (kNoNode: as the last root).
  NodeId Add(NodeId parent, XplrNode node) { return Insert(parent, Children(parent).size(), std::move(node)); }
  /// Adds a node as the child of parent that has that index afterwards.
  NodeId Insert(NodeId parent, std::size_t index, XplrNode node);
  /// Adds folders as children of parent, which has none, sorted by name without regard to case. Returns how many.
  std::size_t AddFolders(NodeId parent, std::vector<Text> names);
  /// Removes a node with everything below it.
  void Remove(NodeId node);
  void SetHasChildren(NodeId node, bool has) { rows_.at(node).node.hasChildren = has; }
  void SetFailed(NodeId node, bool failed) { rows_.at(node).node.failed = failed; }
  void SetText(NodeId node, Text text) { rows_.at(node).node.text = std::move(text); }

  [[nodiscard]] bool Exists(NodeId node) const { return rows_.count(node) != 0; }
  /// All servers and shares.
  [[nodiscard]] std::vector<NodeId> NetworkPlaces() const;
  /// The node must exist.
  [[nodiscard]] const XplrNode& At(NodeId node) const { return rows_.at(node).node; }
  [[nodiscard]] NodeId Parent(NodeId node) const { return rows_.at(node).parent; }
  /// In their order on the screen; kNoNode gives the roots.
  [[nodiscard]] const std::vector<NodeId>& Children(NodeId node) const;
  [[nodiscard]] bool IsLoaded(NodeId node) const { return !Children(node).empty(); }

  /// The name by which a node is part of a path. For an unavailable drive the part before the first blank.
  [[nodiscard]] Text NodeName(NodeId node) const;
  /// The path of a node: names joined by backslashes. A drive is its letter and colon; a server begins the path.
  [[nodiscard]] Text BuildNodePath(NodeId node) const;
  /// The child with that name, without regard to case. Of a root's name only the part up to its colon counts.
  [[nodiscard]] NodeId FindChild(NodeId parent, TextView name) const;
  /// The name of the provider that a network node belongs to: its ancestor directly below the network's root.
  [[nodiscard]] Text ProviderOf(NodeId node, NodeId networkRoot) const;

 private:
  struct Row {
    XplrNode node;
    NodeId parent = kNoNode;
    std::vector<NodeId> children;
  };
  [[nodiscard]] Text PathName(NodeId node) const;

  std::map<NodeId, Row> rows_;
  std::vector<NodeId> roots_;
  NodeId next_ = 1;
};

/// The node of a drive; nothing for a type of drive that has none. unavailable is the text of a locked drive.
[[nodiscard]] std::optional<XplrNode> DriveNode(char letter, const Places& places, bool hideLocked,
                                                TextView unavailable);
/// The node that a resource becomes, by its display type; nothing for a type that has none.
[[nodiscard]] std::optional<XplrNode> NetworkNodeOf(const NetworkResource& resource);
/// What is enumerated below a network node of that kind.
[[nodiscard]] NetworkResource ResourceBelow(NodeKind kind, TextView name, TextView provider);
/// True when a resource of that display type belongs below a node of that kind.
[[nodiscard]] bool FitsBelow(NodeKind kind, int display);

}  // namespace pnl
