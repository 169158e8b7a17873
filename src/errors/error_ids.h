// SPDX-License-Identifier: MIT
// The numbers of the error window's dialog and of its controls.
#pragma once

namespace pnl::error_id {

inline constexpr int kDialog = 3003;

inline constexpr int kTitleLine = 1000;
inline constexpr int kDescription = 1002;
inline constexpr int kTitleBox = 1004;
inline constexpr int kChannelBox = 1005;
inline constexpr int kBefore = 1006;
inline constexpr int kAfter = 1007;
inline constexpr int kPrevious = 1040;
inline constexpr int kNext = 1041;
inline constexpr int kHelp = 1042;
inline constexpr int kAcknowledge = 1043;  // shown for class 0
inline constexpr int kConfirmSign = 1044;  // shown for class 4
inline constexpr int kMarkedSign = 1045;   // shown for class 1

}  // namespace pnl::error_id
