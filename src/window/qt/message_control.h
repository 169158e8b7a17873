// SPDX-License-Identifier: MIT
// Makes a control a window that messages can be sent to, as MessageWindow is.
#pragma once

#include <functional>
#include <utility>

#include "window/qt/pnl_event.h"
#include "window/qt/window_registry.h"

namespace pnl {

/// Control is a widget's class.
template <typename Control>
class MessageControl : public Control {
 public:
  MessageControl(int id, QWidget* parent) : Control(id, parent), handle_(WindowRegistry::Instance().Register(this)) {}
  ~MessageControl() override { EndMessages(); }

  [[nodiscard]] WindowHandle Handle() const { return handle_; }
  /// Handles the control's messages and returns their results. It may destroy the control.
  void SetMessageHandler(std::function<std::intptr_t(const Message&)> handler) { handler_ = std::move(handler); }
  /// Gives the handle back: no message reaches the handler any more.
  void EndMessages() { WindowRegistry::Instance().Unregister(std::exchange(handle_, 0)); }

 protected:
  bool event(QEvent* event) override {
    if (event->type() != PnlEvent::EventType()) return Control::event(event);
    auto* message = static_cast<PnlEvent*>(event);
    // A copy: the handler may destroy the control.
    const auto handler = handler_;
    message->result = handler ? handler(message->message) : 0;
    return true;
  }

 private:
  WindowHandle handle_ = 0;
  std::function<std::intptr_t(const Message&)> handler_;
};

}  // namespace pnl
