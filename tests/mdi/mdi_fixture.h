// SPDX-License-Identifier: MIT
// A whole command line on a machine of fakes: host, control, disc, language and window, with one log of everything that
// was asked, in order.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>

#include "host/language_pack.h"
#include "mdi/mdi_session.h"
#include "mdi_fake_view.h"
#include "mdi_fakes.h"
#include "support/memory_files.h"
#include "window/timers.h"

namespace pnl::test {

class MdiRig {
 public:
  MdiRig();
  ~MdiRig();
  MdiRig(const MdiRig&) = delete;
  MdiRig& operator=(const MdiRig&) = delete;

  /// Makes the window and its logic anew; what was there is destroyed first.
  void MakeTool();
  void DestroyTool();

  std::intptr_t Send(std::uint32_t number, std::intptr_t first, std::intptr_t second = 0);
  std::intptr_t Command(std::intptr_t code, std::intptr_t argument = 1) {
    return Send(kMsgToolCommand, code, argument);
  }
  void Menu(int id) { Send(kMsgCommand, id); }
  bool Key(MdiKey key);
  /// Calls an intention as the window does.
  template <typename Intention>
  void Tell(Intention intention) {
    RunOperation(tool, intention);
  }
  /// The answer to a message, as the window's sender gets it; nothing for one that the tool doesn't know, or from a
  /// tool that has ended before.
  std::optional<std::intptr_t> Answer(const Message& message);
  /// The cycle start key for a channel.
  std::intptr_t Start(int channel = 1);
  /// Types over all that the edit holds.
  void Type(const std::string& text);
  void Drain();
  /// The control reports a status byte and detail.
  void Status(int byte, int detail = 0);
  /// Types, starts, and lets the control report that it ran.
  void RunBlock(const std::string& block);
  void Open() { ASSERT_EQ(Command(2), 0); }
  /// Opens in MDA role with a list, the focus on its first item.
  void OpenMda(const std::string& listFile = "");

  /// What was asked of host, control and disc since the last call, without the view's orders.
  Log Asked();
  /// The same with the view's orders.
  Log All();
  void Forget() { log.clear(); }
  [[nodiscard]] const MenuItem* MdaItem(int id);
  [[nodiscard]] std::string MenuName(std::uint32_t menu);
  [[nodiscard]] std::string Disc(const std::string& name) { return files.disc["C:\\P108\\" + name]; }
  [[nodiscard]] std::vector<std::string> HistoryShown();

  Log log;
  FakeWindowSystem windows;
  FakeCnc cnc;
  MemoryFiles files;
  MenuTable menus;
  ManualTimers timers;
  Language language;
  HostApiTable table = {};
  HostBridge host;
  ToolContext context;
  WindowHandle hostWindow;
  std::unique_ptr<FakeMdiView> view;
  std::shared_ptr<MdiSession> tool;
  MenuHandle mdaMenu = 0;
  std::function<void(const std::string&)> onHostCall;  // after it was logged

  static MdiRig* current;
};

class MdiTest : public testing::Test, public MdiRig {};

}  // namespace pnl::test
