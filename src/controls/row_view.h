// SPDX-License-Identifier: MIT
// A view of one column whose rows have equal heights. It computes where a row is and stores nothing for each row, so
// that twenty million rows cost it no more than twenty. It can't hide rows.
#pragma once

#include <QtWidgets/QAbstractItemView>
#include <array>
#include <cstdint>

namespace pnl {

class RowView : public QAbstractItemView {
  Q_OBJECT

 public:
  explicit RowView(QWidget* parent);

  /// The height of every row in pixels, above 0. It may change with the font. By default it is the height of a line of
  /// the font.
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
  /// The rows that are at least partly between two heights of the viewport. There are none when last is less than
  /// first.
  [[nodiscard]] Rows RowsBetween(int top, int bottom) const;
  [[nodiscard]] QRect RectOf(Rows rows) const;

  /// How many pixels one step of the scroll bar moves: more than one if the bar's range wouldn't reach the last row
  /// otherwise.
  int scale_ = 1;
  std::array<QMetaObject::Connection, 2> rowCountChanges_;
};

}  // namespace pnl
