// SPDX-License-Identifier: MIT
// Decides what the operator sees and where the focus is: the layout, how a role and its states look, the selection that
// the edit gets back with the focus, and the drop list. It reads the records and changes none. It knows neither host
// nor CNC.
#pragma once

#include <cstdint>
#include <utility>

#include "mdi/mdi_data.h"
#include "mdi/mdi_settings.h"
#include "mdi/mdi_view.h"

namespace pnl {

class MdiScreen {
 public:
  /// settings must outlive the screen.
  MdiScreen(MdiViewAccess view, const MdiSettings& settings) : view_(std::move(view)), settings_(settings) {}

  /// Makes the first layout, for MDI role and without a channel. channelCount is the number of channels of the CNC.
  void Begin(int channelCount);
  /// Lays the window out for a role. record is that of the channel, or null without one. Closes the drop list.
  void LayOut(MdiRole role, const MDIDATA_ST* record);
  /// Lays the window out again for the role of the last layout.
  void LayOutAgain(const MDIDATA_ST* record) { LayOut(displayedRole_, record); }
  [[nodiscard]] MdiRole DisplayedRole() const { return displayedRole_; }
  /// Places and enables the controls for the record's role and shows the title. The window is about to be shown.
  void ShowRole(const MDIDATA_ST& record);
  /// Sets the text of the title, and whether it blinks. It doesn't blink if the window isn't visible, so that an idle
  /// panel has nothing to do.
  void ShowTitle(const MDIDATA_ST& record, bool visible);
  /// Fills the list box with the record's list and selects the record's item.
  void FillList(const MDIDATA_ST& record);
  /// How often the list box has been filled.
  [[nodiscard]] int ListFills() const { return listFills_; }
  /// Closes the drop list, hides the window and stops the blinking of the title.
  void Hide();

  /// Shows that a block was sent: nothing can be typed or chosen.
  void ShowRunning(const MDIDATA_ST& record);
  /// Shows that a block has ended: the role's controls can be used again. In a visible window they get the focus.
  void ShowReady(const MDIDATA_ST& record);
  /// Shows that a block was aborted: as ShowReady, and in MDI role the edit is emptied.
  void ShowAborted(const MDIDATA_ST& record);

  /// Sets the selection of the edit, now and each time when it gets the focus back.
  void SetSelection(TextSelection selection);
  /// Selects the word at fault of a refused block, which the edit has, if the error named one. It gets the selection
  /// back with the focus only while the edit still has that block.
  void SelectRefusedWord(const MdiRefusal& refusal);
  /// Sets the caret after the last character.
  void SetCaretToEnd();
  /// The edit got or lost the focus.
  void OnEditFocus(bool focused);
  /// Gives the focus to the edit if the operator types in it, else to the list. record may be null.
  void FocusForRole(const MDIDATA_ST* record);
  /// The same. If the list gets the focus, its first item is selected.
  void FocusForRoleFirstItem(const MDIDATA_ST* record);
  /// The block that the operator has in hand. If he types in the edit, it is the selected part of the edit, or all of
  /// it without a selection. Else it is the selected item of the list.
  [[nodiscard]] Text BlockInHand(const MDIDATA_ST& record) const;

  /// Opens the drop list with the channel's history. Does nothing without a record, in MDA role or in another state
  /// than 1.
  void OpenDropList(const MDIDATA_ST* record);
  /// Closes the drop list if it is open. Does not move the focus.
  void CloseDropList();
  /// Closes the drop list as Cancel does: the edit gets back the focus and the saved selection. record may be null.
  void CancelDropList(const MDIDATA_ST* record);
  /// Handles "MDI_ENDLIST": takes the picked text if the verdict is 1, and closes the drop list. If the picked block
  /// was refused, the word at fault is selected. record may be null.
  void EndDropList(std::intptr_t verdict, const MDIDATA_ST* record);
  /// Whether the open drop list shows the arranged rows (mdi_drop_rows) instead of the history.
  [[nodiscard]] bool IsDropListArranged() const { return arranged_; }
  void NoteArranged(bool arranged) { arranged_ = arranged; }
  /// Types into the edit, at the caret that it has without the focus. EraseInEdit does what the Backspace key does.
  void TypeIntoEdit(TextView text);
  void EraseInEdit();

 private:
  [[nodiscard]] MdiView& View() const { return view_(); }
  [[nodiscard]] MdiLayout LayoutFor(MdiRole role) const;
  void ShowAccess(MdiRole role, const MDIDATA_ST* record);

  const MdiViewAccess view_;
  const MdiSettings& settings_;
  int channelCount_ = 0;
  int listFills_ = 0;
  bool arranged_ = false;  // what the drop list shows
  MdiRole displayedRole_ = MdiRole::kMdi;
  Text selectedIn_;  // the refused block in which selection_ is the word at fault; empty for any other selection
  TextSelection selection_;  // the edit gets this selection back with the focus
};

}  // namespace pnl
