// SPDX-License-Identifier: MIT
// What an error's class and source mean for its window and its texts: tables only. Composing is error_composer's
// business, and which class an error has is the facade's.
#pragma once

#include <cstdint>

#include "facade/error_class.h"

namespace pnl {

/// The error that closes the panel by itself.
inline constexpr std::int32_t kClosingNumber = 201;

/// The window's colour, 0x00BBGGRR.
[[nodiscard]] std::uint32_t ErrorColorOf(ErrorClass errorClass);
inline constexpr std::uint32_t kErrorWhite = 0xFFFFFF;
/// Behind title line and description.
inline constexpr std::uint32_t kErrorPanelColor = 0xBFC9D3;

/// 0 or less when there is none.
[[nodiscard]] int ChannelOf(const ErrorRecord& record);

/// True for the sources whose title word is that of the kernel and which name their channel.
[[nodiscard]] bool HasChannel(std::int32_t source);
/// True for the sources whose title word is that of the kernel, CANopen included.
[[nodiscard]] bool HasKernelWord(std::int32_t source);

}  // namespace pnl
