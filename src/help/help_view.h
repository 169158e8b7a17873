// SPDX-License-Identifier: MIT
// What the help viewer's logic asks of its window: three panes with lists at the left, a page at the right, a line to
// find a text in the page, a note above the page, and the static 1000 in place of all that. ZCHelpHTML implements it on
// Qt, and a recording view in the tests. Of these calls only SendKey and those that show a page (or refuse it) come
// back as events.
#pragma once

#include <memory>
#include <vector>

#include "help/help_rows.h"
#include "window/tool_view.h"

namespace pnl {

enum class HelpPane { kContents, kIndex, kSearch };

/// The control with the focus. kNone: none of the viewer's.
enum class HelpPart { kNone, kPage, kContents, kIndexLine, kIndexList, kSearchLine, kResults, kFindLine };
inline constexpr HelpPart kHelpParts[] = {HelpPart::kNone,      HelpPart::kPage,      HelpPart::kContents,
                                          HelpPart::kIndexLine, HelpPart::kIndexList, HelpPart::kSearchLine,
                                          HelpPart::kResults,   HelpPart::kFindLine};

enum class HelpKey { kTab, kUp, kDown, kEnter, kEscape, kFind, kOther };

/// What the picker shows. code is that of ListManuals.
struct ManualPicker {
  int code = 0;
  Text note;
  std::vector<Text> manuals;
  std::vector<Text> recent;
};
struct ManualChoice {
  enum class List { kManuals, kRecent } list = List::kManuals;
  int row = -1;
};

class HelpView : public ToolView {
 public:
  virtual void FocusWindow() = 0;
  virtual void FocusParent() = 0;
  /// Gives the focus to the control that had it before the window was made.
  virtual void GiveFocusBack() = 0;
  /// Moves the window in its parent and repaints it.
  virtual void MoveWindow(const Rect& rect) = 0;

  /// Shows panes and page, or an empty area.
  virtual void ShowBook(bool shown) = 0;
  /// Shows the static 1000 with a text; an empty text hides it.
  virtual void ShowMissing(TextView text) = 0;
  /// The note above the page; an empty text hides it.
  virtual void ShowNote(TextView text) = 0;

  /// Brings a pane to the front; the others keep what they show. If shown isn't set, the page has all the room.
  virtual void ShowPane(HelpPane pane, bool shown) = 0;
  virtual void SetContents(const std::vector<HelpRow>& rows) = 0;
  virtual void SetIndex(const std::vector<HelpRow>& rows) = 0;
  virtual void SetResults(const std::vector<ResultRow>& rows) = 0;
  virtual void SetSearchStatus(TextView text) = 0;
  /// Selects a row of a list and makes it visible; -1 selects none.
  virtual void SelectRow(HelpPart list, int row) = 0;
  [[nodiscard]] virtual int SelectedRow(HelpPart list) const = 0;
  [[nodiscard]] virtual Text LineText(HelpPart line) const = 0;
  virtual void SetLineText(HelpPart line, TextView text) = 0;

  /// Shows a page. Returns false when it can't be shown; the page before stays then.
  virtual bool ShowPage(const std::shared_ptr<PageSource>& source, TextView page, TextView anchor) = 0;
  virtual void ClearPage() = 0;
  virtual void GoBack() = 0;
  virtual void GoForward() = 0;
  virtual void OpenFindLine(bool open) = 0;
  /// Finds the text from the last place on. Returns false when the page doesn't contain it.
  virtual bool FindInPage(TextView text, bool backwards) = 0;

  [[nodiscard]] virtual HelpPart FocusedPart() const = 0;
  virtual void FocusPart(HelpPart part) = 0;
  /// Hands the key to the control with the focus, of the viewer or not, as if the operator had pressed it there.
  virtual void SendKey(HelpKey key) = 0;

  /// Shows the modal picker and returns. What the operator chooses comes as HelpSession::OnPicked.
  virtual void OpenPicker(const ManualPicker& picker) = 0;
  /// Takes the picker away; nothing is chosen then.
  virtual void ClosePicker() = 0;
};

}  // namespace pnl
