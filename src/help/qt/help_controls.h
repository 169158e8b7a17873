// SPDX-License-Identifier: MIT
// Small controls of the help viewer: a key for a finger, a line to type in, and the tree of the contents. They report
// what the operator does and know no manual.
#pragma once

#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QLineEdit>
#include <vector>

#include "controls/list_box.h"
#include "controls/zwc_tree_ctrl.h"
#include "help/help_rows.h"
#include "help/qt/help_look.h"

namespace pnl {

/// A flat key with a word or a triangle. It has never the focus itself.
class HelpKeyButton : public QAbstractButton {
  Q_OBJECT

 public:
  enum class Sign { kNone, kLeft, kRight, kUp, kDown };

  HelpKeyButton(int id, const QString& word, const HelpScale& scale, QWidget* parent);
  void SetSign(Sign sign);
  /// A press gives the focus to that control. Without this it goes to the next control around the key that takes it.
  void GiveFocusTo(QWidget* control);
  [[nodiscard]] Sign ShownSign() const { return sign_; }
  /// A chosen key looks pressed in.
  void SetChosen(bool chosen);
  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void DrawSign(QPainter& painter) const;
  Sign sign_ = Sign::kNone;
  bool chosen_ = false;
  const int height_;
};

[[nodiscard]] QLineEdit* MakeHelpLine(int id, const HelpScale& scale, QWidget* parent);
[[nodiscard]] ListBox* MakeHelpList(int id, const HelpScale& scale, QWidget* parent);

/// The tree of the contents. A row is known by its number in the contents. The triangle before a row that has rows
/// inside grows with the row.
class HelpTree : public ZWCTreeCtrl {
  Q_OBJECT

 public:
  HelpTree(int id, const HelpScale& scale, QWidget* parent);

  void SetRows(const std::vector<HelpRow>& rows);
  /// Selects a row, opens the rows around it and signals nothing; -1 selects none.
  void SelectRow(int row);
  /// -1 for none.
  [[nodiscard]] int SelectedRow() const;

 signals:
  /// A row was pressed and released. The triangle before it, which opens the rows inside, is no part of it.
  void RowTouched(int row);

 protected:
  void drawBranches(QPainter* painter, const QRect& rect, const QModelIndex& index) const override;

 private:
  std::vector<QTreeWidgetItem*> items_;
};

}  // namespace pnl
