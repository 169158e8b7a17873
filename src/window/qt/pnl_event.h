// SPDX-License-Identifier: MIT
// A window message as a Qt event: the message's number, its two pointer-sized arguments, and room for the result.
#pragma once

#include <QEvent>

#include "window/window.h"

namespace pnl {

class PnlEvent final : public QEvent {
 public:
  PnlEvent(WindowHandle to, const Message& what) : QEvent(EventType()), window(to), message(what) {}
  /// The one event type of all messages, registered with Qt at first use.
  static QEvent::Type EventType() {
    static const auto type = static_cast<QEvent::Type>(QEvent::registerEventType());
    return type;
  }

  const WindowHandle window;
  const Message message;
  std::intptr_t result = 0;
};

}  // namespace pnl
