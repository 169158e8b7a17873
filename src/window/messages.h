// SPDX-License-Identifier: MIT
// The registered window messages that host and tools share, as one table. A name's number follows from its place in the
// table, so it is the same in every run. A name outside the table gets the next free number when it is first asked for.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace pnl {

/// Every name that the library itself registers. Their numbers count up from 0xC000 in this order.
inline constexpr std::array<std::string_view, 34> kMessageNames = {
    "ZMC_CANCELDLG",      "ZMC_SHOWMSG",          "ZMC_RESETMSG",
    "ZMC_SHOWMENU",       "ZMC_UPDATEMENU",       "ZWCEDIT_SETFOCUS",
    "ZWCEDIT_KILLFOCUS",  "ZM_CLOSE7340",         "ZM_UPDATE_NERRORS",
    "ZM_END_ERRORHELP",   "ZM_SHOW_ERRORHELP",    "ZM_HIDE_ERRORHELP",
    "ZM_SHOW_FILE",       "HELPHTML_GOTOMANUAL",  "MDI_ENDLIST",
    "TM_HANDLEVALUE",     "UTIL7340_SetCNCRect",  "XPLR_GO",
    "XPLR_SHOWMENU",      "XPLR_UPDATEMENU",      "XPLR_SHOWMSG",
    "XPLR_UPDATE",        "XPLR_UPDATE_PINSTATE", "XPLR_UPDATE_CAPTION",
    "XPLR_UPDATE_FOLDER", "XPLR_UPDATE_LIST",     "XPLR_UPDATE_TREE",
    "XPLR_UPDATE_EDIT",   "XPLR_RESET_LIST",      "XPLR_FIND",
    "XPLR_FIND_NEXT",     "XPLR_FIND_PREVIOUS",   "XPLR_FIND_RESULT",
    "XPLR_END_FIND",
};

/// The first number of a registered name; the last one is 0xFFFF.
inline constexpr std::uint32_t kFirstRegistered = 0xC000;
inline constexpr std::uint32_t kLastRegistered = 0xFFFF;

}  // namespace pnl
