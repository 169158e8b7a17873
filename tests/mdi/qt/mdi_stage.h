// SPDX-License-Identifier: MIT
// A command line in a panel's window, off screen: a simulated control without a machine, a disc in a folder, a clock
// that stands still, and a host that notes what it is called. Not the logic's fixture: here real widgets get real
// events.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "controls/list_box.h"
#include "controls/zwc_static.h"
#include "facade/sim/simulated_cnc.h"
#include "host/tool_context.h"
#include "mdi/qt/mdi_window.h"
#include "support/temp_folder.h"
#include "support/widget_probe.h"
#include "window/qt/control_properties.h"
#include "window/qt/qt_window_system.h"

namespace pnl::test {

class MdiStage : public testing::Test {
 protected:
  MdiStage();
  ~MdiStage() override;

  /// The tool's parent, after a test that destroyed the one before.
  void MakeArea();
  /// Makes the tool; files on the disc must be there before.
  void Make();
  void Open();
  void OpenMda();
  void SwitchRole() { Command(8, 0); }
  std::intptr_t Command(std::intptr_t code, std::intptr_t argument = 1) {
    return Send(kMsgToolCommand, code, argument);
  }
  std::intptr_t Send(std::uint32_t number, std::intptr_t first, std::intptr_t second = 0);
  void StartKey();
  /// The control reports a status byte.
  void Status(int byte);
  /// A file of the operator's settings folder.
  void Disc(const std::string& name, const std::string& bytes) const;
  /// History of that many blocks.
  void History(int blocks) const;

  [[nodiscard]] MdiEdit* Edit() const { return tool->findChild<MdiEdit*>(); }
  [[nodiscard]] ListBox* List() const { return qobject_cast<ListBox*>(FindControl(tool, 5001)); }
  [[nodiscard]] ZWCStatic* Title() const { return qobject_cast<ZWCStatic*>(FindControl(tool, 5003)); }
  [[nodiscard]] ZWCStatic* Sign() const { return qobject_cast<ZWCStatic*>(FindControl(tool, 3003)); }
  /// The open drop list; null when none is.
  [[nodiscard]] ZCMDIList* Drop() const;
  [[nodiscard]] ListBox* DropItems() const { return Drop()->findChild<ListBox*>(); }
  [[nodiscard]] uint Back(const QWidget* control) const { return control->property(property::kBack).toUInt(); }
  [[nodiscard]] uint Fore(const QWidget* control) const { return control->property(property::kFore).toUInt(); }
  [[nodiscard]] QWidget* Focus() const { return QApplication::focusWidget(); }
  void Key(int key, const QString& text = {}) { PressKey(Focus() != nullptr ? Focus() : &panel, key, text); }
  void PressSign() { PressMouse(Sign(), QPoint(5, 5)); }
  [[nodiscard]] std::vector<std::string> TakeHostCalls() { return std::exchange(hostCalls, {}); }

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

  QWidget panel;           // the panel's own window
  QPointer<QWidget> area;  // the tool's parent
  QLineEdit* other;        // something else that takes the focus
  QPointer<ZCMDIWindow> tool;
  WindowHandle handle = 0;
};

}  // namespace pnl::test
