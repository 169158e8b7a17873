// SPDX-License-Identifier: MIT
// The bases of every window of the library: they take a handle at construction, give it back at destruction, and turn
// message events into calls of OnMessage. The derived windows have the look and the logic.
//
// A panel program and tests see the windows through properties (names in window/qt/control_properties.h), so that they
// don't need the classes. A property is a dynamic one or a Q_PROPERTY, as the class prefers:
//   every control      pnlId (int), pnlKind (string: "edit", "list", "static", "combo", "button", "window", "report",
//                      "tree", "grid", "check", "picture"), and pnlOwner (int, the window's handle) if it is placed
//                      beside its window, not in it
//   themed controls    pnlBack, pnlFore, pnlFrame (uint, 0x00BBGGRR), pnlBlinking (bool), pnlPhase (bool: the blink's
//                      present half), pnlPeriod (int, ms), pnlState (int), pnlLimit (int, most characters),
//                      pnlChecked (bool) of a check box, pnlEditing (bool) of a grid
//   a tool's window    pnlTool (int, the tool's number), pnlBack, pnlTitle (string), pnlWindow (int, its handle),
//                      and pnlMenuAttached (bool) if it can have a menu bar, pnlVideo (bool: a video is shown) if it
//                      can show videos, or pnlRemoved (int: the number of the last removal, 0 for none) once rows were
//                      removed in it
//   a tool's dialog    pnlDialog = true, pnlWindow, pnlTitle
#pragma once

#include <QWidget>
#include <cstdint>

#include "window/tool_view.h"

namespace pnl {

/// A widget with a window handle, to which messages can be sent.
class MessageWindow : public QWidget {
  Q_OBJECT

 public:
  explicit MessageWindow(QWidget* parent, Qt::WindowFlags flags = {});
  ~MessageWindow() override;
  [[nodiscard]] WindowHandle Handle() const { return handle_; }
  /// True while this window handles a message.
  [[nodiscard]] bool InMessage() const { return depth_ != 0; }

 protected:
  /// Handles a message and returns its result. Returns 0 for a message that it doesn't handle.
  virtual std::intptr_t OnMessage(const Message& message);
  bool event(QEvent* event) override;
  /// Gives the handle back before this base's destructor does. For a derived destructor, so that messages no longer
  /// reach its members.
  void EndMessages();

 private:
  WindowHandle handle_ = 0;
  int depth_ = 0;
  bool* gone_ = nullptr;  // the destructor sets it for the message that is being handled
};

/// The window of a tool: a child of the host's window, hidden at first.
class ToolWindow : public MessageWindow {
  Q_OBJECT

 public:
  ToolWindow(int toolId, QWidget* parent);
  ~ToolWindow() override;
  [[nodiscard]] int ToolId() const { return toolId_; }
  /// Starts the tool. To be called once, right after the construction. Everything that may call the host or show a
  /// window is here and not in the constructor. The window may be gone when the call returns.
  virtual void Start() = 0;
  /// How many tool windows exist, including those that have given their handle back and wait to be deleted.
  [[nodiscard]] static int Living() { return living; }

 protected:
  /// Set the properties of the window. Setting the colour paints nothing.
  void SetTitleProperty(TextView title);
  void SetBackProperty(std::uint32_t color);
  /// Sets the number of the removal that a host can put back; 0 for none. Does nothing while it stays the same.
  void SetRemovedProperty(int number);

  // The steps of ToolView, with the same contracts.
  [[nodiscard]] Rect ParentArea() const;
  void HideWithFocus();
  void DropFocus();

 private:
  const int toolId_;
  inline static int living = 0;
};

/// The window of a tool with the part that every view has. View must derive from ToolView. The tool's own window adds
/// the rest.
template <typename View>
class ToolWindowWith : public ToolWindow, protected View {
 public:
  [[nodiscard]] WindowHandle Handle() const override { return ToolWindow::Handle(); }

 protected:
  using ToolWindow::ToolWindow;
  [[nodiscard]] Rect ParentClientRect() const override { return ParentArea(); }
  [[nodiscard]] bool IsVisible() const override { return isVisible(); }
  void Show() override { show(); }
  void Hide() override { HideWithFocus(); }
  void BringToTop() override { raise(); }
  void ClearFocus() override { DropFocus(); }
};

/// A window that a tool opens for a while: a drop list, a search, a picker.
class ToolDialog : public MessageWindow {
  Q_OBJECT

 public:
  explicit ToolDialog(QWidget* owner, Qt::WindowFlags flags = {});

 protected:
  void SetTitleProperty(TextView title);
};

}  // namespace pnl
