// SPDX-License-Identifier: MIT
// The registered messages by name, and which arguments of a message are addresses. One table says what a script may
// send by name, what the trace shows by name, and which arguments a script must give as objects, because a tool will
// read memory at their address.
#pragma once

#include <QJsonValue>
#include <QString>
#include <cstdint>
#include <optional>

namespace panel {

/// Returns the number of a registered message; nothing for an unknown name.
[[nodiscard]] std::optional<std::uint32_t> MessageNumber(const QString& name);
/// Returns the message's registered name, or its number when it has none.
[[nodiscard]] QJsonValue MessageToJson(std::uint32_t message);

/// What the argument of a message points to.
enum class AddressKind { kNone, kText, kCycleStart, kFile, kChannelRecord };
struct AddressArguments {
  AddressKind first = AddressKind::kNone;
  AddressKind second = AddressKind::kNone;
};
/// Returns the kinds of the two arguments. first is the first argument; it decides for the messages without a name.
[[nodiscard]] AddressArguments AddressesOf(std::uint32_t message, std::int64_t first);

}  // namespace panel
