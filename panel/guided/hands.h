// SPDX-License-Identifier: MIT
// What the guided session works with: the operator's hands on a panel, and the form of a step. The steps themselves are
// in the *_steps files and in guided_session.cpp. It decides nothing about what is shown.
#pragma once

#include <QtCore/qnamespace.h>
#include <QLineEdit>
#include <QPixmap>
#include <functional>
#include <vector>

#include "host/host_session.h"
#include "host/operator.h"
#include "ui/panel_window.h"

namespace panel {

class SoftKeyBar;

/// Sends keys to the widget with the focus, advances the time, and looks at the result. Each call returns when the
/// panel and its tools have nothing more to do.
class Hands {
 public:
  Hands(PanelWindow& window, HostSession& session, Operator& op, pnl::rig::Rig& rig, const QString& folder)
      : window_(window), session_(session), op_(op), rig_(rig), folder_(folder) {}

  void Settle();
  void Key(int key, const QString& text = {}, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
  void Type(const QString& text);
  void Advance(int milliseconds);
  void Press(Action action);
  /// Presses cycle start and doesn't wait until the block has run.
  void PressStart() { Press(Action::kCycleStart); }
  bool WaitForRest();
  bool RunBlock(const QString& block);

  /// Turns the pages of the main bar to the soft key of this menu item and presses it. Returns false when no page has
  /// it.
  bool PressItem(int id);
  /// Does the same on the side bar.
  bool PressSideItem(int id);
  /// Presses the soft key that closes the tool in front. Returns false when the main bar has none.
  bool PressClose();

  /// Calls press, which opens a dialog of a tool, and then work while the dialog is open. The next capture shows the
  /// panel with the dialog as work has left it. A dialog that is still open afterwards is left with Escape. Returns
  /// false when no dialog has opened, or when work returns false.
  bool InDialog(const std::function<void()>& press, const std::function<bool(QWidget& dialog)>& work);

  /// The edit in a tool's window, or null when the tool has no window or no edit.
  [[nodiscard]] QLineEdit* Edit(int toolId) const;
  /// A control of a tool, or null when the tool has no window or no such control.
  [[nodiscard]] QWidget* Control(int toolId, int control) const;
  /// The text of such a control; empty when there is none.
  [[nodiscard]] QString TextIn(int toolId, int control) const;

  bool Capture(int number, const QString& name);

  PanelWindow& window_;
  HostSession& session_;
  Operator& op_;
  pnl::rig::Rig& rig_;

 private:
  bool PressOn(SoftKeyBar& bar, int keyCount, int id);
  void CaptureWith(QWidget& dialog);

  QString folder_;
  QPixmap withDialog_;  // what the next capture saves; null: the panel as it is then
};

/// One step: its name in the file names, its line of text, and what it does. run returns whether the step worked.
struct Step {
  const char* name;
  const char* text;
  std::function<bool(Hands&)> run;
};

}  // namespace panel
