// SPDX-License-Identifier: MIT
#include "ui/channel_look.h"

#include <algorithm>

#include "ui/theme.h"

namespace panel {
namespace {

using pnl::rig::MachineFault;
using pnl::rig::MachineState;

constexpr std::nullopt_t kAny = std::nullopt;
constexpr auto kStop = Obstacle::kEmergencyStop;
constexpr auto kFault = Obstacle::kFault;
constexpr auto kDoor = Obstacle::kDoor;
constexpr auto kFree = Obstacle::kNone;

// docs/operating.md has the same table for the operator. Red: something is wrong. Amber: something waits for the
// operator. With a fault or an open door, what the machine does is more important than that an inspection is on.
// clang-format off
constexpr LookRow kTable[] = {
    // obstacle, inspecting, the channel,       0 %,   what is shown
    {kStop,  kAny,  kAny,                kAny,  {Word::kEmergencyStop, theme::kRed}},
    {kFault, false, Doing::kRest,        kAny,  {Word::kFault,         theme::kRed}},
    {kFault, true,  Doing::kRest,        kAny,  {Word::kFault,         theme::kRed,    Word::kInspection}},
    {kFault, kAny,  Doing::kRunning,     kAny,  {Word::kFault,         theme::kRed,    Word::kRunning}},
    {kFault, kAny,  Doing::kInterrupted, kAny,  {Word::kFault,         theme::kRed,    Word::kInterrupted}},
    {kFault, kAny,  Doing::kHeld,        kAny,  {Word::kFault,         theme::kRed,    Word::kFeedHold}},
    {kFault, kAny,  Doing::kAborted,     kAny,  {Word::kFault,         theme::kRed,    Word::kAborted}},
    {kDoor,  false, Doing::kRest,        kAny,  {Word::kDoorOpen,      theme::kAmber}},
    {kDoor,  true,  Doing::kRest,        kAny,  {Word::kDoorOpen,      theme::kAmber,  Word::kInspection}},
    {kDoor,  kAny,  Doing::kRunning,     kAny,  {Word::kDoorOpen,      theme::kRed,    Word::kRunning}},
    {kDoor,  kAny,  Doing::kInterrupted, kAny,  {Word::kDoorOpen,      theme::kAmber,  Word::kInterrupted}},
    {kDoor,  kAny,  Doing::kHeld,        kAny,  {Word::kDoorOpen,      theme::kAmber,  Word::kFeedHold}},
    {kDoor,  kAny,  Doing::kAborted,     kAny,  {Word::kDoorOpen,      theme::kRed,    Word::kAborted}},
    {kFree,  false, Doing::kRest,        true,  {Word::kFeedZero,      theme::kAmber}},
    {kFree,  false, Doing::kRest,        false, {Word::kReady,         theme::kSteel}},
    {kFree,  false, Doing::kRunning,     true,  {Word::kRunning,       theme::kAmber,  Word::kFeedZero}},
    {kFree,  false, Doing::kRunning,     false, {Word::kRunning,       theme::kGreen}},
    {kFree,  false, Doing::kInterrupted, kAny,  {Word::kInterrupted,   theme::kAmber}},
    {kFree,  false, Doing::kHeld,        kAny,  {Word::kFeedHold,      theme::kAmber}},
    {kFree,  false, Doing::kAborted,     kAny,  {Word::kAborted,       theme::kRed}},
    {kFree,  true,  Doing::kRest,        true,  {Word::kInspection,    theme::kAmber,  Word::kFeedZero}},
    {kFree,  true,  Doing::kRest,        false, {Word::kInspection,    theme::kViolet}},
    {kFree,  true,  Doing::kRunning,     true,  {Word::kInspection,    theme::kAmber,  Word::kFeedZero}},
    {kFree,  true,  Doing::kRunning,     false, {Word::kInspection,    theme::kGreen,  Word::kRunning}},
    {kFree,  true,  Doing::kInterrupted, kAny,  {Word::kInspection,    theme::kAmber,  Word::kInterrupted}},
    {kFree,  true,  Doing::kHeld,        kAny,  {Word::kInspection,    theme::kAmber,  Word::kFeedHold}},
    {kFree,  true,  Doing::kAborted,     kAny,  {Word::kInspection,    theme::kRed,    Word::kAborted}},
};
// clang-format on

Obstacle ObstacleOf(const MachineState& state) {
  if (state.emergencyStop) return kStop;
  const bool fault = std::any_of(state.causes.begin(), state.causes.end(),
                                 [](MachineFault cause) { return cause != MachineFault::kDoorOpen; });
  if (fault) return kFault;
  return state.causes.empty() ? kFree : kDoor;
}

Doing DoingOf(const MachineState& state) {
  constexpr int kRunning = 2;
  constexpr int kInterrupted = 4;
  constexpr int kAborted = 8;
  // Feed hold is one kind of interruption; the more exact word wins.
  if (state.channelStatus == kAborted) return Doing::kAborted;
  if (state.feedHold) return Doing::kHeld;
  if (state.channelStatus == kInterrupted) return Doing::kInterrupted;
  return state.channelStatus == kRunning ? Doing::kRunning : Doing::kRest;
}

}  // namespace

std::span<const LookRow> LookTable() { return kTable; }

bool Applies(const LookRow& row, Obstacle obstacle, bool inspecting, Doing doing, bool feedZero) {
  return row.obstacle == obstacle && row.inspecting.value_or(inspecting) == inspecting &&
         row.doing.value_or(doing) == doing && row.feedZero.value_or(feedZero) == feedZero;
}

ChannelLook LookOf(const MachineState& state) {
  const Obstacle obstacle = ObstacleOf(state);
  const Doing doing = DoingOf(state);
  const auto* row = std::find_if(std::begin(kTable), std::end(kTable), [&](const LookRow& one) {
    return Applies(one, obstacle, state.inspecting, doing, state.feedOverride == 0);
  });
  return row == std::end(kTable) ? LookWithoutMachine() : row->look;
}

ChannelLook LookWithoutMachine() { return {Word::kNoMachine, theme::kSurface}; }

QString TextOf(const ChannelLook& look) {
  return Say(look.word) + (look.beside ? QStringLiteral(", ") + Say(*look.beside) : QString());
}

}  // namespace panel
