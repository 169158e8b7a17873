// SPDX-License-Identifier: MIT
// A list box: one column of texts, fast even with millions of them. At most one item is selected unless the list is
// extended. An operation with an index out of range does nothing.
#pragma once

#include <QtCore/QAbstractListModel>
#include <functional>
#include <vector>

#include "base/text.h"
#include "base/text_rows.h"
#include "controls/list_note.h"
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

  /// In an extended list the operator can select several items with Ctrl, Shift or by dragging. Select and Selection
  /// still refer to one item.
  void SetExtended(bool extended);
  /// Sets the colours, which don't depend on whether the list is enabled or has the focus.
  void SetColors(Color back, Color text);
  void SetSelectedColors(Color back, Color text);
  /// Does nothing when the font can't be made.
  void SetFont(const QString& face, int height, int weight);

  /// Sets who says what is drawn beside an item. It is asked when a row is painted, so it must be quick. An empty
  /// function means no notes.
  void SetNotes(std::function<ListNote(int index)> notes);
  [[nodiscard]] ListNote Note(int index) const;

  /// Replaces all items. Nothing is selected afterwards.
  void SetItems(TextRows items);
  [[nodiscard]] const TextRows& Items() const { return items_.Items(); }
  /// Inserts before index, or at the end when no item has that index. The selected item stays selected.
  void Insert(int index, TextView text);
  void Replace(int index, TextView text);
  /// Deletes an item. If it was selected, no other item gets selected in its place.
  void Delete(int index);
  /// Selects an item and scrolls it into view. -1 selects none.
  void Select(int index);
  /// The first selected item; -1 for none.
  [[nodiscard]] int Selection() const;
  /// All selected items in ascending order.
  [[nodiscard]] std::vector<int> Selected() const;
  /// The item from which the keys move; -1 for none.
  [[nodiscard]] int Current() const { return currentIndex().row(); }
  [[nodiscard]] int Count() const { return items_.Count(); }
  /// The text of an item; empty when there is none.
  [[nodiscard]] Text Item(int index) const { return items_.Has(index) ? items_.Item(index) : Text(); }

  [[nodiscard]] uint BackColor() const { return back_; }
  [[nodiscard]] uint TextColor() const { return text_; }
  [[nodiscard]] uint SelectedBackColor() const { return selectedBack_; }
  [[nodiscard]] uint SelectedTextColor() const { return selectedText_; }
  /// At least the height that a finger needs, and what SetLeastRowHeight was called with.
  [[nodiscard]] int RowHeight() const override;
  void SetLeastRowHeight(int pixels);

 signals:
  /// The list has got the focus and has finished handling the event.
  void Focused();
  /// The operator has pressed Up, Down or a row, and the list has finished handling the event. Also emitted when the
  /// selection is the same as before.
  void Walked();

 protected:
  bool event(QEvent* event) override;
  bool viewportEvent(QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  ListBoxModel items_;
  std::function<ListNote(int)> notes_;
  int leastRowHeight_ = 0;
  Color back_ = SystemColor(kColorWindow);
  Color text_ = SystemColor(kColorWindowText);
  Color selectedBack_ = SystemColor(kColorHighlight);
  Color selectedText_ = SystemColor(kColorHighlightText);
};

}  // namespace pnl
