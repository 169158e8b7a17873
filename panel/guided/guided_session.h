// SPDX-License-Identifier: MIT
// Works the panel as an operator would: it types, presses keys and advances the manual clock. It prints one line for
// each step and saves a numbered capture of it. It serves for a first look without a display and makes the pictures of
// the manual. Each step checks its result, so no capture can show something that didn't happen.
#pragma once

#include <pnltools/rig.h>

#include <QString>

namespace panel {

class HostSession;
class Operator;
class PanelWindow;

enum class Tour {
  kWhole,  // every tool
  kGlance  // the command line, a refusal, the calculator and help, for a second language
};

/// Runs a tour and saves its captures in the folder, which it makes. Steps and captures are numbered from first on.
/// Returns the number of the next step. Returns 0 when the folder can't be made or a step didn't do what it says; the
/// step's line then says FAILED.
[[nodiscard]] int RunGuidedSession(PanelWindow& window, HostSession& session, Operator& op, pnl::rig::Rig& rig,
                                   const QString& folder, Tour tour, int first);

}  // namespace panel
