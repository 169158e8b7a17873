// SPDX-License-Identifier: MIT
// The messages that the explorer's frame, form, tree, list and dialogs send each other. Their names are the contract:
// the host and scripts may send them too.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "explorer/xplr_view.h"
#include "window/window.h"

namespace pnl {

enum class XplrMessage {
  kGo,
  kShowMenu,
  kUpdateMenu,
  kShowMessage,
  kUpdate,
  kUpdatePinState,
  kUpdateCaption,
  kUpdateFolder,
  kUpdateList,
  kUpdateTree,
  kUpdateEdit,
  kResetList,
  kFind,
  kFindNext,
  kFindPrevious,
  kFindResult,
  kEndFind,
  kUpdateDrives
};
/// In the order of XplrMessage.
inline constexpr std::array<std::string_view, 18> kXplrMessageNames = {
    "XPLR_GO",          "XPLR_SHOWMENU",        "XPLR_UPDATEMENU",     "XPLR_SHOWMSG",
    "XPLR_UPDATE",      "XPLR_UPDATE_PINSTATE", "XPLR_UPDATE_CAPTION", "XPLR_UPDATE_FOLDER",
    "XPLR_UPDATE_LIST", "XPLR_UPDATE_TREE",     "XPLR_UPDATE_EDIT",    "XPLR_RESET_LIST",
    "XPLR_FIND",        "XPLR_FIND_NEXT",       "XPLR_FIND_PREVIOUS",  "XPLR_FIND_RESULT",
    "XPLR_END_FIND",    "XPLR_UPDATE_DRIVES"};

/// Sends the explorer's messages to its windows.
class XplrPosts {
 public:
  XplrPosts(WindowSystem& windows, XplrViewAccess view);
  [[nodiscard]] std::uint32_t NumberOf(XplrMessage message) const {
    return numbers_[static_cast<std::size_t>(message)];
  }
  void Post(XplrWindow to, XplrMessage message, std::intptr_t first = 0) const;
  std::intptr_t Send(XplrWindow to, XplrMessage message, std::intptr_t first = 0, std::intptr_t second = 0) const;
  /// Sends the caption's text to the form.
  void SendCaption(const Text& text) const;

 private:
  WindowSystem& windows_;
  const XplrViewAccess view_;
  std::array<std::uint32_t, kXplrMessageNames.size()> numbers_{};
};

}  // namespace pnl
