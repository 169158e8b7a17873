// SPDX-License-Identifier: MIT
// The part of XplrTree that keeps the drives among its roots as they are: they come and go while the tree is open.
#include <algorithm>
#include <iterator>
#include <utility>

#include "explorer/xplr_tree.h"

namespace pnl {

void XplrTree::UpdateDrives() {
  const Places& places = links_.folders.Drives();
  const DriveMask all = (places.LogicalDrives() | places.RememberedDrives()) & ~places.HiddenDrives();
  const auto nodeOf = [&](char letter) -> std::optional<XplrNode> {
    if ((all & DriveBit(static_cast<char16_t>(letter))) == 0) return std::nullopt;
    return DriveNode(letter, places, links_.state.Has(XPLR_HIDELOCKED), unavailable_);
  };
  // What comes is there before anything goes: it may be the neighbour that gets the selection.
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    auto node = nodeOf(letter);
    if (!node) continue;
    if (drives_.count(letter) == 0) {
      InsertDrive(letter, std::move(*node));
    } else {
      ChangeDrive(letter, std::move(*node));
    }
  }
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    if (drives_.count(letter) != 0 && !nodeOf(letter)) RemoveDrive(letter);
  }
}

void XplrTree::InsertDrive(char letter, XplrNode node) {
  const auto index = static_cast<std::size_t>(std::distance(drives_.begin(), drives_.lower_bound(letter)));
  drives_[letter] = nodes_.Insert(kNoNode, index, std::move(node));
  links_.view().OnNodesAdded(nodes_, kNoNode, index, 1);
}

/// A drive that is locked, or of another type, is another node; one with another label is the same.
void XplrTree::ChangeDrive(char letter, XplrNode node) {
  const NodeId drive = drives_.at(letter);
  const XplrNode& shown = nodes_.At(drive);
  if (shown.kind != node.kind || shown.image != node.image) {
    RemoveDrive(letter);
    InsertDrive(letter, std::move(node));
  } else if (shown.text != node.text) {
    nodes_.SetText(drive, std::move(node.text));
    links_.view().OnNodeChanged(nodes_, drive);
  }
}

void XplrTree::RemoveDrive(char letter) {
  const NodeId drive = drives_.at(letter);
  const bool selected = selected_ != kNoNode && RootOf(selected_) == drive;
  const NodeId next = selected ? NeighbourOf(drive) : selected_;
  drives_.erase(letter);
  links_.view().OnNodeRemoving(drive);
  nodes_.Remove(drive);
  Select(next);
}

/// The next drive, else the one before; without another drive the next root. An operator who takes a stick out wants
/// files, which the network's roots don't have.
NodeId XplrTree::NeighbourOf(NodeId root) const {
  const std::vector<NodeId>& roots = nodes_.Children(kNoNode);
  const auto at = static_cast<std::size_t>(std::find(roots.begin(), roots.end(), root) - roots.begin());
  if (at + 1 < drives_.size()) return roots[at + 1];
  if (at > 0) return roots[at - 1];
  return roots.size() > 1 ? roots[1] : kNoNode;
}

NodeId XplrTree::RootOf(NodeId node) const {
  while (nodes_.Parent(node) != kNoNode) node = nodes_.Parent(node);
  return node;
}

}  // namespace pnl
