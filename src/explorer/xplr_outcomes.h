// SPDX-License-Identifier: MIT
// What the explorer says on the message line: the text and the colour of each outcome, and the outcome of each failure
// of a folder. Shows nothing itself.
#pragma once

#include <cstdint>

#include "explorer/xplr_ids.h"

namespace pnl {

/// Backgrounds of the message line, 0x00BBGGRR.
namespace xplr_color {
inline constexpr std::uint32_t kHint = 2916452;
inline constexpr std::uint32_t kWarning = 6586468;
inline constexpr std::uint32_t kRefusal = 160;
}  // namespace xplr_color

/// A message of the explorer; text 0 clears the line.
struct XplrNotice {
  int text = 0;
  std::uint32_t color = xplr_color::kHint;
  friend bool operator==(const XplrNotice&, const XplrNotice&) = default;
};

/// What is shown for an outcome. One that has no text clears the line.
[[nodiscard]] XplrNotice NoticeOf(Outcome outcome);
/// What Enter shows in a place where nothing can be picked.
[[nodiscard]] XplrNotice NoticeOfPlace(NodeKind kind);

/// The outcome of a folder that was probed, by its place_error. For credentials it is kNoConnection: the connection
/// must be tried first (WantsConnection).
[[nodiscard]] Outcome OutcomeOfError(int error);
/// True for the errors of a share that asks for name and password.
[[nodiscard]] bool WantsConnection(int error);

}  // namespace pnl
