// SPDX-License-Identifier: MIT
// An error manager in a panel's window, off screen, with the kernel's queue of errors.
#pragma once

#include <vector>

#include "errors/error_fixture.h"
#include "errors/error_ids.h"
#include "errors/qt/error_window.h"
#include "support/window_stage.h"

namespace pnl::test {

class ErrorStage : public WindowStage {
 protected:
  ErrorStage() : WindowStage({900, 700}, {20, 10, 800, 600}) { DefineErrors(cnc); }

  void Open() {
    Use(tool = new ZCErrorManager(context, area));
    tool->Start();
    Settle();
  }
  /// Into the kernel's queue, with its reports delivered.
  void Push(const ErrorRecord& record) { PushRecord(cnc, record), Settle(); }
  void Send(std::uint32_t number, std::intptr_t first, std::intptr_t second = 0) {
    WindowStage::Send(number, first, second);
    Settle();
  }
  void Key(int key, Qt::KeyboardModifiers modifiers = {}) { WindowStage::Key(key, modifiers), Settle(); }
  /// Two quick presses at one place, as Qt makes them.
  static void TouchTwice(QWidget* widget, QPoint place) {
    const QPointer<QWidget> alive = widget;
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick,
                            QEvent::MouseButtonRelease}) {
      // The host may have deleted it between two of them.
      if (alive) PressMouse(widget, place, type);
    }
    Settle();
  }
  [[nodiscard]] std::uint32_t BackOf(int id) const { return Back(Control(id)); }
  [[nodiscard]] std::vector<std::int32_t> Queue() const { return cnc.ErrorQueue(); }

  QPointer<ZCErrorManager> tool;
};

}  // namespace pnl::test
