// SPDX-License-Identifier: MIT
// The window system as the tools' logic sees it: a window is a number, a message has a number and two arguments. Not a
// widget kit: the window classes decide how a window looks. window/qt implements it.
#pragma once

#include <pnltools/pnltools.h>

#include <cstdint>
#include <functional>
#include <string_view>

#include "base/text.h"

namespace pnl {

/// 0 is no window. A number is never used twice.
using WindowHandle = std::int32_t;

/// number is a PnlMessage or that of a registered name.
struct Message {
  std::uint32_t number = 0;
  std::intptr_t first = 0;
  std::intptr_t second = 0;
};

/// The text whose address is an argument of a message; empty for 0.
[[nodiscard]] inline Text TextAt(std::intptr_t address) {
  if (address == 0) return {};
  return reinterpret_cast<const char16_t*>(address);  // NOLINT(performance-no-int-to-ptr)
}

/// The number of a name, from 0xC000 up. A new name gets the next free number. The process has one registry. Returns 0
/// for an empty name and when no number is left.
[[nodiscard]] std::uint32_t RegisterMessage(std::string_view name);
/// The name that was registered with that number; empty when there is none.
[[nodiscard]] std::string_view RegisteredMessageName(std::uint32_t number);

struct Rect {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
  [[nodiscard]] int Width() const { return right - left; }
  [[nodiscard]] int Height() const { return bottom - top; }
  friend bool operator==(const Rect&, const Rect&) = default;
};

enum class BoxStyle { kInfo, kError, kQuestion };
enum class BoxAnswer { kOk, kYes, kNo, kCancel };

struct BoxSpec {
  Text title;
  Text text;
  BoxStyle style = BoxStyle::kInfo;  // kQuestion has Yes and No, the others OK
  /// Shows a box of the tool's own and returns what was pressed. Empty: the system's box.
  std::function<BoxAnswer(const BoxSpec&)> show = {};
};

class WindowSystem {
 public:
  virtual ~WindowSystem() = default;
  [[nodiscard]] virtual bool IsAlive(WindowHandle window) const = 0;
  /// Delivers the message now and returns the result; 0 for a dead window.
  virtual std::intptr_t Send(WindowHandle window, const Message& message) = 0;
  /// Queues the message. It is dropped if the window is dead when its turn comes.
  virtual void Post(WindowHandle window, const Message& message) = 0;
  /// The window for messages to the whole panel; 0 when there is none.
  [[nodiscard]] virtual WindowHandle MainWindow() const = 0;
  /// The area of the panel: the main window's rectangle on the screen, or the size of the part of it that the host has
  /// named for its tools (its corner is then 0,0). Without a main window 0,0,800,600.
  [[nodiscard]] virtual Rect PanelRect() const = 0;
  /// Shows a modal box and returns the answer. Runs an event loop: any window may be gone when it returns.
  virtual BoxAnswer ShowBox(WindowHandle owner, const BoxSpec& box) = 0;
  virtual void SetClipboardText(TextView text) = 0;
  [[nodiscard]] virtual Text ClipboardText() const = 0;
};

}  // namespace pnl
