// SPDX-License-Identifier: MIT
// Two small services at the edit: pasting the calculator's result, and giving the help tool the mark of the block that
// the operator has in hand.
#pragma once

#include "mdi/mdi_session.h"

namespace pnl::mdi {

/// The value of "E.CALCRESUL" over the edit's selection; without a place to type only the focus moves.
void PasteCalcResult(MdiSession& session);
/// Writes the help mark to "E.HELPDATA"; kRefused when that variable isn't there.
std::intptr_t AskHelp(MdiSession& session);

}  // namespace pnl::mdi
