// SPDX-License-Identifier: MIT
// A whole machining calculator without its window: a milling machine with DMC, a few tools, a factory file and an empty
// user file on a disc in memory.
#pragma once

#include "support/tool_stage.h"
#include "zmc/zmc_rig.h"

namespace pnl::test {

class ZmcStage : public ToolStage<SimGround, FakeZmcView, ZmcSession> {
 public:
  ZmcStage();
  ~ZmcStage();

  void Define(TextView name, std::int64_t value);
  void Define(TextView name, TextView value);
  /// Opens the tool; what the host was called on the way is in the log.
  void Open();
  std::intptr_t Send(std::uint32_t number, std::intptr_t first = 0, std::intptr_t second = 0);
  std::intptr_t Command(std::intptr_t code) { return Send(PNL_MSG_TOOL_COMMAND, code); }
  void Menu(int id) { Send(PNL_MSG_COMMAND, id); }
  /// One of the frame's own messages.
  void Frame(const char* name, std::intptr_t first = 0, std::intptr_t second = 0) {
    Send(RegisterMessage(name), first, second);
  }
  bool Key(ZmcKey key) { return Call(&ZmcSession::OnKey, key); }

  // The operator.
  void Pick(int list, TextView item);
  void Turn(int check, bool on);
  void Enter(int field, TextView text);
  bool Cell(int row, int col, TextView text) { return view->main.Type(row, col, text); }
  void Focus(int id);
  /// The operator types into the tool box and leaves the text there.
  void TypeTool(TextView text);
  /// The operator moves to a cell of a table.
  void MoveTo(ZmcTab tab, int row, int col);
  void ClickHeader(ZmcTab tab, int col) { Call(&ZmcSession::OnHeaderClicked, tab, col); }
  /// Steel, milling and the end mill with values that give a full block.
  void ComputeSteel();

  [[nodiscard]] std::string TextOf(int id) const { return ToUtf8(view->controls.at(id).text); }
  [[nodiscard]] const FakeZmcView::Control& Control(int id) const { return view->controls.at(id); }
  [[nodiscard]] std::vector<std::string> Items(int id) const { return Utf8Rows(view->controls.at(id).items); }
  [[nodiscard]] std::string CellOf(int row, int col) const { return ToUtf8(view->main.CellText(row, col)); }
  /// An item of the menu in the side bar; null when there is none.
  [[nodiscard]] const MenuItem* Item(int id) { return menus.FindItem(sideMenu, id); }
  [[nodiscard]] std::string UserFile() const;
  [[nodiscard]] std::string& Factory() { return files.disc[kFactoryPath]; }
  /// The same with "DATE" for each date.
  [[nodiscard]] std::string UserFileWithoutDates() const;
  /// The rest of a user file around its materials and operations.
  void SetUserFile(const std::string& materials, const std::string& operations);
  [[nodiscard]] std::string Ini() const;
  /// The keys that the next tool starts with.
  void SetIni(const std::string& keys);
  /// The texts of the boxes since the last call.
  std::vector<std::string> TakeBoxes();

  static constexpr const char* kFactoryPath = "C:\\P24\\CondicionesCorte.xml";
  static constexpr const char* kUserPath = "C:\\P118\\CondicionesCorteP.xml";
  static constexpr const char* kIniPath = "C:\\P52\\ZMC7340.ini";

  /// The message zone: "1 [text] back 2C8064".
  std::vector<std::string> messages;
  MenuHandle mainMenu = 0;
  MenuHandle sideMenu = 0;

 private:
  std::intptr_t Deliver(WindowHandle window, const Message& message);
};

class ZmcSessionTest : public testing::Test, public ZmcStage {};

}  // namespace pnl::test
