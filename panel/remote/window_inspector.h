// SPDX-License-Identifier: MIT
// What an operator sees of windows and controls, as JSON. Controls are found by the properties that the tool library
// sets on its widgets, everything else is read from Qt's own classes, so no tool's class is known here. Reads only.
#pragma once

#include <pnltools/pnltools.h>

#include <QJsonArray>
#include <QJsonObject>
#include <QList>

class QAbstractItemView;
class QWidget;

namespace panel {

class WindowInspector {
 public:
  /// Dialogs tell their place in the tool area.
  explicit WindowInspector(QWidget* toolArea) : toolArea_(toolArea) {}

  /// Null for a window that isn't alive.
  [[nodiscard]] static QWidget* Window(PnlWindow window);
  /// The control with that id; where several share it, the one that can be seen. Null when there is none.
  [[nodiscard]] static QWidget* Control(QWidget* window, int id);
  /// Whether an operator sees any of it: it and all that it lies in are shown, and none of that cuts it off.
  [[nodiscard]] static bool IsSeen(const QWidget* control);
  /// The control in which a key press to that window arrives: the focused one, or the window.
  [[nodiscard]] static QWidget* Focused(QWidget* window);

  [[nodiscard]] QJsonObject DescribeWindow(QWidget* window) const;
  [[nodiscard]] QJsonObject DescribeControl(QWidget* window, QWidget* control) const;
  /// The boxes that stand open, oldest first: {"window","title"}.
  [[nodiscard]] static QJsonArray Dialogs();

 private:
  QWidget* toolArea_;
};

/// The control itself, or the list that a combo box or a list control holds; null for what shows no items.
[[nodiscard]] QAbstractItemView* ItemView(QWidget* control);
/// A list with columns: its rows are lists of texts.
[[nodiscard]] bool IsReportList(const QAbstractItemView* view);
[[nodiscard]] QJsonArray RectToJson(const QRect& rect);

}  // namespace panel
