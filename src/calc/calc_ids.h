// SPDX-License-Identifier: MIT
// The numbers of the calculator's controls, menu commands and resources. calc_keys and calc_session define what the
// commands do.
#pragma once

namespace pnl::calc_id {

inline constexpr int kDialog = 3001;

inline constexpr int kLine = 1008;
inline constexpr int kResult = 1010;
inline constexpr int kStatus = 1011;
inline constexpr int kOpenList = 1012;
inline constexpr int kFirstKey = 1013;  // the keys 1013 to 1036 are hidden while a list is open
inline constexpr int kBack = 1013;
inline constexpr int kOpenBracket = 1014;
inline constexpr int kCloseBracket = 1015;
inline constexpr int kAcc = 1016;
inline constexpr int kReciprocal = 1031;
inline constexpr int kSign = 1033;
inline constexpr int kConfirm = 1036;
inline constexpr int kLastKey = 1036;
inline constexpr int kAssign = 1037;
inline constexpr int kHistory = 1038;

// The keys between the first column of the keypad and the others, and the list and the note that they open.
inline constexpr int kShowBases = 1101;
inline constexpr int kShowVariables = 1102;
inline constexpr int kShowSolver = 1103;
inline constexpr int kVariables = 1104;
inline constexpr int kNote = 1105;

inline constexpr int kMenuBase = 32779;
inline constexpr int kMenuAngle = 32781;
inline constexpr int kMenuCompact = 32817;
inline constexpr int kMenuMachining = 32821;

inline constexpr int kFirstKeyIcon = 332;     // the icon of 1012; those of the next ids up to 1036 follow
inline constexpr int kFirstBaseBitmap = 365;  // hexadecimal, decimal, binary
inline constexpr int kDegreesBitmap = 368;
inline constexpr int kRadiansBitmap = 369;
inline constexpr int kMachiningBitmap = 387;

inline constexpr int kTextTitle = 1;
inline constexpr int kTextEmpty = 2;
inline constexpr int kTextFailed = 3;
inline constexpr int kTextSyntax = 4;
inline constexpr int kTextValue = 5;
inline constexpr int kTextSelection = 6;
// Texts that only the calculator uses.
inline constexpr int kTextComputing = 7001;    // a preview is being computed
inline constexpr int kTextConfirming = 7002;   // a confirmed expression is being computed; Esc cancels it
inline constexpr int kTextNoVariables = 7003;  // all variables and ACC are 0
inline constexpr int kTextIntegral = 7004;     // the note of INTEGRAL: %s from, %s to, %s N
inline constexpr int kTextZero = 7005;         // the note of ZERO: %s start, %s N, %s E
inline constexpr int kTextTolerance = 7006;    // the hint of ZERO: %d iterations, %s remaining value

}  // namespace pnl::calc_id
