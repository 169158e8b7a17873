// SPDX-License-Identifier: MIT
// What an operator sees of windows and controls, as JSON. It finds controls by the properties that the tool library
// sets on its widgets and reads the rest from Qt's own classes, so it knows no tool's class. It changes nothing.
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
  /// Dialogs report their place in the tool area, other windows in their parent.
  explicit WindowInspector(QWidget* toolArea) : toolArea_(toolArea) {}

  /// The widget of a window; null when the window isn't alive.
  [[nodiscard]] static QWidget* Window(PnlWindow window);
  /// The control with that id, or null. When several have it, a visible one wins, and else one on a visible page.
  [[nodiscard]] static QWidget* Control(QWidget* window, int id);
  /// Whether an operator sees any part of the control: all its parents are shown too, and they don't clip all of it.
  [[nodiscard]] static bool IsSeen(const QWidget* control);
  /// Scrolls the pages around the control until it is in sight, as an operator does before a touch.
  static void BringIntoSight(QWidget* control);
  /// The control that gets a key press in that window: the one with the focus, or the window itself.
  [[nodiscard]] static QWidget* Focused(QWidget* window);

  [[nodiscard]] QJsonObject DescribeWindow(QWidget* window) const;
  [[nodiscard]] QJsonObject DescribeControl(QWidget* window, QWidget* control) const;
  /// The open dialogs, oldest first, each as {"window","title"}.
  [[nodiscard]] static QJsonArray Dialogs();

 private:
  QWidget* toolArea_;
};

/// The control as an item view, or the list of a combo box. Null for a control without items.
[[nodiscard]] QAbstractItemView* ItemView(QWidget* control);
/// Whether the view is a list with columns. Each of its rows is then a list of texts.
[[nodiscard]] bool IsReportList(const QAbstractItemView* view);
[[nodiscard]] QJsonArray RectToJson(const QRect& rect);

}  // namespace panel
