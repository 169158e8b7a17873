// SPDX-License-Identifier: MIT
// A whole command line on a CNC that is strict about its interlock and its cache, and what operator, control and host
// do with it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "mdi/mdi_session.h"
#include "mdi_fake_view.h"
#include "support/strict_cnc.h"

namespace pnl::test {

class MdiRig : public ToolStage<StrictGround, FakeMdiView, MdiSession> {
 public:
  MdiRig();
  ~MdiRig() { DestroyTool(); }

  /// Makes the window and its logic anew; what was there is destroyed first.
  void MakeTool();

  std::intptr_t Send(std::uint32_t number, std::intptr_t first, std::intptr_t second = 0) {
    return Answer({number, first, second}).value_or(-1);
  }
  std::intptr_t Command(std::intptr_t code, std::intptr_t argument = 1) {
    return Send(PNL_MSG_TOOL_COMMAND, code, argument);
  }
  void Menu(int id) { Send(PNL_MSG_COMMAND, id); }
  bool Key(MdiKey key);
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

  [[nodiscard]] const MenuItem* MdaItem(int id) { return menus.FindItem(mdaMenu, id); }
  [[nodiscard]] std::string MenuName(std::uint32_t menu);
  [[nodiscard]] std::string Disc(const std::string& name) { return files.disc["C:\\P108\\" + name]; }
  [[nodiscard]] std::vector<std::string> HistoryShown();

  const WindowHandle hostWindow = windows.Open();
  MenuHandle mdaMenu = 0;
};

class MdiTest : public testing::Test, public MdiRig {};

}  // namespace pnl::test
