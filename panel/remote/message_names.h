// SPDX-License-Identifier: MIT
// The messages of the panel by name, and which of their arguments are addresses. One table: what a script may send by
// name, what the trace shows by name, and what must come as an object because a tool will read behind it.
#pragma once

#include <QJsonValue>
#include <QString>
#include <cstdint>
#include <optional>

namespace panel {

/// The number of a registered message; nothing for a name that no tool and no host knows.
[[nodiscard]] std::optional<std::uint32_t> MessageNumber(const QString& name);
/// The registered name, or the number where there is none.
[[nodiscard]] QJsonValue MessageToJson(std::uint32_t message);

/// What a message's argument points to.
enum class AddressKind { kNone, kText, kCycleStart, kFile, kChannelRecord };
struct AddressArguments {
  AddressKind first = AddressKind::kNone;
  AddressKind second = AddressKind::kNone;
};
/// first is the message's first argument, which decides for the numbered ones.
[[nodiscard]] AddressArguments AddressesOf(std::uint32_t message, std::int64_t first);

}  // namespace panel
