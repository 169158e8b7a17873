// SPDX-License-Identifier: MIT
// A list box: one column of texts, at most one selected unless it is extended, quick with millions of them. It knows
// nothing of what they mean; indices out of range are left alone.
#pragma once

#include <QtCore/QAbstractListModel>
#include <vector>

#include "base/text.h"
#include "base/text_rows.h"
#include "controls/row_view.h"
#include "controls/system_colors.h"

namespace pnl {

class ListBoxModel : public QAbstractListModel {
  Q_OBJECT

 public:
  using QAbstractListModel::QAbstractListModel;
  void SetItems(TextRows items);
  void Insert(int index, TextView text);
  void Replace(int index, TextView text);
  void Delete(int index);
  [[nodiscard]] const TextRows& Items() const { return items_; }
  [[nodiscard]] bool Has(int index) const { return index >= 0 && index < Count(); }
  [[nodiscard]] int Count() const { return static_cast<int>(items_.size()); }
  [[nodiscard]] Text Item(int index) const { return items_[static_cast<std::size_t>(index)]; }

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

 private:
  TextRows items_;
};

class ListBox : public RowView {
  Q_OBJECT
  Q_PROPERTY(uint pnlBack READ BackColor)
  Q_PROPERTY(uint pnlFore READ TextColor)

 public:
  ListBox(int id, QWidget* parent);

  /// Several may be selected: with Ctrl, Shift or by dragging. Select and Selection speak of one all the same.
  void SetExtended(bool extended);
  /// The same whether it is enabled or has the focus, or not.
  void SetColors(Color back, Color text);
  void SetSelectedColors(Color back, Color text);
  /// Does nothing with a font that can't be made.
  void SetFont(const QString& face, int height, int weight);

  /// Nothing is selected afterwards.
  void SetItems(TextRows items);
  [[nodiscard]] const TextRows& Items() const { return items_.Items(); }
  /// At index, or at the end. The selected item stays selected.
  void Insert(int index, TextView text);
  void Replace(int index, TextView text);
  /// A selected item leaves no selection behind.
  void Delete(int index);
  /// -1 for none; scrolls the item into view.
  void Select(int index);
  /// The first selected one.
  [[nodiscard]] int Selection() const;
  /// All selected ones, in ascending order.
  [[nodiscard]] std::vector<int> Selected() const;
  /// The one that the keys move from; -1 for none.
  [[nodiscard]] int Current() const { return currentIndex().row(); }
  [[nodiscard]] int Count() const { return items_.Count(); }
  /// Empty for an item that isn't there.
  [[nodiscard]] Text Item(int index) const { return items_.Has(index) ? items_.Item(index) : Text(); }

  [[nodiscard]] uint BackColor() const { return back_; }
  [[nodiscard]] uint TextColor() const { return text_; }
  [[nodiscard]] uint SelectedBackColor() const { return selectedBack_; }
  [[nodiscard]] uint SelectedTextColor() const { return selectedText_; }
  /// High enough for a finger.
  [[nodiscard]] int RowHeight() const override;

 signals:
  /// The list got the focus and has done with it.
  void Focused();
  /// The operator pressed Up or Down, or a row, and the list has done with it. Also when the selection is as before.
  void Walked();

 protected:
  bool event(QEvent* event) override;
  bool viewportEvent(QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  ListBoxModel items_;
  Color back_ = SystemColor(kColorWindow);
  Color text_ = SystemColor(kColorWindowText);
  Color selectedBack_ = SystemColor(kColorHighlight);
  Color selectedText_ = SystemColor(kColorHighlightText);
};

}  // namespace pnl
