// SPDX-License-Identifier: MIT
// An error manager in a panel's window, off screen: a simulated control, a disc in a folder, a clock that stands still,
// the built English pack, and a host that notes what it is called. Real widgets get real events.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "errors/error_fixture.h"
#include "errors/error_ids.h"
#include "errors/qt/error_window.h"
#include "support/temp_folder.h"
#include "support/widget_probe.h"
#include "window/qt/control_properties.h"
#include "window/qt/qt_window_system.h"

namespace pnl::test {

class ErrorStage : public testing::Test {
 protected:
  ErrorStage();
  ~ErrorStage() override;

  void Open();
  /// Into the kernel's queue, with its reports delivered.
  void Push(const ErrorRecord& record);
  void Send(std::uint32_t number, std::intptr_t first, std::intptr_t second = 0);
  void Disc(const std::string& path, const std::string& bytes) const;
  void Key(int key, Qt::KeyboardModifiers modifiers = {});
  void Touch(int id);
  /// Two quick presses at one place, as Qt makes them.
  static void TouchTwice(QWidget* widget, QPoint place);

  [[nodiscard]] QWidget* Control(int id) const { return FindControl(tool, id); }
  [[nodiscard]] std::string TextOf(int id) const { return Control(id)->property("pnlText").toString().toStdString(); }
  [[nodiscard]] std::uint32_t BackOf(int id) const { return Control(id)->property("pnlBack").toUInt(); }
  [[nodiscard]] std::vector<std::int32_t> Queue() const { return cnc.ErrorQueue(); }
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
  QPointer<ZCErrorManager> tool;
};

}  // namespace pnl::test
