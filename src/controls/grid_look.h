// SPDX-License-Identifier: MIT
// How a grid looks: its colours and the drawing of one cell. Every text is seen on its ground, whatever colours the
// grid was given. Nothing here knows the grid.
#pragma once

#include <QtCore/QRect>
#include <QtGui/QColor>

#include "controls/grid_model.h"
#include "controls/system_colors.h"

class QPainter;

namespace pnl {

struct GridColors {
  Color window = 0xFFFFFF;
  Color fixed = 0xC0C0C0;
  Color alternate = 0xF0F0F0;
};

/// What decides how a cell is drawn.
struct GridCellFace {
  QString text;  // as it is painted
  GridCellKind kind = GridCellKind::kText;
  GridRowState state = GridRowState::kNormal;
  bool checked = false;
  bool editable = true;
  bool alternate = false;
  bool selected = false;
  bool current = false;
  bool focused = false;  // the grid has the focus
  bool enabled = true;
  bool tint = false;  // the operator should look at the value
};

/// The ground of a cell, and a text colour that is seen on it.
[[nodiscard]] QColor GridCellGround(const GridColors& colors, const GridCellFace& face);
[[nodiscard]] QColor GridCellText(const GridColors& colors, const GridCellFace& face);
[[nodiscard]] QColor GridLine(const GridColors& colors);
/// A nearly black or nearly white colour, whichever is seen better.
[[nodiscard]] QColor ReadableOn(const QColor& ground);

/// Draws a cell with its lines, in the painter's font.
void DrawGridCell(QPainter& painter, const QRect& cell, const GridColors& colors, const GridCellFace& face);
/// Draws a box and, if checked, a check mark in it. side is the box's width and height.
void DrawCheckMark(QPainter& painter, const QRect& area, int side, bool checked, const QColor& ink,
                   const QColor& ground);
/// Marks the fixed cell of a row that failed, at its left edge.
void DrawFailedBar(QPainter& painter, const QRect& fixedCell);
/// A triangle that points up or down in the middle of the area.
void DrawTriangle(QPainter& painter, const QRect& area, int width, bool up, const QColor& ink);

/// How far the frame of the present cell reaches into it.
inline constexpr int kCellFrame = 3;

}  // namespace pnl
