// SPDX-License-Identifier: MIT
// A session as an operator would have it, run by the panel itself: it types, presses and waits by the manual clock,
// says each step in a line and leaves a numbered capture of it. For a first look without a display, and for the
// pictures of the manual; it checks as it goes, so that it can't show what didn't happen.
#pragma once

#include <pnltools/rig.h>

#include <QString>

namespace panel {

class HostSession;
class Operator;
class PanelWindow;

enum class Tour {
  kWhole,  // from the first block to the saved program
  kGlance  // the panel and a refusal, for a second language
};

/// Steps and captures are numbered from first on. The number of the next step; 0 when a step didn't do what it says,
/// which its line then tells. Makes the folder.
[[nodiscard]] int RunGuidedSession(PanelWindow& window, HostSession& session, Operator& op, pnl::rig::Rig& rig,
                                   const QString& folder, Tour tour, int first);

}  // namespace panel
