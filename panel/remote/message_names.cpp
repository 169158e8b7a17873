// SPDX-License-Identifier: MIT
#include "remote/message_names.h"

#include <pnltools/pnltools.h>

#include <array>

namespace panel {

namespace {

struct RegisteredMessage {
  const char* name;
  AddressArguments addresses = {};
};

using enum AddressKind;

constexpr RegisteredMessage kRegistered[] = {
    {"ZMC_CANCELDLG"},
    {"ZMC_SHOWMSG", {kNone, kText}},
    {"ZMC_RESETMSG"},
    {"ZMC_SHOWMENU"},
    {"ZMC_UPDATEMENU"},
    {"ZWCEDIT_SETFOCUS"},
    {"ZWCEDIT_KILLFOCUS"},
    {PNL_NAME_CLOSE_PANEL},
    {PNL_NAME_ERRORS_CHANGED},
    {PNL_NAME_ERROR_HELP_ENDED},
    {PNL_NAME_SHOW_ERROR_HELP, {kNone, kFile}},
    {PNL_NAME_HIDE_ERROR_HELP},
    {PNL_NAME_SHOW_FILE, {kNone, kFile}},
    {"HELPHTML_GOTOMANUAL", {kText, kNone}},
    {"MDI_ENDLIST"},
    {"TM_HANDLEVALUE"},
    {"UTIL7340_SetCNCRect"},
    {"XPLR_GO"},
    {"XPLR_SHOWMENU"},
    {"XPLR_UPDATEMENU"},
    {"XPLR_SHOWMSG", {kNone, kText}},
    {"XPLR_UPDATE"},
    {"XPLR_UPDATE_PINSTATE"},
    {"XPLR_UPDATE_CAPTION", {kText, kNone}},
    {"XPLR_UPDATE_FOLDER"},
    {"XPLR_UPDATE_LIST"},
    {"XPLR_UPDATE_TREE"},
    {"XPLR_UPDATE_EDIT"},
    {"XPLR_RESET_LIST"},
    {"XPLR_FIND"},
    {"XPLR_FIND_NEXT"},
    {"XPLR_FIND_PREVIOUS"},
    {"XPLR_FIND_RESULT"},
    {"XPLR_END_FIND"},
};

using Numbers = std::array<std::uint32_t, std::size(kRegistered)>;

const Numbers& RegisteredNumbers() {
  static const Numbers numbers = [] {
    Numbers all{};
    for (std::size_t i = 0; i < all.size(); ++i) all[i] = PnlRegisterMessage(kRegistered[i].name);
    return all;
  }();
  return numbers;
}

const RegisteredMessage* FindRegistered(std::uint32_t message) {
  const Numbers& numbers = RegisteredNumbers();
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    if (numbers[i] == message) return &kRegistered[i];
  }
  return nullptr;
}

}  // namespace

std::optional<std::uint32_t> MessageNumber(const QString& name) {
  for (std::size_t i = 0; i < std::size(kRegistered); ++i) {
    if (name == QLatin1StringView(kRegistered[i].name)) return RegisteredNumbers()[i];
  }
  return std::nullopt;
}

QJsonValue MessageToJson(std::uint32_t message) {
  if (const RegisteredMessage* registered = FindRegistered(message)) return registered->name;
  return static_cast<qint64>(message);
}

AddressArguments AddressesOf(std::uint32_t message, std::int64_t first) {
  if (message == PNL_MSG_CYCLE_START && (first == PNL_START_KEY || first == PNL_START_QUERY))
    return {kNone, kCycleStart};
  if (message == PNL_MSG_TOOL_NOTIFY && (first == PNL_NOTIFY_CHANNEL_TAKEN || first == PNL_NOTIFY_CHANNEL_GIVEN))
    return {kNone, kChannelRecord};
  const RegisteredMessage* registered = FindRegistered(message);
  return registered != nullptr ? registered->addresses : AddressArguments{};
}

}  // namespace panel
