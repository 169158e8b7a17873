// SPDX-License-Identifier: MIT
// A panel's window off screen, in which a tool's window gets real events: a simulated CNC without a machine, a disc in
// a folder, a clock that only a test moves, the built English pack, and a host that notes what it is called.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QLineEdit>
#include <QPointer>
#include <functional>
#include <string>
#include <utility>

#include "facade/sim/sim_network.h"
#include "facade/sim/sim_places.h"
#include "facade/sim/simulated_cnc.h"
#include "host/language_pack.h"
#include "host/tool_context.h"
#include "support/noting_host.h"
#include "support/temp_folder.h"
#include "support/widget_probe.h"
#include "window/qt/control_properties.h"
#include "window/qt/qt_window_system.h"
#include "window/qt/qt_worker.h"

namespace pnl::test {

/// The English pack that the build made.
[[nodiscard]] LanguagePack BuiltPack();

class WindowStage : public testing::Test {
 protected:
  /// The panel's window with the tools' area in it, shown and active.
  WindowStage(QSize panelSize, const QRect& areaPlace);
  /// The tool has to be gone with its area, and to have given back menus, reports and timers.
  ~WindowStage() override;

  /// The tools' area anew, after a test that destroyed the one before.
  void MakeArea();
  /// The tool's window, for Send and Control.
  void Use(QWidget* window);
  std::intptr_t Send(std::uint32_t number, std::intptr_t first, std::intptr_t second = 0) {
    return windows.Send(handle, {number, first, second});
  }
  void Disc(const std::string& path, const std::string& bytes) const;
  /// "none" for a file that isn't there.
  [[nodiscard]] std::string OnDisc(const std::string& path) const;

  [[nodiscard]] QWidget* Control(int id) const { return FindControl(window_, id); }
  [[nodiscard]] std::string TextOf(int id) const { return Control(id)->property("pnlText").toString().toStdString(); }
  [[nodiscard]] static uint Back(const QWidget* control) { return control->property(property::kBack).toUInt(); }
  [[nodiscard]] static uint Fore(const QWidget* control) { return control->property(property::kFore).toUInt(); }
  [[nodiscard]] static QWidget* Focus() { return QApplication::focusWidget(); }
  /// To whatever has the focus, else to the panel; true when it, or one of its parents, took the key.
  bool Key(int key, Qt::KeyboardModifiers modifiers = {}, const QString& text = {});
  /// A finger on the middle of a control: press and release.
  static void Touch(QWidget* widget);
  void Touch(int id) const { Touch(Control(id)); }
  /// What the host was called since the last call, with its notifications and boxes.
  Log TakeHostCalls() { return std::exchange(hostCalls, {}); }

  TempFolder disc;
  ManualTimers timers;
  DriveMap drives;
  DiscFiles files{drives};
  QtWindowSystem windows{WindowRegistry::Instance()};
  sim::SimulatedCnc cnc{windows, timers, files, drives};
  MenuTable menus;
  sim::SimPlaces places{cnc.Storage()};
  sim::SimNetwork network{cnc.Storage()};
  QtWorker worker;
  HostApiTable table = {};
  HostBridge host{table, cnc.Vars()};
  Language language{menus, cnc.Util(), files, windows};
  ToolContext context{host, cnc, windows, timers, language, files, places, network, worker};
  Log hostCalls;
  std::function<void(const std::string&)> onHostCall;  // after it was noted
  NotingHost noting{table, [this](const std::string& call) { Note(call); }};

  QWidget panel;           // the panel's own window
  QPointer<QWidget> area;  // the tool's parent
  QLineEdit* other;        // something else that takes the focus
  WindowHandle handle = 0;

 private:
  void Note(const std::string& call) {
    hostCalls.push_back(call);
    if (onHostCall) onHostCall(call);
  }
  const QRect areaPlace_;
  QPointer<QWidget> window_;
};

}  // namespace pnl::test
