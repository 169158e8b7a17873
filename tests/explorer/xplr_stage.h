// SPDX-License-Identifier: MIT
// A whole explorer without its window: places, network and CNC around it are fake, its windows are numbers, and what it
// posts is delivered when the test says so.
#pragma once

#include "explorer/xplr_rig.h"
#include "explorer/xplr_session.h"
#include "host/records.h"
#include "support/tool_stage.h"

namespace pnl::test {

class XplrStage : public ToolStage<SimGround, FakeXplrView, XplrSession> {
 public:
  XplrStage();
  ~XplrStage();

  /// Opens an explorer for the request in `request`, or without one, and delivers what it posts.
  void Open(bool withRequest = true);
  void DestroyTool();
  /// Delivers all posted messages.
  void Drain();
  /// A message to one of the windows, delivered now.
  std::intptr_t Message(XplrWindow window, XplrMessage message, std::intptr_t first = 0, std::intptr_t second = 0);
  std::intptr_t Command(std::intptr_t code);
  void Menu(int id);
  void Enter() {
    Tell([](XplrSession& session) { session.OnKey(XplrKey::kEnter); }), Drain();
  }
  void Escape() {
    Tell([](XplrSession& session) { session.OnKey(XplrKey::kEscape); }), Drain();
  }
  /// The operator gives a control the focus.
  void Focus(int id);
  void PickRow(const Text& name);
  void PickNode(const std::vector<Text>& names);
  void TypeName(TextView text);

  [[nodiscard]] const MenuItem* Item(MenuHandle menu, int id) { return menus.FindItem(menu, id); }
  [[nodiscard]] std::vector<std::string> RowNames() const;

  XPLRDATA_ST request{};
  MenuHandle mainMenu = 0;
  MenuHandle sideMenu = 0;
  /// The message zone: "text line 1 back 160".
  std::vector<std::string> messages;

 private:
  std::intptr_t Deliver(WindowHandle window, const pnl::Message& message);
};

class XplrSessionTest : public testing::Test, public XplrStage {};

}  // namespace pnl::test
