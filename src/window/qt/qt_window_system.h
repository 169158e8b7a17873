// SPDX-License-Identifier: MIT
// The window system on Qt: messages by sendEvent and postEvent, message boxes by QMessageBox, the application's
// clipboard. Keeps no widgets; WindowRegistry does.
#pragma once

#include <functional>

#include "window/qt/window_registry.h"
#include "window/window.h"

namespace pnl {

class QtWindowSystem final : public WindowSystem {
 public:
  explicit QtWindowSystem(WindowRegistry& registry) : registry_(registry) {}

  [[nodiscard]] bool IsAlive(WindowHandle window) const override { return registry_.Find(window) != nullptr; }
  std::intptr_t Send(WindowHandle window, const Message& message) override;
  void Post(WindowHandle window, const Message& message) override;
  [[nodiscard]] WindowHandle MainWindow() const override { return mainWindow_; }
  [[nodiscard]] Rect PanelRect() const override;
  BoxAnswer ShowBox(WindowHandle owner, const BoxSpec& box) override;
  void SetClipboardText(TextView text) override;
  [[nodiscard]] Text ClipboardText() const override;

  void SetMainWindow(WindowHandle window) { mainWindow_ = window; }
  /// The widget of a window; null when the window isn't alive.
  [[nodiscard]] QWidget* WidgetOf(WindowHandle window) const;
  /// Sets a function that answers the boxes instead of the operator. An empty function gives them back to the operator.
  void SetBoxAnswerer(std::function<BoxAnswer(const BoxSpec&)> answerer) { answerer_ = std::move(answerer); }
  /// True while a box is open or a window of the host handles a sent message. A tool's code may then be on the call
  /// stack.
  [[nodiscard]] bool InCallOut() const { return callOuts_ != 0; }

  /// Called for every message to a window of the host: before a sent one is delivered, after a posted one is queued.
  std::function<void(WindowHandle, const Message&)> onMessageToHost;
  /// Called after every box that was answered.
  std::function<void(const BoxSpec&, BoxAnswer)> onBoxAnswered;

 private:
  [[nodiscard]] BoxAnswer AskOperator(WindowHandle owner, const BoxSpec& box);
  WindowRegistry& registry_;
  WindowHandle mainWindow_ = 0;
  std::function<BoxAnswer(const BoxSpec&)> answerer_;
  int callOuts_ = 0;
};

}  // namespace pnl
