// SPDX-License-Identifier: MIT
// The fixed row and the fixed column of a grid, as headers of its view. It draws the texts of the model, the sort
// marker and which row is the present one, and reports presses. It moves and resizes nothing.
#pragma once

#include <QtWidgets/QHeaderView>

#include "controls/grid_look.h"

namespace pnl {

class GridHeader : public QHeaderView {
  Q_OBJECT

 public:
  /// colors must outlive the header.
  GridHeader(Qt::Orientation orientation, const GridColors& colors, QWidget* parent);
  /// Draws the section of a header or, with -1, the corner.
  void DrawSection(QPainter& painter, const QRect& rect, int section) const;

 signals:
  /// Pressed and released on the same section.
  void Clicked(int section);

 protected:
  void paintSection(QPainter* painter, const QRect& rect, int section) const override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  [[nodiscard]] bool IsPresent(int section) const;
  const GridColors& colors_;
  int pressed_ = -1;
};

}  // namespace pnl
