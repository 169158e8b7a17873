// SPDX-License-Identifier: MIT
// The folder tree of the explorer. It is filled with drives and network, opened node by node, and walked to a path. A
// selected node changes the state's Path and makes the form load or empty the list. It draws nothing. It asks discs and
// servers beside the window's thread, so an operation may still be under way when its call returns.
#pragma once

#include <functional>
#include <map>
#include <vector>

#include "explorer/xplr_folders.h"
#include "explorer/xplr_messages.h"
#include "explorer/xplr_nodes.h"
#include "explorer/xplr_outcomes.h"
#include "explorer/xplr_state.h"
#include "explorer/xplr_view.h"

namespace pnl {

class XplrTree {
 public:
  struct Links {
    XplrState& state;
    const XplrFolders& folders;
    const XplrPosts& posts;
    XplrViewAccess view;
    /// Shows why a folder can't be used. Stays on the message line until the next change.
    std::function<void(const XplrNotice&)> show;
  };
  explicit XplrTree(Links links) : links_(std::move(links)) {}

  /// Adds drives and network and goes to the start folder, then calls then. unavailable is the text of a locked drive.
  void Fill(TextView unavailable, std::function<void()> then);
  /// Shows the drives that there are now. A selection in a drive that has gone goes to the drive next to it.
  void UpdateDrives();
  /// Goes to Path, in folder mode to File in it, and puts Path right when the way ends elsewhere; then calls then.
  void LocateTreeNode(std::function<void()> then);
  /// The operator opens a node on the screen.
  void OnNodeOpening(NodeId node);
  /// Another node is selected. Ignored until the tree is filled.
  void OnNodeSelected(NodeId node, bool updateList);
  /// Opens the selected node and selects the child that File names.
  void StepIntoChild();
  /// Applies the selection to the name and gets the focus.
  void TakeSelection();
  /// Applies the selection to the name, once the tree is filled.
  void OnFocus();
  /// Marks the servers and shares that have failed. failed is asked for each path.
  void ShowFailures(const std::function<bool(TextView path)>& failed);
  /// Goes up to a folder on the way to the selected one. Does nothing for any other folder.
  void GoUp(const Text& folder);
  /// The folder that was searched for: goes there.
  void GoTo(Text folder);

  [[nodiscard]] const XplrNodes& Nodes() const { return nodes_; }
  [[nodiscard]] NodeId Selected() const { return selected_; }

 private:
  struct Walk {
    Text want;           // where it goes
    std::size_t at = 0;  // the part that has been walked
    NodeId node = kNoNode;
    std::function<void()> then;
  };
  void RemoveDrive(char letter);
  void InsertDrive(char letter, XplrNode node);
  void ChangeDrive(char letter, XplrNode node);
  [[nodiscard]] NodeId NeighbourOf(NodeId root) const;
  [[nodiscard]] NodeId RootOf(NodeId node) const;
  void AddNetwork(const std::vector<NetworkResource>& resources);
  void AddProvider(XplrNode node);
  void AddShown(NodeId parent, XplrNode node);
  [[nodiscard]] Text Wanted() const;
  void TakeStep(Walk walk);
  void Reconcile(const Walk& walk);
  /// Reads what is below a node, then calls then: true when children came.
  void ExpandNode(NodeId node, std::function<void(bool)> then);
  void OnExpanded(NodeId node, bool children);
  void AddBelow(NodeId node, const Neighbours& found);
  void AddFolders(NodeId node, std::vector<Text> names);
  void MarkEmpty(NodeId node);
  void Select(NodeId node);
  void Leave();
  void Refuse(const XplrNotice& notice);
  void Accept(bool updateList);
  [[nodiscard]] bool ApplySelection();
  void ShowFolder(bool isFolder);
  [[nodiscard]] bool HasFocus() const;

  const Links links_;
  XplrNodes nodes_;
  Text unavailable_;
  std::map<char, NodeId> drives_;  // the first of the roots, by letter
  NodeId networkRoot_ = kNoNode;
  NodeId selected_ = kNoNode;
  bool filled_ = false;
  bool selecting_ = false;
  unsigned selections_ = 0;  // an answer for an earlier selection comes too late
  std::map<NodeId, std::vector<std::function<void(bool)>>> expanding_;
};

}  // namespace pnl
