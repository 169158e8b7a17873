// SPDX-License-Identifier: MIT
// The part of the session that handles commands and keys: panes, focus, and finding in the page.
#include <utility>

#include "base/format.h"
#include "help/help_ids.h"
#include "help/help_session.h"

namespace pnl {
namespace {

/// How often the focus moves on in search of the page.
constexpr int kMostSteps = 5;

bool IsLine(HelpPart part) {
  return part == HelpPart::kIndexLine || part == HelpPart::kSearchLine || part == HelpPart::kFindLine;
}

}  // namespace

// Commands.

void HelpSession::OnMenuCommand(int id) {
  if (id == help_command::kManuals) return ShowPicker();
  if (id == help_command::kFindInPage) return OpenFind();
  RunCommand(HelpMenus::CommandOf(id));
}

void HelpSession::RunCommand(int command) {
  if (m_hHelp == nullptr) return;
  switch (command) {
    case help_command::kContents:
      return TogglePane(HelpPane::kContents);
    case help_command::kIndex:
      return TogglePane(HelpPane::kIndex);
    case help_command::kSearch:
      return TogglePane(HelpPane::kSearch);
    case help_command::kHome:
      if (Book() != nullptr) ShowAt({Book()->Home(), {}});
      return;
    case help_command::kBack:
      return View().GoBack();
    case help_command::kForward:
      return View().GoForward();
    case help_command::kNextPane:
      return View().FocusPart(PartAfter(View().FocusedPart()));
    default:
      return;
  }
}

// Panes.

void HelpSession::TogglePane(HelpPane pane) {
  panesShown_ = !panesShown_ || pane_ != pane;
  pane_ = pane;
  View().ShowPane(pane_, panesShown_);
  View().FocusPart(panesShown_ ? FirstPart() : HelpPart::kPage);
}

void HelpSession::OnPaneTab(HelpPane pane) {
  if (m_hHelp == nullptr) return;
  pane_ = pane;
  panesShown_ = true;
  View().ShowPane(pane_, panesShown_);
  View().FocusPart(FirstPart());
}

void HelpSession::OnPanesKey() {
  if (m_hHelp != nullptr) TogglePane(pane_);
}

HelpPart HelpSession::FirstPart() const {
  switch (pane_) {
    case HelpPane::kContents:
      return HelpPart::kContents;
    case HelpPane::kIndex:
      return HelpPart::kIndexLine;
    case HelpPane::kSearch:
      return HelpPart::kSearchLine;
  }
  return HelpPart::kPage;
}

HelpPart HelpSession::PartAfter(HelpPart part) const {
  if (!panesShown_) return HelpPart::kPage;
  switch (part) {
    case HelpPart::kPage:
    case HelpPart::kFindLine:
      return FirstPart();
    case HelpPart::kIndexLine:
      return HelpPart::kIndexList;
    case HelpPart::kSearchLine:
      return HelpPart::kResults;
    default:
      return HelpPart::kPage;
  }
}

// Keys.

bool HelpSession::OnKey(HelpKey key) {
  switch (key) {
    case HelpKey::kTab:
    case HelpKey::kUp:
    case HelpKey::kDown:
      View().SendKey(key);
      return true;
    case HelpKey::kEnter:
      OnEnter();
      return true;
    case HelpKey::kEscape:
      // The line for finding is the page's own; everything else is closed by the host.
      if (View().FocusedPart() == HelpPart::kFindLine) {
        OnFindClosed();
      } else {
        Host().HostToolWantsClose(PNL_TOOL_HELP);
      }
      return true;
    case HelpKey::kFind:
      if (m_hHelp == nullptr) return false;
      OpenFind();
      return true;
    case HelpKey::kOther:
      return false;
  }
  return false;
}

bool HelpSession::OnSystemKey(bool right, bool alt) {
  if (alt) RunCommand(right ? help_command::kForward : help_command::kBack);
  return true;
}

void HelpSession::OnEnter() {
  const HelpPart part = View().FocusedPart();
  View().SendKey(HelpKey::kEnter);
  View().FocusPart(part);
  // Only the pane of the search has a list to tidy.
  if (IsLine(View().FocusedPart()) && part == HelpPart::kSearchLine) TidyResults();
}

// Finding in the page.

void HelpSession::OpenFind() {
  if (m_hHelp == nullptr) return;
  for (int step = 0; step < kMostSteps && View().FocusedPart() != HelpPart::kPage; ++step) {
    RunCommand(help_command::kNextPane);
  }
  View().OpenFindLine(true);
}

void HelpSession::OnFindKey(bool backwards) {
  if (Book() == nullptr) return;
  const Text text = View().LineText(HelpPart::kFindLine);
  if (text.empty()) return;
  const bool found = View().FindInPage(text, backwards);
  SetPageNote(found ? Text() : Format(TextOf(help_text::kNotInPage), text));
}

void HelpSession::OnFindClosed() {
  View().OpenFindLine(false);
  View().FocusPart(HelpPart::kPage);
}

}  // namespace pnl
