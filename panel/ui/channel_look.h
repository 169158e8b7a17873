// SPDX-License-Identifier: MIT
// The line that says how the machine is: one or two words and a colour, from the machine's state alone. Everything that
// keeps a start from moving the axes comes before READY. The status strip draws the line.
#pragma once

#include <pnltools/rig.h>

#include <QColor>
#include <QString>
#include <optional>
#include <span>

#include "common/words.h"

namespace panel {

struct ChannelLook {
  Word word = Word::kNoMachine;
  QRgb color = 0;
  std::optional<Word> beside = std::nullopt;  // what the machine does meanwhile, or what it waits for
  bool operator==(const ChannelLook&) const = default;
};

/// What stands in the way of a start, the gravest first.
enum class Obstacle { kEmergencyStop, kFault, kDoor, kNone };
/// What the channel does. An unknown status counts as rest.
enum class Doing { kRest, kRunning, kInterrupted, kHeld, kAborted };

/// One row of the decision table. A condition without a value applies to both.
struct LookRow {
  Obstacle obstacle;
  std::optional<bool> inspecting;
  std::optional<Doing> doing;
  std::optional<bool> feedZero;  // the feed override is 0 %
  ChannelLook look;
};

/// The decision table. Exactly one row applies to each combination.
[[nodiscard]] std::span<const LookRow> LookTable();
[[nodiscard]] bool Applies(const LookRow& row, Obstacle obstacle, bool inspecting, Doing doing, bool feedZero);

[[nodiscard]] ChannelLook LookOf(const pnl::rig::MachineState& state);
[[nodiscard]] ChannelLook LookWithoutMachine();
/// "INSPECTION, FEED HOLD".
[[nodiscard]] QString TextOf(const ChannelLook& look);

}  // namespace panel
