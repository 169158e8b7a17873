// SPDX-License-Identifier: MIT
// A calculator in a panel's window, off screen: a simulated control without a machine, a disc in a folder, timers that
// stand still, the built English pack, and a host that notes what it is called. Real widgets get real events. How much
// an event computes is counted: each look at the clock takes a millisecond.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "calc/calc_ids.h"
#include "calc/qt/calc_window.h"
#include "facade/sim/simulated_cnc.h"
#include "host/tool_context.h"
#include "support/temp_folder.h"
#include "support/widget_probe.h"
#include "window/qt/control_properties.h"
#include "window/qt/qt_window_system.h"

namespace pnl::test {

/// The English pack that the build made.
[[nodiscard]] LanguagePack BuiltPack();

class CalcStage : public testing::Test {
 protected:
  CalcStage();
  ~CalcStage() override;

  /// Makes the tool and opens it; files on the disc must be there before.
  void Open();
  std::intptr_t Send(std::uint32_t number, std::intptr_t first, std::intptr_t second = 0);
  std::intptr_t Command(std::intptr_t code) { return Send(kMsgToolCommand, code); }
  void Menu(int id) { Send(kMsgCommand, id); }
  void Disc(const std::string& path, const std::string& bytes) const;
  [[nodiscard]] std::string OnDisc(const std::string& path) const;
  void History(int rows) const;

  [[nodiscard]] QWidget* Control(int id) const { return FindControl(tool, id); }
  [[nodiscard]] CalcLine* Line() const { return tool->findChild<CalcLine*>(); }
  [[nodiscard]] ListBox* List() const { return qobject_cast<ListBox*>(Control(calc_id::kHistory)); }
  [[nodiscard]] ListBox* Variables() const { return qobject_cast<ListBox*>(Control(calc_id::kVariables)); }
  [[nodiscard]] CalcNoteWidget* Note() const { return area->findChild<CalcNoteWidget*>(); }
  [[nodiscard]] std::string TextOf(int id) const { return Control(id)->property("pnlText").toString().toStdString(); }
  [[nodiscard]] std::string Status() const { return TextOf(calc_id::kStatus); }
  [[nodiscard]] std::string Result() const { return TextOf(calc_id::kResult); }
  [[nodiscard]] std::string LineText() const { return Line()->text().toStdString(); }
  [[nodiscard]] QWidget* Focus() const { return QApplication::focusWidget(); }
  /// To whatever has the focus; true when it, or one of its parents, took the key.
  bool Key(int key, Qt::KeyboardModifiers modifiers = {}, const QString& text = {});
  void Write(const QString& text) { Type(Line(), text); }
  /// A finger on a control's middle.
  void Touch(int id) const { Touch(Control(id)); }
  void Touch(QWidget* widget) const;
  void TouchRow(ListBox* list, int row, Qt::KeyboardModifiers modifiers = {}) const;
  /// Until nothing is computed any more; fails when that doesn't come.
  void WaitForComputing() const;
  std::vector<std::string> TakeHostCalls() { return std::exchange(hostCalls, {}); }

  TempFolder disc;
  ManualTimers timers;
  DriveMap drives;
  DiscFiles files{drives};
  QtWindowSystem windows{WindowRegistry::Instance()};
  sim::SimulatedCnc cnc{windows, timers, files, drives};
  MenuTable menus;
  HostApiTable table = {};
  HostBridge host{table, cnc.Vars()};
  Language language{menus, cnc.Util(), files, windows};
  ToolContext context{host, cnc, windows, timers, language, files};
  std::vector<std::string> hostCalls;
  std::function<void(const std::string&)> onHostCall;  // after it was noted

  QWidget panel;     // the panel's own window
  QWidget* area;     // the tool's parent
  QLineEdit* other;  // something else that takes the focus
  QPointer<ZCCalc7340> tool;
  WindowHandle handle = 0;
  std::int64_t now = 0;
};

}  // namespace pnl::test
