// SPDX-License-Identifier: MIT
// The explorer's tree over fake drives, with what is sent and shown by it.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "explorer/xplr_rig.h"
#include "explorer/xplr_tree.h"

namespace pnl::test {

template <typename AWorker>
class TreeStage : public testing::Test {
 protected:
  TreeStage() {
    ground_.places.disc->AddFolder(u"C:\\CNC\\PROGRAMS\\DEEP");
    ground_.places.disc->AddFolder(u"C:\\CNC\\EMPTY");
    ground_.places.disc->AddFolder(u"C:\\CNC\\.HIDDEN");
    ground_.places.disc->AddFile(u"C:\\CNC\\NOTE.TXT");
    ground_.state.Title = u"Pick";
    ground_.state.Flags = 0;
  }
  void Fill(TextView path, TextView file = u"") {
    ground_.state.Path = path;
    ground_.state.File = file;
    tree_.Fill(u"unavailable", [this] { ++filled_; });
  }
  /// The start folder is selected and open.
  void FillAndOpen(TextView path) {
    Fill(path);
    tree_.OnNodeOpening(tree_.Selected());
    ground_.Take();
  }
  NodeId Find(const std::vector<Text>& names) {
    NodeId node = kNoNode;
    for (const Text& name : names) {
      node = tree_.Nodes().FindChild(node, name);
      if (node == kNoNode) return kNoNode;
    }
    return node;
  }
  std::vector<std::string> Texts(NodeId parent) {
    std::vector<std::string> texts;
    for (const NodeId child : tree_.Nodes().Children(parent)) texts.push_back(ToUtf8(tree_.Nodes().At(child).text));
    return texts;
  }
  /// As the operator's selecting, with the focus on the tree.
  void Pick(NodeId node) {
    ground_.view.focused = xplr_control::kTree;
    tree_.OnNodeSelected(node, true);
  }

  XplrGround<AWorker> ground_;
  std::vector<XplrNotice> shown_;
  int filled_ = 0;
  XplrTree tree_{{ground_.state, ground_.folders, ground_.posts, ground_.access,
                  [this](const XplrNotice& notice) { shown_.push_back(notice); }}};
};

using XplrTreeTest = TreeStage<InlineWorker>;
using XplrTreeSteps = TreeStage<SteppedWorker>;

}  // namespace pnl::test
