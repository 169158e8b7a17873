// SPDX-License-Identifier: MIT
// ZCFolderTree: the explorer's tree on the screen. Shows the nodes that the logic has and reports which one the
// operator selects or opens. A node that hasn't been read opens only when the logic has read it.
#pragma once

#include <unordered_map>

#include "controls/zwc_list_ctrl.h"
#include "controls/zwc_tree_ctrl.h"
#include "explorer/xplr_nodes.h"
#include "window/qt/message_control.h"

namespace pnl {

class ZCFolderTree : public MessageControl<ZWCTreeCtrl> {
  Q_OBJECT

 public:
  ZCFolderTree(int id, QWidget* parent);

  void SetLook(int fontHeight, ImageList icons);
  void AddNodes(const XplrNodes& nodes, NodeId parent, std::size_t index, std::size_t count);
  void UpdateNode(const XplrNodes& nodes, NodeId node);
  void RemoveNode(NodeId node);
  // Neither of these is signalled.
  void SelectNode(NodeId node);
  void OpenNode(NodeId node);

 signals:
  /// walked: by a key that goes from node to node.
  void NodeSelected(NodeId node, bool walked);
  void NodeOpening(NodeId node, bool walked);
  /// The selected node was pressed again.
  void NodeTouched(NodeId node);
  void Focused(bool focused);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  [[nodiscard]] QTreeWidgetItem* ItemOf(NodeId node) const;
  [[nodiscard]] static NodeId NodeOf(const QTreeWidgetItem* item);
  void OnExpanded(QTreeWidgetItem* item);
  void OnSelectionChanged();
  void Dress(QTreeWidgetItem& item, const XplrNode& node) const;

  ImageList icons_;
  std::unordered_map<NodeId, QTreeWidgetItem*> items_;
  bool silent_ = false;
  bool walking_ = false;
};

}  // namespace pnl
