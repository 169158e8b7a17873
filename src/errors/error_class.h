// SPDX-License-Identifier: MIT
// Tables: what the class and the source of an error mean for the window and for the texts. error_composer composes the
// texts, and facade/error_class.h decides which class an error has.
#pragma once

#include <cstdint>

#include "facade/error_class.h"

namespace pnl {

/// The number of the error after which the panel closes by itself.
inline constexpr std::int32_t kClosingNumber = 201;

/// The colour of the window for errors of that class, as 0x00BBGGRR.
[[nodiscard]] std::uint32_t ErrorColorOf(ErrorClass errorClass);
inline constexpr std::uint32_t kErrorWhite = 0xFFFFFF;
/// The background of the title line and the description.
inline constexpr std::uint32_t kErrorPanelColor = 0xBFC9D3;

/// The number of the channel that the error comes from, counted from 1. It is 0 or less if the error has no channel.
[[nodiscard]] int ChannelOf(const ErrorRecord& record);

/// True for the sources that use the kernel's title word and name a channel.
[[nodiscard]] bool HasChannel(std::int32_t source);
/// True for the sources that use the kernel's title word. These are the sources with a channel, and CANopen.
[[nodiscard]] bool HasKernelWord(std::int32_t source);

}  // namespace pnl
