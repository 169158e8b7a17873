// SPDX-License-Identifier: MIT
// What the operator has typed in the command line and the calculator and not finished, and the rows that he has removed
// there: read from the tools and put back into them, with the library's messages for it.
#pragma once

#include <QString>
#include <optional>

#include "host/host_session.h"
#include "host/journal_file.h"

namespace panel {

/// Nothing when nothing is typed or the tool isn't loaded.
[[nodiscard]] std::optional<JournalBlock> TypedBlock(const HostSession& session);
[[nodiscard]] QString TypedExpression(const HostSession& session);
/// Return false when the tool isn't open or can't take the text now.
[[nodiscard]] bool PutBack(const HostSession& session, const JournalBlock& block);
[[nodiscard]] bool PutBackExpression(const HostSession& session, const QString& expression);

/// Stores what the two tools otherwise store when they end: the histories and the MDA list. Returns false when a file
/// can't be written.
[[nodiscard]] bool StoreToolRows(const HostSession& session);

/// The property of a tool's widget that is the number of the last removal in it, 0 for none.
inline constexpr const char* kRemovedProperty = "pnlRemoved";
struct RemovedRows {
  int rows = 0;
  bool whole = false;  // a list was cleared
  QString text;        // of the first row
};
[[nodiscard]] RemovedRows LastRemoval(PnlWindow tool);
/// Returns false when that isn't possible now.
[[nodiscard]] bool PutBackRemoval(PnlWindow tool);
void ForgetRemovals(PnlWindow tool);

}  // namespace panel
