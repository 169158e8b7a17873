// SPDX-License-Identifier: MIT
// The messages that the PLC of the simulated machines can show: their texts in both languages, and the document that
// belongs to each. The documents are files of the machine's PLC folder, one for each kind that the message view shows.
// Who raises a message writes its code into "E.PLCMSGDATA". The table of messages belongs to the simulated CNC.
#pragma once

#include <cstdint>
#include <span>

#include "base/text.h"

namespace pnl::sim {

struct PlcMessage {
  std::int32_t type;
  std::int32_t id;
  TextView english;
  TextView spanish;
  TextView document;  // the name of a file in the PLC folder; "#" and a number choose one of its texts
};

[[nodiscard]] std::span<const PlcMessage> PlcMessages();

/// The message's number in "E.PLCMSGDATA": the type in the top four bits, the identifier below.
[[nodiscard]] std::uint32_t CodeOf(const PlcMessage& message);

}  // namespace pnl::sim
