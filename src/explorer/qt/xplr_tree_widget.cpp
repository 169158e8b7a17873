// SPDX-License-Identifier: MIT
#include "explorer/qt/xplr_tree_widget.h"

#include <QtCore/QPointer>
#include <utility>

#include "window/qt/control_properties.h"
#include "window/qt/qt_text.h"

namespace pnl {
namespace {

constexpr Color kBack = 8621463;
constexpr Color kText = 0;
constexpr Color kSelectedBack = 4608090;
constexpr Color kSelectedText = 0xffffff;
constexpr int kFontWeight = 500;
constexpr int kNodeRole = Qt::UserRole;

}  // namespace

ZCFolderTree::ZCFolderTree(int id, QWidget* parent) : MessageControl(id, parent) {
  setSelectionMode(QAbstractItemView::SingleSelection);
  setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  connect(this, &QTreeWidget::itemExpanded, this, &ZCFolderTree::OnExpanded);
  connect(this, &QTreeWidget::itemSelectionChanged, this, &ZCFolderTree::OnSelectionChanged);
}

void ZCFolderTree::SetLook(int fontHeight, ImageList icons) {
  SetFont(QStringLiteral("Arial"), fontHeight, kFontWeight);
  QPalette colors = palette();
  colors.setColor(QPalette::Base, ToQColor(kBack));
  colors.setColor(QPalette::Text, ToQColor(kText));
  colors.setColor(QPalette::Highlight, ToQColor(kSelectedBack));
  colors.setColor(QPalette::HighlightedText, ToQColor(kSelectedText));
  setPalette(colors);
  setProperty("pnlBack", QVariant::fromValue<uint>(kBack));
  setProperty("pnlFore", QVariant::fromValue<uint>(kText));
  icons_ = std::move(icons);
  setIconSize(icons_.size);
}

QTreeWidgetItem* ZCFolderTree::ItemOf(NodeId node) const {
  const auto found = items_.find(node);
  return found == items_.end() ? nullptr : found->second;
}

NodeId ZCFolderTree::NodeOf(const QTreeWidgetItem* item) {
  return item == nullptr ? kNoNode : item->data(0, kNodeRole).toInt();
}

void ZCFolderTree::AddNodes(const XplrNodes& nodes, NodeId parent, std::size_t index, std::size_t count) {
  QList<QTreeWidgetItem*> added;
  for (std::size_t i = index; i < index + count; ++i) {
    const NodeId id = nodes.Children(parent)[i];
    const XplrNode& node = nodes.At(id);
    auto* item = new QTreeWidgetItem({ToQString(node.text)});
    item->setData(0, kNodeRole, id);
    item->setData(0, node_role::kKind, static_cast<int>(node.kind));
    item->setData(0, node_role::kImage, node.image);
    QIcon icon;
    if (const QPixmap* picture = icons_.At(node.image)) icon.addPixmap(*picture, QIcon::Normal, QIcon::Off);
    if (const QPixmap* picture = icons_.At(node.selectedImage)) icon.addPixmap(*picture, QIcon::Selected, QIcon::Off);
    item->setIcon(0, icon);
    item->setChildIndicatorPolicy(node.hasChildren ? QTreeWidgetItem::ShowIndicator
                                                   : QTreeWidgetItem::DontShowIndicator);
    items_[id] = item;
    added.append(item);
  }
  const bool before = std::exchange(silent_, true);
  if (QTreeWidgetItem* above = ItemOf(parent)) {
    above->insertChildren(static_cast<int>(index), added);
  } else {
    insertTopLevelItems(static_cast<int>(index), added);
  }
  silent_ = before;
}

void ZCFolderTree::UpdateNode(const XplrNodes& nodes, NodeId node) {
  QTreeWidgetItem* item = ItemOf(node);
  if (item == nullptr) return;
  item->setText(0, ToQString(nodes.At(node).text));
  item->setChildIndicatorPolicy(nodes.At(node).hasChildren ? QTreeWidgetItem::ShowIndicator
                                                           : QTreeWidgetItem::DontShowIndicator);
}

void ZCFolderTree::RemoveNode(NodeId node) {
  QTreeWidgetItem* item = ItemOf(node);
  if (item == nullptr) return;
  const bool before = std::exchange(silent_, true);
  for (const QTreeWidgetItem* gone : item->takeChildren()) RemoveNode(NodeOf(gone));
  items_.erase(node);
  delete item;
  silent_ = before;
}

void ZCFolderTree::SelectNode(NodeId node) {
  const bool before = std::exchange(silent_, true);
  setCurrentItem(ItemOf(node));
  silent_ = before;
}

void ZCFolderTree::OpenNode(NodeId node) {
  QTreeWidgetItem* item = ItemOf(node);
  if (item == nullptr) return;
  const bool before = std::exchange(silent_, true);
  item->setExpanded(true);
  scrollToItem(item);
  silent_ = before;
}

void ZCFolderTree::OnExpanded(QTreeWidgetItem* item) {
  if (silent_ || item->childCount() != 0) return;
  // It opens when its children are there.
  silent_ = true;
  item->setExpanded(false);
  silent_ = false;
  emit NodeOpening(NodeOf(item));
}

void ZCFolderTree::OnSelectionChanged() {
  if (!silent_) emit NodeSelected(NodeOf(SelectedNode()));
}

void ZCFolderTree::focusInEvent(QFocusEvent* event) {
  const QPointer<ZCFolderTree> alive = this;
  MessageControl::focusInEvent(event);
  if (alive) emit Focused(true);
}

void ZCFolderTree::focusOutEvent(QFocusEvent* event) {
  const QPointer<ZCFolderTree> alive = this;
  MessageControl::focusOutEvent(event);
  if (alive) emit Focused(false);
}

}  // namespace pnl
