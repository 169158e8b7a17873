// SPDX-License-Identifier: MIT
// Draws a grid's cells and makes its editors: a line for texts and numbers, a list below the cell for list cells. What
// may be stored, and when an edit ends, is decided here; the grid stores it. At most one editor exists at a time.
#pragma once

#include <QtWidgets/QAbstractItemDelegate>
#include <QtWidgets/QLineEdit>

#include "controls/entry_validator.h"
#include "controls/grid_look.h"
#include "controls/list_box.h"

class QKeyEvent;

namespace pnl {

/// What the delegate asks of its grid. Each operation may destroy the grid.
class GridEditing {
 public:
  virtual ~GridEditing() = default;
  /// Returns true when the key needs nothing more: it was taken, or the grid was destroyed.
  virtual bool RunKeyHook(QKeyEvent& event) = 0;
  /// Returns false when the edit is still open, because its text may not be stored.
  virtual bool CommitEdit() = 0;
  virtual void CancelEdit() = 0;
  /// The focus has left the open edit: stores what may be stored.
  virtual void LeaveEdit() = 0;
  /// Moves to the next or previous cell in reading order. Returns false at the last or first one.
  virtual bool MoveBy(bool forward) = 0;
  /// The operator has committed this text.
  virtual void Store(const QModelIndex& index, const QString& text) = 0;
};

class GridDelegate : public QAbstractItemDelegate {
  Q_OBJECT

 public:
  /// All of them must outlive the delegate. view shows cells in colors.
  GridDelegate(QAbstractItemView* view, GridEditing& grid, const GridModel& cells, const GridColors& colors);

  /// Asked for every text of a cell that is no number.
  void SetTextCheck(TextCheck check) { check_ = std::move(check); }
  /// The height of a row without one of its own.
  [[nodiscard]] int LineHeight() const;

  /// Null when no edit is open.
  [[nodiscard]] QWidget* Editor() const { return editor_; }
  /// Whether what the editor contains may be stored.
  [[nodiscard]] bool IsAcceptable() const;
  /// Shows that it may not: the whole text is selected and red.
  void MarkRefused();
  /// Whether the character may begin an edit of the cell.
  [[nodiscard]] bool MayBegin(const QModelIndex& index, const QString& typed) const;

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  void destroyEditor(QWidget* editor, const QModelIndex& index) const override;
  void setEditorData(QWidget* editor, const QModelIndex& index) const override;
  void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
  void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  [[nodiscard]] QString PaintedText(const QModelIndex& index) const;
  [[nodiscard]] QWidget* MakeLine(QWidget* parent, const QModelIndex& index) const;
  [[nodiscard]] QWidget* MakeList(QWidget* parent, const QModelIndex& index) const;
  [[nodiscard]] EntryValidator* MakeValidator(const QModelIndex& index, QObject* parent) const;
  [[nodiscard]] QRect ListPlace(const ListBox& list, const QRect& cell) const;
  bool OnEditorKey(QKeyEvent& event);
  [[nodiscard]] GridCellKind KindOf(const QModelIndex& index) const {
    return cells_.Kind(index.row() + 1, index.column());
  }
  [[nodiscard]] std::optional<NumberFormat> FormatOf(const QModelIndex& index) const {
    return cells_.FormatOf(index.row() + 1, index.column());
  }
  QAbstractItemView& view_;
  GridEditing& grid_;
  const GridModel& cells_;
  const GridColors& colors_;
  TextCheck check_;
  // createEditor and destroyEditor are const in the kit.
  mutable QWidget* editor_ = nullptr;
  mutable QString start_;  // the editor's text when the edit began
};

}  // namespace pnl
