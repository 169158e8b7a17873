// SPDX-License-Identifier: MIT
#include "controls/zwc_tree_ctrl.h"

#include <QtGui/QKeyEvent>
#include <QtWidgets/QHeaderView>

#include "controls/fonts.h"
#include "window/qt/control_properties.h"

namespace pnl {
namespace {

/// This is deliberately not the minus sign: only the minus key of the numeric keypad may close a node, not a typed one.
constexpr char16_t kMinusCharacter = 0x2DA1;

}  // namespace

ZWCTreeCtrl::ZWCTreeCtrl(int id, QWidget* parent) : QTreeWidget(parent) {
  MarkControl(this, id, "tree");
  header()->hide();
  setUniformRowHeights(true);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
}

void ZWCTreeCtrl::SetFont(const QString& face, int height, int weight) {
  auto made = MakeFont(face, height, weight);
  if (!made) return;
  m_pFont = std::move(made);
  setFont(*m_pFont);
}

QTreeWidgetItem* ZWCTreeCtrl::SelectedNode() const {
  const auto selected = selectedItems();
  return selected.isEmpty() ? nullptr : selected.first();
}

void ZWCTreeCtrl::keyPressEvent(QKeyEvent* event) {
  if (OnKey(event->key(), event->modifiers())) return event->accept();
  for (const QChar character : event->text()) {
    if (OnCharacter(character.unicode())) return event->accept();
  }
  // The view would also close the node on a typed minus.
  if (event->key() == Qt::Key_Minus && (event->modifiers() & Qt::KeypadModifier) == 0) return event->accept();
  QTreeWidget::keyPressEvent(event);
}

bool ZWCTreeCtrl::OnKey(int key, Qt::KeyboardModifiers modifiers) {
  if (key == Qt::Key_Space) return OnKeySpace();
  if ((modifiers & Qt::KeypadModifier) == 0) return false;
  if (key == Qt::Key_Plus) return OnKeyPlus();
  return key == Qt::Key_Minus && OnKeyMinus();
}

bool ZWCTreeCtrl::OnCharacter(char16_t character) {
  if (character == u'+') return OnKeyPlus();
  return character == kMinusCharacter && OnKeyMinus();
}

bool ZWCTreeCtrl::OnKeySpace() {
  QTreeWidgetItem* node = SelectedNode();
  if (node == nullptr) return false;
  node->setExpanded(!node->isExpanded());
  return true;
}

bool ZWCTreeCtrl::OnKeyPlus() {
  QTreeWidgetItem* node = SelectedNode();
  if (node == nullptr) return false;
  if (!node->isExpanded()) node->setExpanded(true);
  return true;
}

bool ZWCTreeCtrl::OnKeyMinus() {
  QTreeWidgetItem* node = SelectedNode();
  if (node == nullptr) return false;
  if (node->isExpanded()) node->setExpanded(false);
  return true;
}

}  // namespace pnl
