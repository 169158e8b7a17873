// SPDX-License-Identifier: MIT
// The numbers of the PLC message view's dialog, of its controls, commands and texts.
#pragma once

namespace pnl::plc_id {

inline constexpr int kDialog = 3000;

inline constexpr int kPage = 1001;
inline constexpr int kText = 1005;  // a text or a picture
inline constexpr int kTitle = 1006;
inline constexpr int kNote = 1101;   // says why the area is empty
inline constexpr int kCount = 1102;  // "2 of 5", in the title line
inline constexpr int kVideo = 3002;

}  // namespace pnl::plc_id

namespace pnl::plc_text {

inline constexpr int kMessage = 101;
inline constexpr int kError = 102;
inline constexpr int kCount = 110;       // place and number of the items
inline constexpr int kUnreadable = 111;  // name
inline constexpr int kLookedIn = 112;    // folders, a line each
inline constexpr int kTooLarge = 113;    // name
inline constexpr int kDamaged = 114;     // name
inline constexpr int kNoLink = 115;      // reference

}  // namespace pnl::plc_text
