// SPDX-License-Identifier: MIT
// What the error numbers of a share's client mean for whoever reads a place.
#pragma once

namespace pnl {

/// The place_error of an errno value. A refusal means kLogonFailed when nobody has logged on, so that the operator is
/// asked, else kAccessDenied.
[[nodiscard]] int ShareErrorOf(int error, bool loggedOn);

}  // namespace pnl
