// SPDX-License-Identifier: MIT
// ZWCTreeCtrl: a tree that opens and closes its selected node by Space and the plus and minus keys, each of which a
// derived class may take over. What the nodes mean is the derived class's business.
#pragma once

#include <QtGui/QFont>
#include <QtWidgets/QTreeWidget>
#include <optional>

namespace pnl {

class ZWCTreeCtrl : public QTreeWidget {
  Q_OBJECT

 public:
  ZWCTreeCtrl(int id, QWidget* parent);

  /// Does nothing with a font that can't be made.
  void SetFont(const QString& face, int height, int weight);
  /// The selected node; null when none is.
  [[nodiscard]] QTreeWidgetItem* SelectedNode() const;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

  /// All answer true when the key is consumed; else the tree handles it as usual.
  virtual bool OnKeySpace();
  virtual bool OnKeyPlus();
  virtual bool OnKeyMinus();
  /// Every key that goes down, before its character.
  virtual bool OnKey(int key, Qt::KeyboardModifiers modifiers);
  virtual bool OnCharacter(char16_t character);

 private:
  std::optional<QFont> m_pFont;
};

}  // namespace pnl
