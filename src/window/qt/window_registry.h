// SPDX-License-Identifier: MIT
// The registry of window handles: which number belongs to which widget, from its creation to its destruction. The
// process has one registry, so that a number is never used twice. Delivers no messages; QtWindowSystem does.
#pragma once

#include <pnltools/pnltools.h>

#include <QPointer>
#include <QWidget>
#include <unordered_map>
#include <vector>

#include "window/window.h"

namespace pnl {

class WindowRegistry {
 public:
  struct Entry {
    QWidget* widget = nullptr;
    /// The receiver of the messages: the window itself, or the receiver inside a widget of the host.
    QObject* target = nullptr;
    /// True for a widget of the host, attached with PnlAttachWidget.
    bool host = false;
  };

  static WindowRegistry& Instance();

  /// Registers a window of the library and sets its number as property "pnlWindow". The window must unregister itself
  /// when it is destroyed.
  WindowHandle Register(QWidget* widget);
  /// Ends a handle and drops the messages still queued for it. Does nothing for a handle that isn't in use.
  void Unregister(WindowHandle window);
  /// Registers a widget of the host until it is destroyed. A widget that is attached again keeps its number and gets
  /// the new proc and context. Returns 0 for null. A window of the library keeps its number and its own handling.
  WindowHandle Attach(QWidget* widget, PnlMessageProc proc, void* context);

  /// The entry of a window; null when it isn't alive. The pointer is valid until the next window is made or ends.
  [[nodiscard]] const Entry* Find(WindowHandle window) const {
    const auto found = entries_.find(window);
    return found == entries_.end() ? nullptr : &found->second;
  }
  /// The handle of a widget; 0 when it isn't registered.
  [[nodiscard]] WindowHandle HandleOf(const QWidget* widget) const;
  /// The library's own windows, in the order in which they were made.
  [[nodiscard]] std::vector<WindowHandle> ToolWindows() const;

 private:
  WindowHandle next_ = 1;
  std::unordered_map<WindowHandle, Entry> entries_;
};

}  // namespace pnl
