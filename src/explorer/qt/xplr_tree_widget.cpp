// SPDX-License-Identifier: MIT
#include "explorer/qt/xplr_tree_widget.h"

#include <QtCore/QPointer>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QStyledItemDelegate>
#include <algorithm>
#include <utility>

#include "controls/wide_scroll_bar.h"
#include "window/qt/control_properties.h"
#include "window/qt/finger.h"
#include "window/qt/qt_text.h"

namespace pnl {
namespace {

constexpr Color kBack = 8621463;
constexpr Color kText = 0;
constexpr Color kSelectedBack = 4608090;
constexpr Color kSelectedText = 0xffffff;
constexpr int kFontWeight = 500;
constexpr int kNodeRole = Qt::UserRole;
constexpr Color kFailedText = 0x080850;
constexpr Color kCross = 0x0000D0;

/// Keys that open a node. All others lead from node to node.
bool IsDeliberate(int key) { return key == Qt::Key_Space || key == Qt::Key_Plus; }

/// Rows that a finger can press.
class FingerRows final : public QStyledItemDelegate {
 public:
  explicit FingerRows(QTreeWidget* tree) : QStyledItemDelegate(tree), tree_(*tree) {}
  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const QSize size = QStyledItemDelegate::sizeHint(option, index);
    return {size.width(), std::max(size.height(), FingerPixels(tree_))};
  }

 private:
  const QTreeWidget& tree_;
};

/// The icon of a place that has failed: a cross in its corner.
QPixmap Crossed(const QPixmap& icon) {
  QPixmap crossed = icon;
  QPainter painter(&crossed);
  painter.setRenderHint(QPainter::Antialiasing);
  const double side = icon.deviceIndependentSize().width();
  const QRectF corner(side * 0.45, side * 0.45, side * 0.5, side * 0.5);
  for (const auto& [color, width] : {std::pair(QColor(Qt::white), side / 4), {ToQColor(kCross), side / 7}}) {
    painter.setPen(QPen(color, width, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(corner.topLeft(), corner.bottomRight());
    painter.drawLine(corner.bottomLeft(), corner.topRight());
  }
  return crossed;
}

}  // namespace

ZCFolderTree::ZCFolderTree(int id, QWidget* parent) : MessageControl(id, parent) {
  setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  setVerticalScrollBar(new WideScrollBar(Qt::Vertical, this));
  setItemDelegate(new FingerRows(this));
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
    auto* item = new QTreeWidgetItem;
    item->setData(0, kNodeRole, id);
    Dress(*item, node);
    items_[id] = item;
    added.append(item);
  }
  if (QTreeWidgetItem* above = ItemOf(parent)) {
    above->insertChildren(static_cast<int>(index), added);
  } else {
    insertTopLevelItems(static_cast<int>(index), added);
  }
}

void ZCFolderTree::UpdateNode(const XplrNodes& nodes, NodeId node) {
  QTreeWidgetItem* item = ItemOf(node);
  if (item != nullptr) Dress(*item, nodes.At(node));
}

void ZCFolderTree::Dress(QTreeWidgetItem& item, const XplrNode& node) const {
  item.setText(0, ToQString(node.text));
  item.setData(0, node_role::kKind, static_cast<int>(node.kind));
  item.setData(0, node_role::kImage, node.image);
  item.setForeground(0, node.failed ? QBrush(ToQColor(kFailedText)) : QBrush());
  QIcon icon;
  for (const auto& [image, mode] : {std::pair(node.image, QIcon::Normal), {node.selectedImage, QIcon::Selected}}) {
    const QPixmap* picture = icons_.At(image);
    if (picture != nullptr) icon.addPixmap(node.failed ? Crossed(*picture) : *picture, mode, QIcon::Off);
  }
  item.setIcon(0, icon);
  item.setChildIndicatorPolicy(node.hasChildren ? QTreeWidgetItem::ShowIndicator : QTreeWidgetItem::DontShowIndicator);
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
  item->setExpanded(false);
  emit NodeOpening(NodeOf(item), walking_);
}

void ZCFolderTree::OnSelectionChanged() {
  if (!silent_) emit NodeSelected(NodeOf(SelectedNode()), walking_);
}

void ZCFolderTree::keyPressEvent(QKeyEvent* event) {
  const QPointer<ZCFolderTree> alive = this;
  const bool before = std::exchange(walking_, !IsDeliberate(event->key()));
  MessageControl::keyPressEvent(event);
  if (alive) walking_ = before;
}

void ZCFolderTree::mousePressEvent(QMouseEvent* event) {
  const QPointer<ZCFolderTree> alive = this;
  const NodeId before = NodeOf(SelectedNode());
  const NodeId pressed = NodeOf(itemAt(event->position().toPoint()));
  MessageControl::mousePressEvent(event);
  if (alive && pressed != kNoNode && pressed == before) emit NodeTouched(pressed);
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
