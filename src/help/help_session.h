// SPDX-License-Identifier: MIT
// The help viewer without its window: it opens the manual and the page of a help mark, decides what commands, keys and
// rows do, and what the host gets to know. The manuals come from a HelpShelf. How a mark leads to a page is in
// help/help_marks.h.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "help/help_books.h"
#include "help/help_marks.h"
#include "help/help_menus.h"
#include "help/help_recent.h"
#include "help/help_view.h"
#include "host/tool_session.h"

namespace pnl {

class HelpSession final : public ToolSession<HelpView> {
 public:
  HelpSession(const ToolContext& context, HelpView& view, std::unique_ptr<HelpShelf> shelf);

  /// Binds the mark's variable, publishes the menu and gives the focus back. The window stays hidden.
  void Start();
  /// Ends the tool before its window is destroyed: drops the manual and gives the menu back.
  void End();

  /// Handles PNL_MSG_TOOL_COMMAND and returns the answer to it.
  std::intptr_t OnToolCommand(std::intptr_t command);
  /// Handles "HELPHTML_GOTOMANUAL": opens the manual with that file name at its home page. Does nothing when no help
  /// folder has it.
  void OnGoToManual(TextView name);
  void OnMenuCommand(int id);
  /// A key before any control gets it. Returns true when they must not get it.
  bool OnKey(HelpKey key);
  /// Left or Right as a system key, which is consumed. With Alt held it goes back or forward.
  bool OnSystemKey(bool right, bool alt);
  /// A control has let a Tab pass: the focus moves on.
  void OnTabPassed() { RunCommand(help_command::kNextPane); }

  void OnLineChanged(HelpPart line);
  void OnLineEntered(HelpPart line);
  /// The operator has opened a row of a list.
  void OnRowChosen(HelpPart list, int row);
  void OnPaneTab(HelpPane pane);
  /// Hides or shows the panes.
  void OnPanesKey();
  void OnSearchKey();
  void OnFindKey(bool backwards);
  void OnFindClosed();
  /// The picker has closed; without a choice it was cancelled.
  void OnPicked(const std::optional<ManualChoice>& choice);
  void OnPageShown(TextView page, TextView anchor);
  void OnPageRefused(TextView reference);
  void OnParentResized();

  [[nodiscard]] bool HasHelpWindow() const { return m_hHelp != nullptr; }
  [[nodiscard]] HelpPane Pane() const { return pane_; }
  [[nodiscard]] bool ArePanesShown() const { return panesShown_; }
  [[nodiscard]] const RecentPages& Recent() const { return recent_; }

 private:
  /// The open manual, or one that is being opened.
  struct HelpFrame {
    Text path;
    ManualPlace wanted;  // where it opens; without a page at the home page
    Text fallbackNote;
    std::shared_ptr<HelpBook> book;  // null until it is open
    Text damagedNote;
    Text pageNote;  // about the page that is shown
    std::vector<HelpRow> contents;
    std::vector<HelpRow> index;
    std::vector<ResultRow> results;
    Text query;  // that the results are for
    bool waitsForIndex = false;
  };

  /// What the open picker shows, by which a choice is understood.
  struct Offered {
    std::vector<Text> manuals;
    std::vector<RecentPage> recent;
  };

  [[nodiscard]] HelpDisc Disc() const { return {Context().files, Context().cnc.Util()}; }
  [[nodiscard]] const Text& TextOf(int id) const { return texts_.at(id); }
  // Opening and closing.
  [[nodiscard]] bool Open();
  [[nodiscard]] ResolvedPage Resolve();
  void OpenBook(const Text& path, const ManualPlace& wanted, const Text& fallbackNote);
  [[nodiscard]] bool IsFile(TextView path) const;
  void OnBookOpened(const OpenedBook& opened);
  void ShowOpened(const OpenedBook& opened);
  void BeginSearch();
  [[nodiscard]] Text WhyNotShown(ManualState state) const;
  void ShowMissing(TextView text);
  void CloseBook();
  void Close();
  void FillParent();
  void ShowPicker();
  void PickManual(TextView name);
  void PickRecent(const RecentPage& page);
  // The help window.
  [[nodiscard]] HelpBook* Book() const { return m_hHelp == nullptr ? nullptr : m_hHelp->book.get(); }
  /// Runs a command of the help window. Does nothing when there is none.
  void RunCommand(int command);
  void TogglePane(HelpPane pane);
  [[nodiscard]] HelpPart FirstPart() const;
  [[nodiscard]] HelpPart PartAfter(HelpPart part) const;
  void OpenFind();
  void OnEnter();
  void ShowAt(const ManualPlace& place);
  void ShowNotes();
  void SetPageNote(Text note);
  void Search();
  void RunSearch();
  void TidyResults();

  std::unique_ptr<HelpShelf> shelf_;
  HelpMenus menus_;
  ZCVariable m_Mark;
  std::map<int, Text> texts_;
  Text missingText_;
  std::unique_ptr<HelpFrame> m_hHelp;  // null: no help window
  HelpPane pane_ = HelpPane::kContents;
  bool panesShown_ = true;
  std::optional<Offered> offered_;  // while the picker is open
  RecentPages recent_;
};

}  // namespace pnl
