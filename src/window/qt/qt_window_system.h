// SPDX-License-Identifier: MIT
// The window system on Qt: messages by sendEvent and postEvent, message boxes by QMessageBox, the clipboard of the
// application. Keeps no widgets; WindowRegistry knows them.
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
  /// The widget behind a window, null when it isn't alive.
  [[nodiscard]] QWidget* WidgetOf(WindowHandle window) const;
  /// Answers the boxes instead of the operator; empty gives them back to him.
  void SetBoxAnswerer(std::function<BoxAnswer(const BoxSpec&)> answerer) { answerer_ = std::move(answerer); }
  /// True while a box is open or a message is on its way into a window of the host: a tool's code may stand below.
  [[nodiscard]] bool InCallOut() const { return callOuts_ != 0; }

  /// Called for every message sent or posted to a window of the host, before it is delivered or queued.
  std::function<void(WindowHandle, const Message&)> onMessageToHost;
  /// Called for every box that was answered.
  std::function<void(const BoxSpec&, BoxAnswer)> onBoxAnswered;

 private:
  [[nodiscard]] BoxAnswer AskOperator(WindowHandle owner, const BoxSpec& box);
  WindowRegistry& registry_;
  WindowHandle mainWindow_ = 0;
  std::function<BoxAnswer(const BoxSpec&)> answerer_;
  int callOuts_ = 0;
};

}  // namespace pnl
