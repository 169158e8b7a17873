// SPDX-License-Identifier: MIT
#include "explorer/xplr_tree.h"

#include <utility>

#include "base/format.h"

namespace pnl {
namespace {

/// The list's mode for the folder of a node.
ListMode ModeOf(NodeKind kind) {
  if (kind == NodeKind::kServer) return ListMode::kShares;
  return kind == NodeKind::kProvider || kind == NodeKind::kDomain ? ListMode::kNothing : ListMode::kFolder;
}

/// Whether the folder of a node is looked at before the operator opens the node.
bool IsProbedOnOpening(NodeKind kind) {
  const auto number = static_cast<int>(kind);
  return (number >= 2 && number <= 6) || kind == NodeKind::kFolder;
}

bool IsDrivePath(TextView path) { return path.size() > 1 && path[1] == u':'; }
bool IsNetworkPath(TextView path) { return path.size() > 1 && path[1] == u'\\'; }

}  // namespace

void XplrTree::Fill(TextView unavailable, std::function<void()> then) {
  unavailable_ = unavailable;
  UpdateDrives();
  const auto done = [this, then = std::move(then)] {
    filled_ = true;
    then();
  };
  // A path on a drive doesn't wait for the network.
  const bool waits = IsNetworkPath(links_.state.Path);
  links_.folders.EnumerateTop([this, waits, done](const std::vector<NetworkResource>& resources) {
    AddNetwork(resources);
    if (waits) LocateTreeNode(done);
  });
  if (!waits) LocateTreeNode(done);
}

void XplrTree::AddNetwork(const std::vector<NetworkResource>& resources) {
  for (const NetworkResource& resource : resources) {
    auto node = NetworkNodeOf(resource);
    if (!node) continue;
    if (resource.display == network_display::kProvider) {
      AddProvider(std::move(*node));
    } else if (resource.display == network_display::kRoot) {
      AddShown(kNoNode, std::move(*node));
      networkRoot_ = nodes_.Children(kNoNode).back();
    } else if (node->kind == NodeKind::kNetwork) {
      AddShown(kNoNode, std::move(*node));
    }
  }
}

void XplrTree::AddProvider(XplrNode node) {
  if (networkRoot_ == kNoNode) {
    NetworkResource root;
    root.display = network_display::kRoot;
    AddShown(kNoNode, *NetworkNodeOf(root));
    networkRoot_ = nodes_.Children(kNoNode).back();
  }
  if (nodes_.FindChild(networkRoot_, node.text) == kNoNode) AddShown(networkRoot_, std::move(node));
}

void XplrTree::AddShown(NodeId parent, XplrNode node) {
  const std::size_t index = nodes_.Children(parent).size();
  nodes_.Add(parent, std::move(node));
  links_.view().OnNodesAdded(nodes_, parent, index, 1);
}

Text XplrTree::Wanted() const {
  const XplrState& state = links_.state;
  return state.IsFolderMode() && !state.File.empty() ? Format(u"%s\\%s", state.Path, state.File) : state.Path;
}

void XplrTree::LocateTreeNode(std::function<void()> then) {
  XplrState& state = links_.state;
  if (!IsDrivePath(state.Path)) {
    if (IsNetworkPath(state.Path)) {
      Select(networkRoot_);
      state.Kind = NodeKind::kNetwork;
      then();
      return;
    }
    state.Path = Format(u"%c:", static_cast<char16_t>(links_.folders.Drives().CurrentDrive()));
  }
  TakeStep({Wanted(), 0, kNoNode, std::move(then)});
}

void XplrTree::TakeStep(Walk walk) {
  while (walk.at <= walk.want.size()) {
    const std::size_t end = std::min(walk.want.find(u'\\', walk.at), walk.want.size());
    const NodeId found = nodes_.FindChild(walk.node, TextView(walk.want).substr(walk.at, end - walk.at));
    if (found == kNoNode) break;
    Select(found);
    links_.state.Kind = nodes_.At(found).kind;
    walk.node = found;
    walk.at = end + 1;
    if (walk.at > walk.want.size()) break;
    if (!nodes_.IsLoaded(found)) {
      ExpandNode(found, [this, walk](bool children) {
        if (!children) MarkEmpty(walk.node);
        // Where the operator has gone meanwhile the walk ends, too.
        if (!children || selected_ != walk.node) {
          Reconcile(walk);
          return;
        }
        links_.view().OpenNode(walk.node);
        TakeStep(walk);
      });
      return;
    }
    links_.view().OpenNode(found);
  }
  Reconcile(walk);
}

void XplrTree::Reconcile(const Walk& walk) {
  XplrState& state = links_.state;
  const Text there = selected_ == kNoNode ? Text() : nodes_.BuildNodePath(selected_);
  if (selected_ == kNoNode || !EqualNoCase(there, walk.want)) {
    state.Path = there;
    state.ResultFlags |= xplr_result::kElsewhere;
  } else if (state.IsFolderMode()) {
    state.Path = walk.want;
    state.File.clear();
  } else {
    static_cast<void>(ApplySelection());
    ShowFolder(true);
  }
  walk.then();
}

void XplrTree::ExpandNode(NodeId node, std::function<void(bool)> then) {
  std::vector<std::function<void(bool)>>& waiting = expanding_[node];
  waiting.push_back(std::move(then));
  if (waiting.size() > 1) return;
  const NodeKind kind = nodes_.At(node).kind;
  if (kind == NodeKind::kProvider || kind == NodeKind::kDomain || kind == NodeKind::kServer) {
    links_.folders.Enumerate(ResourceBelow(kind, nodes_.NodeName(node), nodes_.ProviderOf(node, networkRoot_)),
                             [this, node](const Neighbours& found) { AddBelow(node, found); });
  } else {
    links_.folders.ListFolders(nodes_.BuildNodePath(node),
                               [this, node](std::vector<Text> names) { AddFolders(node, std::move(names)); });
  }
}

void XplrTree::AddBelow(NodeId node, const Neighbours& found) {
  bool children = false;
  if (nodes_.Exists(node)) {
    const NodeKind kind = nodes_.At(node).kind;
    for (const NetworkResource& resource : found.resources) {
      if (!FitsBelow(kind, resource.display)) continue;
      NetworkResource below = resource;
      // What a server shares is one of its shares, whatever it is shown as.
      if (kind == NodeKind::kServer) below.display = network_display::kShare;
      AddShown(node, *NetworkNodeOf(below));
      children = true;
    }
    if (!children) MarkEmpty(node);
  }
  // A neighbourhood that can't be opened loses its mark and counts as opened all the same.
  OnExpanded(node, children || !found.opened);
}

void XplrTree::AddFolders(NodeId node, std::vector<Text> names) {
  const bool there = nodes_.Exists(node) && !names.empty();
  if (there) {
    const std::size_t index = nodes_.Children(node).size();
    const std::size_t count = nodes_.AddFolders(node, std::move(names));
    links_.view().OnNodesAdded(nodes_, node, index, count);
  }
  OnExpanded(node, there);
}

void XplrTree::OnExpanded(NodeId node, bool children) {
  const auto found = expanding_.find(node);
  if (found == expanding_.end()) return;
  const std::vector<std::function<void(bool)>> waiting = std::move(found->second);
  expanding_.erase(found);
  for (const auto& then : waiting) then(children);
}

void XplrTree::MarkEmpty(NodeId node) {
  if (!nodes_.Exists(node) || !nodes_.At(node).hasChildren) return;
  nodes_.SetHasChildren(node, false);
  links_.view().OnNodeChanged(nodes_, node);
}

void XplrTree::OnNodeOpening(NodeId node) {
  if (!nodes_.Exists(node) || !nodes_.At(node).hasChildren) return;
  if (nodes_.IsLoaded(node)) {
    links_.view().OpenNode(node);
    return;
  }
  const auto open = [this, node] {
    ExpandNode(node, [this, node](bool children) {
      if (!children) {
        MarkEmpty(node);
      } else if (nodes_.Exists(node) && nodes_.IsLoaded(node)) {
        links_.view().OpenNode(node);
      }
    });
  };
  if (!HasFocus() || !IsProbedOnOpening(nodes_.At(node).kind)) {
    open();
    return;
  }
  links_.folders.Classify(nodes_.BuildNodePath(node), links_.view().Handle(), [this, node, open](Outcome outcome) {
    if (outcome == Outcome::kFolderUsable && nodes_.Exists(node)) open();
  });
}

/// Selecting by the logic is reported as the operator's selecting is.
void XplrTree::Select(NodeId node) {
  if (node == selected_) return;
  links_.view().SelectNode(node);
  OnNodeSelected(node, true);
}

void XplrTree::OnNodeSelected(NodeId node, bool updateList) {
  selected_ = node;
  if (!filled_ || selecting_) return;
  // A window that goes in the middle takes this object with it only after the operation.
  selecting_ = true;
  struct Ended {
    bool& flag;
    ~Ended() { flag = false; }
  } const ended{selecting_};
  const unsigned selection = ++selections_;
  if (node == kNoNode) {
    Leave();
    return;
  }
  XplrState& state = links_.state;
  state.Path = nodes_.BuildNodePath(node);
  state.Kind = nodes_.At(node).kind;
  ShowFolder(true);
  if (!HasFocus()) {
    Accept(updateList);
    return;
  }
  if (ModeOf(state.Kind) == ListMode::kNothing) {
    Refuse({});
    return;
  }
  const auto answered = std::make_shared<bool>(false);
  links_.folders.Classify(state.Path, links_.view().Handle(), [this, selection, updateList, answered](Outcome outcome) {
    *answered = true;
    if (selection != selections_) return;
    if (outcome == Outcome::kFolderUsable) {
      Accept(updateList);
    } else {
      Refuse(NoticeOf(outcome));
    }
  });
  // No row of the folder before may be picked while the answer is awaited.
  if (!*answered) links_.posts.Send(XplrWindow::kForm, XplrMessage::kResetList);
}

void XplrTree::Leave() {
  XplrState& state = links_.state;
  state.Path.clear();
  if (state.IsFolderMode()) state.File.clear();
  state.Kind = NodeKind::kNone;
  links_.posts.SendCaption(state.Caption(u""));
  ShowFolder(false);
  links_.posts.Post(XplrWindow::kForm, XplrMessage::kResetList);
  links_.posts.Post(XplrWindow::kFrame, XplrMessage::kUpdate);
}

void XplrTree::Refuse(const XplrNotice& notice) {
  links_.posts.SendCaption(links_.state.Caption(u""));
  links_.state.File.clear();
  links_.posts.Send(XplrWindow::kForm, XplrMessage::kResetList);
  links_.posts.Post(XplrWindow::kFrame, XplrMessage::kUpdate);
  if (notice.text != 0) links_.show(notice);
}

void XplrTree::Accept(bool updateList) {
  const XplrPosts& posts = links_.posts;
  if (ApplySelection()) posts.Post(XplrWindow::kForm, XplrMessage::kUpdateEdit);
  posts.Post(XplrWindow::kFrame, XplrMessage::kUpdate);
  if (!updateList) return;
  posts.Post(XplrWindow::kForm, XplrMessage::kUpdateList, static_cast<std::intptr_t>(ModeOf(links_.state.Kind)));
}

/// True when it did something: the place can't be picked from, or a folder is chosen by the tree.
bool XplrTree::ApplySelection() {
  XplrState& state = links_.state;
  if (!IsAcceptedPlace(state.Kind)) {
    links_.posts.SendCaption(state.Caption(u""));
    return true;
  }
  if (!state.IsFolderMode()) return false;
  state.File.clear();
  links_.posts.SendCaption(state.Caption(selected_ == kNoNode ? Text() : nodes_.NodeName(selected_)));
  return true;
}

void XplrTree::ShowFolder(bool isFolder) {
  constexpr std::intptr_t kIsFolder = 4;
  links_.posts.Post(XplrWindow::kForm, XplrMessage::kUpdateFolder, isFolder ? kIsFolder : 0);
}

bool XplrTree::HasFocus() const { return links_.view().FocusedControl() == xplr_control::kTree; }

void XplrTree::StepIntoChild() {
  const NodeId node = selected_;
  if (node == kNoNode) return;
  // The name may change while the folder is being read.
  const auto step = [this, node, name = links_.state.File](bool /*children*/) {
    if (!nodes_.Exists(node)) return;
    NodeId child = kNoNode;
    if (nodes_.At(node).hasChildren) {
      links_.view().OpenNode(node);
      child = nodes_.FindChild(node, name);
      if (child != kNoNode) Select(child);
    }
    OnNodeSelected(child, true);
  };
  if (!nodes_.At(node).hasChildren || nodes_.IsLoaded(node)) {
    step(true);
    return;
  }
  ExpandNode(node, [this, node, step](bool children) {
    if (!children) MarkEmpty(node);
    step(children);
  });
}

void XplrTree::TakeSelection() {
  static_cast<void>(ApplySelection());
  links_.view().FocusControl(xplr_control::kTree);
}

void XplrTree::OnFocus() {
  if (filled_) static_cast<void>(ApplySelection());
}

void XplrTree::GoUp(const Text& folder) {
  for (NodeId up = selected_; up != kNoNode; up = nodes_.Parent(up)) {
    if (EqualNoCase(nodes_.BuildNodePath(up), folder)) return Select(up);
  }
}

void XplrTree::ShowFailures(const std::function<bool(TextView path)>& failed) {
  for (const NodeId node : nodes_.NetworkPlaces()) {
    const bool now = failed(nodes_.BuildNodePath(node));
    if (now == nodes_.At(node).failed) continue;
    nodes_.SetFailed(node, now);
    links_.view().OnNodeChanged(nodes_, node);
  }
}

void XplrTree::GoTo(Text folder) {
  links_.state.Path = std::move(folder);
  LocateTreeNode([this] {
    OnNodeSelected(selected_, true);
    TakeSelection();
  });
}

}  // namespace pnl
