// SPDX-License-Identifier: MIT
// Every CNC variable that the tools use, once: its name as a format ("[%d]." is a channel from 1, "%d" a number, "%s" a
// name), its type, and what the tools do with it. The mill defines its variables from this table. Names are
// case-sensitive.
#pragma once

#include <pnltools/rig.h>

#include "base/text.h"

namespace pnl {

namespace variable_access {
inline constexpr unsigned kReport = 1;
inline constexpr unsigned kRead = 2;
inline constexpr unsigned kWrite = 4;
inline constexpr unsigned kReadWrite = kRead | kWrite;
}  // namespace variable_access

struct VariableName {
  TextView pattern;
  rig::VariableType type;
  unsigned access;
};

// clang-format off
inline constexpr VariableName kVariableNames[] = {
    // State of a channel.
    {u"[%d].G.FULLSTATUS",      rig::VariableType::kInt, variable_access::kReport | variable_access::kRead},
    {u"[%d].G.STATUS",          rig::VariableType::kInt, variable_access::kRead},
    {u"[%d].G.CNCAUTSTATUS",    rig::VariableType::kInt, variable_access::kReadWrite},
    {u"[%d].G.CNCMANSTATUS",    rig::VariableType::kInt, variable_access::kReadWrite},
    {u"[%d].E.APISTATUS",       rig::VariableType::kInt, variable_access::kRead},
    {u"[%d].E.PNLMODE",         rig::VariableType::kInt, variable_access::kReadWrite},
    {u"[%d].E.MANUALMODE",      rig::VariableType::kInt, variable_access::kReadWrite},
    {u"[%d].E.INSPECSTATUS",    rig::VariableType::kInt, variable_access::kReport | variable_access::kReadWrite},
    {u"[%d].E.STARTONMDI",      rig::VariableType::kInt, variable_access::kReadWrite},
    {u"[%d].MPG.CHTYPE",        rig::VariableType::kInt, variable_access::kRead},
    {u"DM.MDI.ENABLEC%d",       rig::VariableType::kInt, variable_access::kRead},
    {u"MPG.NCHANNEL",           rig::VariableType::kInt, variable_access::kRead},
    // Values that tools pass to each other.
    {u"E.CALCRESUL",            rig::VariableType::kDouble, variable_access::kReadWrite},
    {u"E.HELPDATA",             rig::VariableType::kText, variable_access::kReadWrite},
    {u"E.XPLRDATA",             rig::VariableType::kInt, variable_access::kReadWrite},
    // PLC messages and errors.
    {u"E.PLCMSGDATA",           rig::VariableType::kInt, variable_access::kReport | variable_access::kRead},
    {u"E.NERRORS",              rig::VariableType::kInt, variable_access::kReport | variable_access::kRead},
    {u"E.ERRORPRI",             rig::VariableType::kInt, variable_access::kReport},
    // The error display writes the title and the line of the error that it shows into this text.
    {u"DM.HMI.ERROR.CURRENT",   rig::VariableType::kText, variable_access::kReadWrite},
    // Settings of the machining calculator, with the types that it writes.
    {u"DM.ZMC.S",               rig::VariableType::kDouble, variable_access::kReadWrite},
    {u"DM.ZMC.F",               rig::VariableType::kDouble, variable_access::kReadWrite},
    {u"DM.ZMC.T",               rig::VariableType::kInt, variable_access::kReadWrite},
    {u"DM.ZMC.M6",              rig::VariableType::kInt, variable_access::kReadWrite},
    {u"DM.ZMC.DMC",             rig::VariableType::kText, variable_access::kReadWrite},
    {u"DM.ZMC.FUNIT",           rig::VariableType::kInt, variable_access::kReadWrite},
    {u"DM.ZMC.SUNIT",           rig::VariableType::kInt, variable_access::kReadWrite},
    {u"DM.ZMC.COMMENT",         rig::VariableType::kText, variable_access::kReadWrite},
    {u"DM.ZMC.INFO",            rig::VariableType::kText, variable_access::kReadWrite},
    // Display formats of spindle speed and feed.
    {u"DM.SFORMAT.WIDTH",       rig::VariableType::kInt, variable_access::kRead},
    {u"DM.SFORMAT.PRECISION",   rig::VariableType::kInt, variable_access::kRead},
    {u"DM.FFORMAT.WIDTH",       rig::VariableType::kInt, variable_access::kRead},
    {u"DM.FFORMAT.PRECISION",   rig::VariableType::kInt, variable_access::kRead},
    // Facts of the machine.
    {u"DM.CNC.MODELID",         rig::VariableType::kInt, variable_access::kRead},
    {u"DM.OPTION.DUALPURPOSE",  rig::VariableType::kInt, variable_access::kRead},
    {u"DM.OPTION.DMC",          rig::VariableType::kInt, variable_access::kRead},
    {u"DM.DMC.RATEDPOWER",      rig::VariableType::kInt, variable_access::kRead},
    {u"SP.DMCSPDL",             rig::VariableType::kInt, variable_access::kRead},
    {u"MPG.INCHES",             rig::VariableType::kInt, variable_access::kRead},
    {u"G.FOCUSCHANNEL",         rig::VariableType::kInt, variable_access::kRead},
    {u"[%d].G.MASTERSP",        rig::VariableType::kInt, variable_access::kRead},
    {u"G.GSPDLNAME%d",          rig::VariableType::kText, variable_access::kRead},
    {u"MPA.DRIVETYPE.%s",       rig::VariableType::kInt, variable_access::kRead},
};
// clang-format on

}  // namespace pnl
