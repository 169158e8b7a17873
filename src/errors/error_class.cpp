// SPDX-License-Identifier: MIT
#include "errors/error_class.h"

#include <array>

namespace pnl {

namespace {
/// Indexed by ErrorClass.
constexpr std::array<std::uint32_t, 5> kColors = {0x0000A0, 0x0000A0, 0x648064, 0x806480, 0x806480};
}  // namespace

std::uint32_t ErrorColorOf(ErrorClass errorClass) { return kColors[static_cast<std::size_t>(errorClass)]; }

int ChannelOf(const ErrorRecord& record) {
  const auto channel = record.Get<std::int8_t>(error_field::kChannel.offset);
  return static_cast<int>(channel);
}

bool HasChannel(std::int32_t source) {
  switch (source) {
    case error_source::kPlc:
    case error_source::kDrive:
    case error_source::kMechatrolink:
    case error_source::kUnknownDrive:
    case error_source::kFieldBus:
    case error_source::kCanOpen:
      return false;
    default:
      return true;
  }
}

bool HasKernelWord(std::int32_t source) { return HasChannel(source) || source == error_source::kCanOpen; }

}  // namespace pnl
