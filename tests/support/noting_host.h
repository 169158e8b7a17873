// SPDX-License-Identifier: MIT
// A host that notes every callback as a line: "HostToolClosed(6,2)", "main menu mda", `message "Hint"`.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "base/text.h"
#include "host/host_api.h"
#include "host/records.h"

namespace pnl::test {

using Log = std::vector<std::string>;

/// Fills a table of callbacks. One such host at a time.
class NotingHost {
 public:
  /// note gets each line when the tool calls.
  NotingHost(HostApiTable& table, std::function<void(const std::string&)> note) : note_(std::move(note)) {
    current_ = this;
    Fill(table);
  }
  ~NotingHost() { current_ = nullptr; }
  NotingHost(const NotingHost&) = delete;
  NotingHost& operator=(const NotingHost&) = delete;

  /// Notes a line as if the host had been called.
  void Note(const std::string& line) { note_(line); }

  /// What a menu is called in the lines; without it they are "main menu" and "side menu".
  std::function<std::string(std::uint32_t)> menuName;
  /// Called with the menu before the line is noted.
  std::function<void(std::uint32_t)> onMainMenu;
  std::function<void(std::uint32_t)> onSideMenu;
  /// Called with a message before the line is noted. Without it every message must have the usual colours.
  std::function<void(const HostMessage&)> onMessage;

 private:
  static void Noted(const std::string& line) {
    if (current_ != nullptr) current_->Note(line);
  }
  static std::string Called(const char* name, int tool) { return std::string(name) + "(" + std::to_string(tool) + ")"; }
  static void NoteMenu(const char* bar, const std::function<void(std::uint32_t)>& hook, std::uint32_t menu) {
    if (hook) hook(menu);
    Noted(std::string(bar) + (current_->menuName ? " " + current_->menuName(menu) : ""));
  }
  static void NoteMessage(const HostMessage& message) {
    const std::string text = ToUtf8(FieldText(message.text));
    if (current_->onMessage) {
      current_->onMessage(message);
    } else {
      EXPECT_EQ(message.back, kMessageBack);
      EXPECT_EQ(message.fore, kMessageText);
    }
    Noted(text.empty() ? "clear message" : "message \"" + text + "\"");
  }
  static int NoteError(const HostErrorLine& line) {
    EXPECT_EQ(line.textColor, 0xFFFFFFu);
    char color[16];
    std::snprintf(color, sizeof color, "%06X", line.backColor);
    Noted("HostShowError(" + std::string(color) + "," + ToUtf8(line.helpRef) + "," + ToUtf8(line.headerText) + ")");
    return 0;
  }
  static void Fill(HostApiTable& table) {
    table.mayOpenTool = [](int tool) { return Noted(Called("HostMayOpenTool", tool)), 1; };
    table.toolOpening = [](int tool) { Noted(Called("HostToolOpening", tool)); };
    table.toolClosed = [](int tool, int reason) {
      Noted("HostToolClosed(" + std::to_string(tool) + "," + std::to_string(reason) + ")");
    };
    table.setMainMenu = [](int, HostMenuRef menu) { NoteMenu("main menu", current_->onMainMenu, menu.menu); };
    table.setSideMenu = [](int, HostMenuRef menu) { NoteMenu("side menu", current_->onSideMenu, menu.menu); };
    table.updateMainMenu = [](int tool, int) { Noted(Called("HostUpdateMainMenu", tool)); };
    table.updateSideMenu = [](int tool, int) { Noted(Called("HostUpdateSideMenu", tool)); };
    table.showMessage = [](int, const HostMessage* message) { NoteMessage(*message); };
    table.explorerRequest = [] { Noted("HostExplorerRequest"); };
    table.calcResultAccepted = [] { Noted("HostCalcResultAccepted"); };
    table.explorerAccepted = [] { Noted("HostExplorerAccepted"); };
    table.explorerAcceptedAlt = [] { Noted("HostExplorerAcceptedAlt"); };
    table.insertBlock = [] { Noted("HostInsertBlock"); };
    table.showError = [](const HostErrorLine* line) { return NoteError(*line); };
    table.errorsGone = [] { Noted("HostErrorsGone"); };
    table.forwardKey = [](int key) { Noted(Called("HostForwardKey", key)); };
    table.toolWantsClose = [](int tool) { Noted(Called("HostToolWantsClose", tool)); };
    table.openCalculator = [] { Noted("HostOpenCalculator"); };
    table.openMachiningCalculator = [] { Noted("HostOpenMachiningCalculator"); };
  }

  static inline NotingHost* current_ = nullptr;
  const std::function<void(const std::string&)> note_;
};

}  // namespace pnl::test
