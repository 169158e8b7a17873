// SPDX-License-Identifier: MIT
// The names of the properties through which a panel program and tests see windows and controls without knowing their
// classes, and small helpers for them. window/qt/tool_window.h explains each property.
#pragma once

#include <QVariant>
#include <QWidget>
#include <cstdint>

namespace pnl {

namespace property {
// Every control.
inline constexpr const char* kId = "pnlId";
inline constexpr const char* kKind = "pnlKind";
// A control that is placed beside its window, not in it: the window's handle.
inline constexpr const char* kOwner = "pnlOwner";
// A host's main window: the widget that contains its tools, as a QWidget*. That widget must live as long as the main
// window.
inline constexpr const char* kPanelArea = "pnlPanelArea";
// A host's widget around its tools: the least side of what a finger presses, in pixels.
inline constexpr const char* kFinger = "pnlFinger";
// Themed controls.
inline constexpr const char* kBack = "pnlBack";
inline constexpr const char* kFore = "pnlFore";
inline constexpr const char* kFrame = "pnlFrame";
inline constexpr const char* kBlinking = "pnlBlinking";
inline constexpr const char* kPhase = "pnlPhase";
inline constexpr const char* kPeriod = "pnlPeriod";
inline constexpr const char* kState = "pnlState";
inline constexpr const char* kLimit = "pnlLimit";
inline constexpr const char* kChecked = "pnlChecked";
// A grid.
inline constexpr const char* kEditing = "pnlEditing";
// Windows of tools and the dialogs they open.
inline constexpr const char* kTool = "pnlTool";
inline constexpr const char* kTitle = "pnlTitle";
inline constexpr const char* kWindow = "pnlWindow";
inline constexpr const char* kDialog = "pnlDialog";
inline constexpr const char* kMenuAttached = "pnlMenuAttached";
// The PLC message view: whether a video is shown.
inline constexpr const char* kVideo = "pnlVideo";
// The command line and the calculator: the number of the last removal of rows that can be put back.
inline constexpr const char* kRemoved = "pnlRemoved";
// The error window: the place of the shown error in the queue, from 0.
inline constexpr const char* kErrorPlace = "pnlErrorPlace";
}  // namespace property

/// The role in a grid's vertical header for a row's state: 0 factory row, 1 normal row, 2 row that failed its check.
inline constexpr int kRowStateRole = 0x0100 + 1;

/// Roles of the nodes of a tree, beside its texts: its kind and the index of its image.
namespace node_role {
inline constexpr int kKind = 0x0100 + 2;
inline constexpr int kImage = 0x0100 + 3;
}  // namespace node_role

/// Values of "pnlKind". Report lists and trees have "report" and "tree".
namespace control_kind {
inline constexpr const char* kEdit = "edit";
inline constexpr const char* kList = "list";
inline constexpr const char* kStatic = "static";
inline constexpr const char* kCombo = "combo";
inline constexpr const char* kButton = "button";
inline constexpr const char* kGrid = "grid";
inline constexpr const char* kCheck = "check";
inline constexpr const char* kPicture = "picture";
inline constexpr const char* kWindow = "window";
}  // namespace control_kind

/// Makes a widget a control with that id and kind.
inline void MarkControl(QWidget* widget, int id, const char* kind) {
  widget->setProperty(property::kId, id);
  widget->setProperty(property::kKind, QString::fromLatin1(kind));
}

/// Colours are 0x00BBGGRR.
inline void SetColorProperty(QWidget* widget, const char* name, std::uint32_t color) {
  widget->setProperty(name, QVariant::fromValue<uint>(color));
}

/// The control's id; -1 for a widget that isn't a control.
[[nodiscard]] inline int ControlId(const QWidget* widget) {
  const QVariant id = widget->property(property::kId);
  return id.isValid() ? id.toInt() : -1;
}

[[nodiscard]] inline QString ControlKind(const QWidget* widget) { return widget->property(property::kKind).toString(); }

/// The control with that id below a window. If several have it, a visible one comes first. Returns null when there is
/// none.
[[nodiscard]] inline QWidget* FindControl(const QWidget* window, int id) {
  QWidget* hidden = nullptr;
  for (QWidget* child : window->findChildren<QWidget*>()) {
    if (ControlId(child) != id) continue;
    if (child->isVisible()) return child;
    if (hidden == nullptr) hidden = child;
  }
  return hidden;
}

}  // namespace pnl
