// SPDX-License-Identifier: MIT
// What the operator sees and where the focus is: laying out, showing a role and its states, the selection that comes
// back with the focus, the drop list. Reads the records and changes none. Knows neither host nor CNC.
#pragma once

#include <cstdint>
#include <utility>

#include "mdi/mdi_data.h"
#include "mdi/mdi_settings.h"
#include "mdi/mdi_view.h"

namespace pnl {

class MdiScreen {
 public:
  /// settings outlives the screen.
  MdiScreen(MdiViewAccess view, const MdiSettings& settings) : view_(std::move(view)), settings_(settings) {}

  /// The first layout, for MDI role without a channel, in a control with that many channels.
  void Begin(int channelCount);
  /// Lays the window out for a role of a channel; record may be null. Closes the drop list.
  void LayOut(MdiRole role, const MDIDATA_ST* record);
  /// Lays out again for the role that was laid out last.
  void LayOutAgain(const MDIDATA_ST* record) { LayOut(displayedRole_, record); }
  [[nodiscard]] MdiRole DisplayedRole() const { return displayedRole_; }
  /// The role's controls, their access and the title, in a window that is about to be visible.
  void ShowRole(const MDIDATA_ST& record);
  /// The title alone: its text, and whether it blinks. Out of sight it doesn't blink, so that an idle panel sleeps.
  void ShowTitle(const MDIDATA_ST& record, bool visible);
  /// The list box gets the record's list, and its selection.
  void FillList(const MDIDATA_ST& record);
  /// How often the list box was filled so far.
  [[nodiscard]] int ListFills() const { return listFills_; }
  /// Hides the window with all that belongs to it and stops the title's blinking.
  void Hide();

  /// A block was sent: nothing can be typed or chosen.
  void ShowRunning(const MDIDATA_ST& record);
  /// A block has ended: the role's controls can be used again, and get the focus in a visible window.
  void ShowReady(const MDIDATA_ST& record);
  /// The same after an abort. In MDI role the edit is emptied.
  void ShowAborted(const MDIDATA_ST& record);

  /// Selects in the edit, now and whenever it gets the focus back.
  void SetSelection(TextSelection selection);
  /// Caret after the last character.
  void SetCaretToEnd();
  /// The edit got or lost the focus.
  void OnEditFocus(bool focused);
  /// The edit where the operator types in it, else the list. record may be null.
  void FocusForRole(const MDIDATA_ST* record);
  /// The same, with the list's first item selected.
  void FocusForRoleFirstItem(const MDIDATA_ST* record);
  /// The block that the operator has in hand: what is selected in the edit, all of the edit without a selection, or the
  /// selected item of the list.
  [[nodiscard]] Text BlockInHand(const MDIDATA_ST& record) const;

  /// Opens the drop list with the channel's history, in MDI role and State 1 only. record may be null.
  void OpenDropList(const MDIDATA_ST* record);
  /// Closes it, if it is open, and leaves the focus alone.
  void CloseDropList();
  /// Closes it as Cancel does: the focus and the saved selection go back to the edit.
  void CancelDropList();
  /// "MDI_ENDLIST": verdict 1 means that a text was picked.
  void EndDropList(std::intptr_t verdict);

 private:
  [[nodiscard]] MdiView& View() const { return view_(); }
  [[nodiscard]] MdiLayout LayoutFor(MdiRole role) const;
  void ShowAccess(MdiRole role, const MDIDATA_ST* record);

  const MdiViewAccess view_;
  const MdiSettings& settings_;
  int channelCount_ = 0;
  int listFills_ = 0;
  MdiRole displayedRole_ = MdiRole::kMdi;
  TextSelection selection_;  // what the edit gets back with the focus
};

}  // namespace pnl
