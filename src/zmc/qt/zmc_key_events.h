// SPDX-License-Identifier: MIT
// Which key presses are keys of the machining calculator. The frame asks this for each press before the panel's
// shortcuts get it.
#pragma once

#include <QtGui/QKeyEvent>
#include <optional>

#include "zmc/zmc_keys.h"

namespace pnl {

/// The tool's key; none for a key that isn't in its tables, and for every key with Control, Alt or Meta.
[[nodiscard]] std::optional<ZmcKey> KeyOf(const QKeyEvent& event);
/// A key that is typed into a field or a cell, or that turns a list's page.
[[nodiscard]] bool IsTyped(const QKeyEvent& event);

}  // namespace pnl
