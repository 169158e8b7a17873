// SPDX-License-Identifier: MIT
// Window handles: which number stands for which widget, from its making to its destruction. One registry for the
// process, so that a number is never used twice. Delivers nothing itself; QtWindowSystem does.
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
    /// Who gets the messages: the window itself, or the receiver inside a widget of the host.
    QObject* target = nullptr;
    /// A widget of the host, attached with PnlAttachWidget.
    bool host = false;
  };

  static WindowRegistry& Instance();

  /// A window of the library, which unregisters itself when it is destroyed. Carries its number as "pnlWindow".
  WindowHandle Register(QWidget* widget);
  /// A handle that isn't in use is left alone. Posted messages still under way are dropped.
  void Unregister(WindowHandle window);
  /// A widget of the host, until it is destroyed. The same widget keeps its number; proc and context are replaced.
  WindowHandle Attach(QWidget* widget, PnlMessageProc proc, void* context);

  /// Null for a window that isn't alive. Holds until the next window is made or ends.
  [[nodiscard]] const Entry* Find(WindowHandle window) const {
    const auto found = entries_.find(window);
    return found == entries_.end() ? nullptr : &found->second;
  }
  /// 0 for a widget that isn't registered.
  [[nodiscard]] WindowHandle HandleOf(const QWidget* widget) const;
  /// The library's own windows, in the order of their making.
  [[nodiscard]] std::vector<WindowHandle> ToolWindows() const;

 private:
  WindowHandle next_ = 1;
  std::unordered_map<WindowHandle, Entry> entries_;
};

}  // namespace pnl
