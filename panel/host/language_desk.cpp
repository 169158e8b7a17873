// SPDX-License-Identifier: MIT
#include "host/language_desk.h"

#include "common/words.h"

namespace panel {
namespace {

constexpr int kTools[] = {PNL_TOOL_CALCULATOR,           PNL_TOOL_ERRORS, PNL_TOOL_EXPLORER,    PNL_TOOL_HELP,
                          PNL_TOOL_MACHINING_CALCULATOR, PNL_TOOL_MDI,    PNL_TOOL_PLC_MESSAGES};

}  // namespace

LanguageDesk::LanguageDesk(HostSession& session, ErrorDesk& errors, pnl::rig::Rig* rig)
    : session_(session), errors_(errors), rig_(rig) {
  // Queued, because a tool that reports its end is still at work.
  connect(&session_, &HostSession::ToolsChanged, this, &LanguageDesk::Renew, Qt::QueuedConnection);
  connect(&errors_, &ErrorDesk::Changed, this, &LanguageDesk::Renew, Qt::QueuedConnection);
}

bool LanguageDesk::Switch() {
  const QString other = WordsInUse() == QLatin1String("es") ? QStringLiteral("en") : QStringLiteral("es");
  if (PnlSetLanguage(qPrintable(other)) == 0) return false;
  UseWords(other);
  // Only a script destroys a tool that it has loaded.
  if (!session_.Reacting()) return true;
  for (const PnlWindow window : session_.ToolWindows()) stale_.insert(window);
  Renew();
  return true;
}

std::set<int> LanguageDesk::Stale() const {
  std::set<int> tools;
  for (const int tool : kTools) {
    if (stale_.count(session_.ToolWindow(tool)) != 0) tools.insert(tool);
  }
  return tools;
}

bool LanguageDesk::IsIdle(int tool) const {
  if (session_.IsToolOpen(tool)) return false;
  switch (tool) {
    case PNL_TOOL_MDI: {
      // A hidden command line still owns the block that it sent.
      constexpr int kRunning = 2;
      constexpr int kInterrupted = 4;
      const auto* machine = rig_ == nullptr ? nullptr : rig_->Machine();
      const int status = machine == nullptr ? 0 : machine->State().channelStatus;
      return status != kRunning && status != kInterrupted;
    }
    case PNL_TOOL_ERRORS:
      // A window that was put away must not come back by itself.
      return errors_.Standing() == 0;
    case PNL_TOOL_PLC_MESSAGES:
      return !errors_.ShowsHelp();
    default:
      return true;
  }
}

void LanguageDesk::Renew() {
  std::erase_if(stale_, [](PnlWindow window) { return PnlIsAlive(window) == 0; });
  if (stale_.empty()) return;
  bool anew = false;
  for (const int tool : Stale()) {
    if (!IsIdle(tool)) continue;
    stale_.erase(session_.ToolWindow(tool));
    session_.DestroyTool(session_.ToolWindow(tool));
    anew = anew || tool == PNL_TOOL_ERRORS || tool == PNL_TOOL_PLC_MESSAGES;
  }
  // These two wait hidden for what comes.
  if (anew) errors_.StartTools();
}

}  // namespace panel
