// SPDX-License-Identifier: MIT
// ZWCTreeCtrl: a tree whose selected node opens and closes with Space and the plus and minus keys. A derived class may
// override what each key does.
#pragma once

#include <QtGui/QFont>
#include <QtWidgets/QTreeWidget>
#include <optional>

namespace pnl {

class ZWCTreeCtrl : public QTreeWidget {
  Q_OBJECT

 public:
  ZWCTreeCtrl(int id, QWidget* parent);

  /// Does nothing when the font can't be made.
  void SetFont(const QString& face, int height, int weight);
  /// The selected node; null when there is none.
  [[nodiscard]] QTreeWidgetItem* SelectedNode() const;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

  /// All of these return true when they have consumed the key. Otherwise the tree handles it as usual.
  virtual bool OnKeySpace();
  virtual bool OnKeyPlus();
  virtual bool OnKeyMinus();
  /// Called for every key that is pressed, before OnCharacter gets its character.
  virtual bool OnKey(int key, Qt::KeyboardModifiers modifiers);
  virtual bool OnCharacter(char16_t character);

 private:
  std::optional<QFont> m_pFont;
};

}  // namespace pnl
