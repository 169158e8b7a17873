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

/// 0 when every step did what it says; else 1, with the step named on standard error. Makes the folder.
[[nodiscard]] int RunGuidedSession(PanelWindow& window, HostSession& session, Operator& op, pnl::rig::Rig& rig,
                                   const QString& folder);

}  // namespace panel
