// SPDX-License-Identifier: MIT
// What the guided session works with: the operator's hands on a panel, and the form of a step. The steps themselves are
// in the *_steps files and in guided_session.cpp.
#pragma once

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPixmap>
#include <functional>
#include <vector>

#include "host/host_session.h"
#include "host/operator.h"
#include "ui/panel_window.h"
#include "ui/soft_key_bar.h"

namespace panel {

/// Sends keys to the widget with the focus, advances the time, and looks at the result.
class Hands {
 public:
  Hands(PanelWindow& window, HostSession& session, Operator& op, pnl::rig::Rig& rig, const QString& folder)
      : window_(window), session_(session), op_(op), rig_(rig), folder_(folder) {}

  void Settle() {
    while (window_.Working() || rig_.IsWorking()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    for (int i = 0; i < 5; ++i) QCoreApplication::processEvents();
  }

  void Key(int key, const QString& text = {}, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWidget* focus = QApplication::focusWidget();
    if (focus == nullptr) focus = &window_;
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
      QKeyEvent event(type, key, modifiers, text);
      QCoreApplication::sendEvent(focus, &event);
      // The press may move the focus or destroy the widget.
      focus = QApplication::focusWidget();
      if (focus == nullptr) focus = &window_;
    }
    Settle();
  }

  void Type(const QString& text) {
    for (const QChar c : text) Key(c.toUpper().unicode(), QString(c));
  }

  void Advance(int milliseconds) {
    rig_.Advance(milliseconds);
    Settle();
  }

  /// Presses cycle start and does not wait until the block has run.
  void PressStart() { Press(Action::kCycleStart); }

  void Press(Action action) {
    window_.Trigger(action);
    Settle();
  }

  bool WaitForRest() {
    for (int i = 0; i < 600 && op_.Machine().channelStatus != 1; ++i) Advance(100);
    return op_.Machine().channelStatus == 1;
  }

  bool RunBlock(const QString& block) {
    Type(block);
    PressStart();
    return WaitForRest();
  }

  /// Turns the pages of the main bar to the soft key of this menu item and presses it. Returns false when no page has
  /// it.
  bool PressItem(int id) { return PressOn(window_.MainBar(), kMainKeys, id); }
  /// Does the same on the side bar.
  bool PressSideItem(int id) { return PressOn(window_.SideBar(), kSideKeys, id); }

  /// The edit in a tool's window, or null when the tool has no window or no edit.
  [[nodiscard]] QLineEdit* Edit(int toolId) const {
    const auto* tool = static_cast<QWidget*>(PnlWidgetOf(session_.ToolWindow(toolId)));
    return tool == nullptr ? nullptr : tool->findChild<QLineEdit*>();
  }

  bool Capture(int number, const QString& name) {
    Settle();
    const QString file = QStringLiteral("%1/%2-%3.png").arg(folder_).arg(number, 2, 10, QLatin1Char('0')).arg(name);
    return window_.grab().save(file);
  }

  PanelWindow& window_;
  HostSession& session_;
  Operator& op_;
  pnl::rig::Rig& rig_;

 private:
  bool PressOn(SoftKeyBar& bar, int keyCount, int id) {
    for (int page = 0; page < bar.PageCount(); ++page) {
      for (int slot = 0; slot < keyCount; ++slot) {
        const int index = bar.Page() * keyCount + slot;
        if (index < static_cast<int>(bar.Items().size()) && bar.Items().at(static_cast<std::size_t>(index)).id == id) {
          bar.Press(slot);
          Settle();
          return true;
        }
      }
      bar.NextPage();
    }
    return false;
  }

  QString folder_;
};

/// One step: its name in the file names, its line of text, and what it does. run returns whether the step worked.
struct Step {
  const char* name;
  const char* text;
  std::function<bool(Hands&)> run;
};

}  // namespace panel
