// SPDX-License-Identifier: MIT
// A view of one column whose rows are all equally high. It computes where a row lies and keeps nothing for each of
// them, so that twenty million rows cost it no more than twenty. Not for rows that differ, or that are hidden.
#pragma once

#include <QtWidgets/QAbstractItemView>
#include <array>
#include <cstdint>

namespace pnl {

class RowView : public QAbstractItemView {
  Q_OBJECT

 public:
  explicit RowView(QWidget* parent);

  /// In pixels, above 0; may change with the font. A line of the font unless a heir knows better.
  [[nodiscard]] virtual int RowHeight() const;

  void setModel(QAbstractItemModel* model) override;
  [[nodiscard]] QRect visualRect(const QModelIndex& index) const override;
  void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;
  [[nodiscard]] QModelIndex indexAt(const QPoint& point) const override;
  [[nodiscard]] int sizeHintForRow(int /*row*/) const override { return RowHeight(); }

 protected:
  void updateGeometries() override;
  void paintEvent(QPaintEvent* event) override;
  QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
  [[nodiscard]] int horizontalOffset() const override { return 0; }
  [[nodiscard]] int verticalOffset() const override;
  [[nodiscard]] bool isIndexHidden(const QModelIndex& /*index*/) const override { return false; }
  void setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) override;
  [[nodiscard]] QRegion visualRegionForSelection(const QItemSelection& selection) const override;

 private:
  struct Rows {
    int first = 0;
    int last = -1;
  };
  [[nodiscard]] int Count() const { return model() == nullptr ? 0 : model()->rowCount(rootIndex()); }
  /// How far the rows are scrolled, in pixels.
  [[nodiscard]] std::int64_t Offset() const;
  void ScrollToOffset(std::int64_t offset);
  /// The rows that a stretch of the viewport touches; none when last is below first.
  [[nodiscard]] Rows RowsBetween(int top, int bottom) const;
  [[nodiscard]] QRect RectOf(Rows rows) const;

  /// What a step of the scroll bar moves, in pixels: more than one where the bar's range would not reach the last row.
  int scale_ = 1;
  std::array<QMetaObject::Connection, 2> rowCountChanges_;
};

}  // namespace pnl
