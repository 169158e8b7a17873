// SPDX-License-Identifier: MIT
// The verdict of the drop list (ZCMDIList): what OK, a double click, Cancel and the loss of activation lead to. It has
// no items and paints nothing. The list's window owns it and passes the selected text.
#pragma once

#include <optional>

#include "base/text.h"
#include "window/window.h"

namespace pnl {

class MdiDropList {
 public:
  /// owner gets "MDI_ENDLIST" (kPicked or kCancelled, 0) once. It is sent and not posted. The owner may destroy the
  /// list in it, so nothing of the list is touched after the message.
  MdiDropList(WindowSystem& windows, WindowHandle owner) : windows_(windows), owner_(owner) {}

  static constexpr std::intptr_t kPicked = 1;
  static constexpr std::intptr_t kCancelled = 2;

  /// Handles OK and a double click. selected is the selected text, if there is one.
  void Accept(std::optional<Text> selected);
  /// Handles Cancel, and the loss of the activation to another window of the process.
  void Cancel();

  [[nodiscard]] const Text& GetText() const { return picked_; }
  [[nodiscard]] bool Finished() const { return finished_; }

 private:
  void EndList(std::intptr_t value);
  WindowSystem& windows_;
  WindowHandle owner_;
  Text picked_;
  bool finished_ = false;
};

}  // namespace pnl
